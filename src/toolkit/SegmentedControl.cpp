#include "SegmentedControl.h"

SegmentedControl::SegmentedControl(QObject* parent, const QStringList& items)
    : View(parent)
    , m_items(items) {}

void SegmentedControl::setSelectedIndex(int index) {
    m_selectedIndex = index;
    Q_EMIT selectedIndexChanged();
}

void SegmentedControl::setTintColor(const Color& color) {
    m_tintColor = color;
    Q_EMIT lookChanged();
}

void SegmentedControl::choose(int index) {
    if (index == m_selectedIndex || index < 0 || index >= m_items.size())
        return;
    setSelectedIndex(index);
    Q_EMIT valueChanged();
}
