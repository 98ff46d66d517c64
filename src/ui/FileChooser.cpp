#include "FileChooser.h"

#include "foundation/Files.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QPluginLoader>

namespace {

const char* const themeVariable = "QT_QPA_PLATFORMTHEME";
const QString portalTheme = QStringLiteral("xdgdesktopportal");

/** A portal that has no program to choose files with does not have this interface either. */
bool hasPortal() {
    const QString name = QStringLiteral("lantern-file-chooser");
    constexpr int patience = 2000; // milliseconds; the portal may have to start
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question.setArguments(
        {QStringLiteral("org.freedesktop.portal.FileChooser"), QStringLiteral("version")});
    const auto answer = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)
                            .call(question, QDBus::Block, patience);
    QDBusConnection::disconnectFromBus(name);
    return answer.type() == QDBusMessage::ReplyMessage;
}

} // namespace

void FileChooser::preferPortal(int& argc, char** argv) {
    if (qEnvironmentVariableIsSet(themeVariable) ||
        !qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS"))
        return;
    const QCoreApplication asking(argc, argv);
    const QPluginLoader theme(QStringLiteral("platformthemes/libq") + portalTheme);
    if (!theme.fileName().isEmpty() && hasPortal())
        qputenv(themeVariable, portalTheme.toLatin1());
}

bool FileChooser::isNative() {
    return QStringList{portalTheme, QStringLiteral("gtk3"), QStringLiteral("kde")}.contains(
        qEnvironmentVariable(themeVariable));
}

QString FileChooser::startFolder() {
    return documentsFolder();
}
