#pragma once

#include <QObject>
#include <QQuickWindow>
#include <QVariantMap>

/** The running program as the session's bus knows it, by the interface that desktops have for
 * applications. A second start has the first one show its window. */
class RunningProgram : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /** Asks the program that runs already for its window. False when none answers. */
    static bool raise();

    explicit RunningProgram(QQuickWindow& window);

    /** Shows the window; what else a message says is not listened to. */
    Q_SCRIPTABLE void Activate(const QVariantMap& platformData);

private:
    QQuickWindow& m_window;
};
