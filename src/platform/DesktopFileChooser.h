#pragma once

#include <QDBusServiceWatcher>
#include <QObject>

/** Whether this desktop has a file chooser outside the program: that of the platform theme that Qt
 * uses. The portal's is there for as long as the portal is. */
class DesktopFileChooser : public QObject {
    Q_OBJECT

public:
    DesktopFileChooser();

    bool isThere() const { return m_isThere; }

Q_SIGNALS:
    void changed();

private:
    void setThere(bool isThere);

    QDBusServiceWatcher m_portal;
    bool m_isThere;
};
