#pragma once

#include "toolkit/View.h"

/** A push button; its title is also its accessible name. */
class Button : public View {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitButton)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY enabledChanged)
    Q_PROPERTY(QString disabledTitleColor READ disabledTitleColorName NOTIFY enabledChanged)

public:
    Button(QObject* parent, const QString& title);

    QString title() const { return accessibilityLabel(); }
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    void setDisabledTitleColor(const Color& color);

    /** What a tap does; a disabled or hidden button does nothing. */
    Q_INVOKABLE void press();

Q_SIGNALS:
    void enabledChanged();
    void touchUpInside();

private:
    QString disabledTitleColorName() const { return m_disabledTitleColor.name(); }

    bool m_enabled = true;
    Color m_disabledTitleColor = grey;
};
