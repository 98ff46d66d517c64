#include "RunningProgram.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace {

const auto busName = QStringLiteral("example.lantern.Lantern");
const auto objectPath = QStringLiteral("/example/lantern/Lantern");
constexpr int patience = 2000; // milliseconds
/** By which a Wayland compositor knows that the user has asked for the window. */
const char* const activationVariable = "XDG_ACTIVATION_TOKEN";

} // namespace

bool RunningProgram::raise() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        busName, objectPath, QStringLiteral("org.freedesktop.Application"),
        QStringLiteral("Activate"));
    call.setAutoStartService(false);
    call.setArguments({QVariantMap{
        {QStringLiteral("activation-token"), qEnvironmentVariable(activationVariable)}}});
    const auto answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage;
}

RunningProgram::RunningProgram(QQuickWindow& window)
    : m_window(window) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerObject(objectPath, this,
                       QDBusConnection::ExportScriptableSlots |
                           QDBusConnection::ExportScriptableInvokables);
    bus.registerService(busName);
}

void RunningProgram::Activate(const QVariantMap& platformData) {
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty())
        qputenv(activationVariable, token.toUtf8());
    if (m_window.windowStates().testFlag(Qt::WindowMinimized))
        m_window.setWindowStates(m_window.windowStates() & ~Qt::WindowMinimized);
    m_window.show();
    m_window.raise();
    m_window.requestActivate();
}
