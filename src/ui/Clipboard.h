#pragma once

#include <QObject>
#include <qqml.h>

/** The clipboard, for texts that no text item holds. */
class Clipboard : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static void copy(const QString& text);
};
