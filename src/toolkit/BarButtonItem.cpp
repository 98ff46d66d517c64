#include "BarButtonItem.h"

BarButtonItem::BarButtonItem(QObject* parent, const QString& title, std::function<void()> action)
    : QObject(parent)
    , m_title(title)
    , m_action(std::move(action)) {}

BarButtonItem* BarButtonItem::makeFlexibleSpace(QObject* parent) {
    return new BarButtonItem(parent, {}, nullptr);
}

void BarButtonItem::setImage(const QString& symbol) {
    m_image = symbol;
    Q_EMIT imageChanged();
}

void BarButtonItem::setEnabled(bool enabled) {
    m_enabled = enabled;
    Q_EMIT enabledChanged();
}

void BarButtonItem::press() {
    if (m_action && m_enabled)
        m_action();
}
