#pragma once

#include "toolkit/Color.h"

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>

/** What every control on a screen has: a name for assistive technology, a look, and whether it
 * shows. Views read it; controllers write it. */
class View : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(ToolkitView)
    QML_UNCREATABLE("Controllers make their controls")
    Q_PROPERTY(QString accessibilityLabel READ accessibilityLabel CONSTANT)
    Q_PROPERTY(bool hidden READ isHidden NOTIFY hiddenChanged)
    Q_PROPERTY(double hidingDuration READ hidingDuration NOTIFY hiddenChanged)
    Q_PROPERTY(double cornerRadius READ cornerRadius NOTIFY lookChanged)
    Q_PROPERTY(double borderWidth READ borderWidth NOTIFY lookChanged)
    Q_PROPERTY(QString borderColor READ borderColorName NOTIFY lookChanged)
    Q_PROPERTY(QString backgroundColor READ backgroundColorName NOTIFY lookChanged)

public:
    explicit View(QObject* parent, const QString& accessibilityLabel = {});

    /** Makes the changes of views within `changes` last this many seconds on the screen. */
    static void animate(double seconds, const std::function<void()>& changes);

    QString accessibilityLabel() const { return m_accessibilityLabel; }
    bool isHidden() const { return m_hidden; }
    void setHidden(bool hidden);
    double hidingDuration() const { return m_hidingDuration; } ///< seconds
    double cornerRadius() const { return m_cornerRadius; }     ///< points
    void setCornerRadius(double radius);
    double borderWidth() const { return m_borderWidth; } ///< points
    void setBorderWidth(double width);
    Color borderColor() const { return m_borderColor; }
    void setBorderColor(const Color& color);
    Color backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const Color& color);

Q_SIGNALS:
    void hiddenChanged();
    void lookChanged();

private:
    QString borderColorName() const { return m_borderColor.name(); }
    QString backgroundColorName() const { return m_backgroundColor.name(); }

    QString m_accessibilityLabel;
    bool m_hidden = false;
    double m_hidingDuration = 0;
    double m_cornerRadius = 0;
    double m_borderWidth = 0;
    Color m_borderColor = black;
    Color m_backgroundColor{0, 0, 0, 0};
};
