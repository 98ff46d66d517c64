#pragma once

#include <QQuickItem>
#include <qqml.h>

/** Has a screen reader say something that does not take the keyboard's focus. */
class Announcer : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /** Says a text on behalf of an item of the window, when the reader has nothing else to say. */
    Q_INVOKABLE static void say(QQuickItem* item, const QString& text);
};
