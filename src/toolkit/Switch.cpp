#include "Switch.h"

void Switch::setOn(bool on) {
    if (on == m_on)
        return;
    m_on = on;
    Q_EMIT onChanged();
}

void Switch::toggle() {
    setOn(!m_on);
    Q_EMIT valueChanged();
}
