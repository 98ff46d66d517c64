#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

/** Whether this desktop has a file chooser outside the program: the portal's as soon as it has told
 * that it has one, or that of the platform theme that the user has chosen. */
class DesktopFileChooser : public QObject {
    Q_OBJECT

public:
    /** Has Qt use the portal's file chooser, unless the user has chosen a platform theme. To be
     * called before there is an application. */
    static void preferPortal();

    DesktopFileChooser();

    bool isThere() const { return m_isThere; }

Q_SIGNALS:
    void changed();

private:
    void askPortal();
    void setThere(bool isThere);

    QDBusServiceWatcher m_portal;
    bool m_isThere = false;
};
