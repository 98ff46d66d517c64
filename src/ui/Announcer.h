#pragma once

#include <QQuickItem>
#include <qqml.h>

/** Tells a screen reader what it does not see by itself. */
class Announcer : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /** Tells that the keyboard works this item now, though what holds it has the focus. */
    Q_INVOKABLE static void focus(QQuickItem* item);
    /** Whether assistive technology follows the program. */
    Q_INVOKABLE static bool isHeard();
    /** Says a text on behalf of an item of the window, when the reader has nothing else to say. */
    Q_INVOKABLE static void say(QQuickItem* item, const QString& text);
};
