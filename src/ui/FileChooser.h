#pragma once

#include <QObject>
#include <qqml.h>

/** What choosing a file is like on this desktop. */
class FileChooser : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool native READ isNative CONSTANT)
    Q_PROPERTY(QString startFolder READ startFolder CONSTANT)

public:
    /** Has the desktop portal's file chooser used where there is one, unless the user has chosen a
     * platform theme. To be called before there is an application. */
    static void preferPortal(int& argc, char** argv);

    /** Whether the platform theme has a file chooser of its own. */
    static bool isNative();
    /** The path of the user's documents, else the home folder. */
    static QString startFolder();
};
