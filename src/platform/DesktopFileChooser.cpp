#include "DesktopFileChooser.h"

#include <QByteArrayList>
#include <QDBusConnection>

DesktopFileChooser::DesktopFileChooser() {
    const QByteArray theme = qgetenv("QT_QPA_PLATFORMTHEME");
    m_isThere = QByteArrayList{"xdgdesktopportal", "gtk3", "kde"}.contains(theme);
    if (theme != "xdgdesktopportal")
        return;
    m_portal.setConnection(QDBusConnection::sessionBus());
    m_portal.addWatchedService(QStringLiteral("org.freedesktop.portal.Desktop"));
    connect(&m_portal, &QDBusServiceWatcher::serviceRegistered, this, [this] { setThere(true); });
    connect(&m_portal, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { setThere(false); });
}

void DesktopFileChooser::setThere(bool isThere) {
    if (isThere == m_isThere)
        return;
    m_isThere = isThere;
    Q_EMIT changed();
}
