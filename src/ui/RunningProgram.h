#pragma once

#include <QObject>
#include <QQuickWindow>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>

#include <functional>

/** The running program as the session's bus knows it, by the interface that desktops have for
 * applications. A second start has the first one show its window. */
class RunningProgram : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /** Asks the program that runs already for its window. False when none answers. */
    static bool raise();
    /** The same, and hands it a file to open. */
    static bool open(const QUrl& file);

    RunningProgram(QQuickWindow& window, std::function<void(const QUrl&)> openFile);

    /** Shows the window; what else a message says is not listened to. */
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);
    /** The same, and opens the first file. */
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platformData);

private:
    QQuickWindow& m_window;
    std::function<void(const QUrl&)> m_openFile;
};
