#pragma once

#include "toolkit/View.h"

/** A setting that is on or off. */
class Switch : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitSwitch)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(bool on READ isOn NOTIFY onChanged)

public:
    using View::View;

    bool isOn() const { return m_on; }
    void setOn(bool on);

    /** What a tap does. */
    Q_INVOKABLE void toggle();

Q_SIGNALS:
    void onChanged();
    /** The user, not the program, has turned the switch. */
    void valueChanged();

private:
    bool m_on = false;
};
