#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

/** Short notes at the window's bottom: that something has worked, where the screen shows nothing of
 * it. They need no answer. */
class Notes : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one place for notes")

public:
    using QObject::QObject;

    void say(const QString& text) { Q_EMIT said(text); }

Q_SIGNALS:
    void said(const QString& text);
};
