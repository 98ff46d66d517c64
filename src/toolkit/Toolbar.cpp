#include "Toolbar.h"

Toolbar::Toolbar(QObject* parent, const Color& tintColor, bool translucent)
    : View(parent)
    , m_tintColor(tintColor)
    , m_translucent(translucent) {}

void Toolbar::addItem(BarButtonItem* item) {
    item->setParent(this);
    m_items.append(item);
}
