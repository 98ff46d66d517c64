#include "Button.h"

Button::Button(QObject* parent, const QString& title)
    : View(parent, title) {}

void Button::setEnabled(bool enabled) {
    m_enabled = enabled;
    Q_EMIT enabledChanged();
}

void Button::setDisabledTitleColor(const Color& color) {
    m_disabledTitleColor = color;
    Q_EMIT enabledChanged();
}

void Button::press() {
    if (m_enabled && !isHidden())
        Q_EMIT touchUpInside();
}
