#include "Stepper.h"

#include <algorithm>

Stepper::Stepper(QObject* parent, const QString& accessibilityLabel, double minimum, double maximum,
                 double step)
    : View(parent, accessibilityLabel)
    , m_minimum(minimum)
    , m_maximum(maximum)
    , m_step(step)
    , m_value(minimum) {}

void Stepper::setValue(double value) {
    m_value = std::clamp(value, m_minimum, m_maximum);
    Q_EMIT shownValueChanged();
}

void Stepper::increment() {
    move(m_step);
}

void Stepper::decrement() {
    move(-m_step);
}

void Stepper::move(double by) {
    const double before = m_value;
    setValue(m_value + by);
    if (m_value != before)
        Q_EMIT valueChanged();
}
