#include "DesktopFileChooser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace {

const char* const themeVariable = "QT_QPA_PLATFORMTHEME";
const char* const portalTheme = "xdgdesktopportal";
const auto portal = QStringLiteral("org.freedesktop.portal.Desktop");

} // namespace

void DesktopFileChooser::preferPortal() {
    if (!qEnvironmentVariableIsSet(themeVariable))
        qputenv(themeVariable, portalTheme);
}

DesktopFileChooser::DesktopFileChooser() {
    const QByteArray theme = qgetenv(themeVariable);
    if (theme != portalTheme) {
        m_isThere = theme == "gtk3" || theme == "kde";
        return;
    }
    m_portal.setConnection(QDBusConnection::sessionBus());
    m_portal.addWatchedService(portal);
    connect(&m_portal, &QDBusServiceWatcher::serviceRegistered, this,
            &DesktopFileChooser::askPortal);
    connect(&m_portal, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { setThere(false); });
    askPortal();
}

// A portal that has no program to choose files with does not have this interface either.
void DesktopFileChooser::askPortal() {
    auto question = QDBusMessage::createMethodCall(
        portal, QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments(
        {QStringLiteral("org.freedesktop.portal.FileChooser"), QStringLiteral("version")});
    auto* answer = new QDBusPendingCallWatcher(m_portal.connection().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> version = *answer;
        setThere(version.isValid() && version.value().variant().toUInt() > 0);
        answer->deleteLater();
    });
}

void DesktopFileChooser::setThere(bool isThere) {
    if (isThere == m_isThere)
        return;
    m_isThere = isThere;
    Q_EMIT changed();
}
