#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>

/** A plain button of a navigation bar or toolbar, or the flexible space between two. */
class BarButtonItem : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Controllers make their bar buttons")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString image READ image NOTIFY imageChanged)
    Q_PROPERTY(bool enabled READ isEnabled NOTIFY enabledChanged)
    Q_PROPERTY(bool flexibleSpace READ isFlexibleSpace CONSTANT)

public:
    BarButtonItem(QObject* parent, const QString& title, std::function<void()> action);

    static BarButtonItem* makeFlexibleSpace(QObject* parent);

    QString title() const { return m_title; }
    /** The name of a system symbol that shows in the title's place; empty where the title shows. */
    QString image() const { return m_image; }
    void setImage(const QString& symbol);
    bool isEnabled() const { return m_enabled; }
    void setEnabled(bool enabled);
    bool isFlexibleSpace() const { return !m_action; }

    /** What a tap does; a disabled button does nothing. */
    Q_INVOKABLE void press();

Q_SIGNALS:
    void imageChanged();
    void enabledChanged();

private:
    QString m_title;
    QString m_image;
    bool m_enabled = true;
    std::function<void()> m_action;
};
