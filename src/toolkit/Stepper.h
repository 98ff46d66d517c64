#pragma once

#include "toolkit/View.h"

/** Two buttons that move a number within bounds. */
class Stepper : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitStepper)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(double value READ value NOTIFY shownValueChanged)
    Q_PROPERTY(double minimum READ minimum CONSTANT)
    Q_PROPERTY(double maximum READ maximum CONSTANT)

public:
    Stepper(QObject* parent, const QString& accessibilityLabel, double minimum, double maximum,
            double step);

    double value() const { return m_value; }
    /** Takes the nearest value within the bounds. */
    void setValue(double value);
    double minimum() const { return m_minimum; }
    double maximum() const { return m_maximum; }

    /** What a tap on one of the buttons does. */
    Q_INVOKABLE void increment();
    Q_INVOKABLE void decrement();

Q_SIGNALS:
    void shownValueChanged();
    /** The user, not the program, has changed the value. */
    void valueChanged();

private:
    void move(double by);

    double m_minimum;
    double m_maximum;
    double m_step;
    double m_value;
};
