#pragma once

#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

/** Tells screens where the keyboard, or the input view in its place, stands. */
class Keyboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one keyboard")

public:
    using QObject::QObject;

Q_SIGNALS:
    /** The keyboard will cover this many points at the window's bottom. */
    void willChangeFrame(double height);
    void willHide();
};
