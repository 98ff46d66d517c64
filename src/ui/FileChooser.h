#pragma once

#include "platform/DesktopFileChooser.h"

#include <QObject>
#include <qqml.h>

/** What choosing a file is like on this desktop. */
class FileChooser : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /** Whether the desktop has a file chooser of its own. */
    Q_PROPERTY(bool native READ isNative NOTIFY nativeChanged)
    /** The path of the user's documents, else the home folder. */
    Q_PROPERTY(QString startFolder READ startFolder CONSTANT)

public:
    FileChooser();

    bool isNative() const { return m_desktop.isThere(); }
    static QString startFolder();

Q_SIGNALS:
    void nativeChanged();

private:
    DesktopFileChooser m_desktop;
};
