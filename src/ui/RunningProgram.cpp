#include "RunningProgram.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace {

const auto busName = QStringLiteral("example.lantern.Lantern");
const auto objectPath = QStringLiteral("/example/lantern/Lantern");
constexpr int patience = 2000; // milliseconds
/** By which a Wayland compositor knows that the user has asked for the window. */
const char* const activationVariable = "XDG_ACTIVATION_TOKEN";

bool call(const QString& method, QVariantList arguments) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        busName, objectPath, QStringLiteral("org.freedesktop.Application"), method);
    call.setAutoStartService(false);
    arguments.append(QVariantMap{
        {QStringLiteral("activation-token"), qEnvironmentVariable(activationVariable)}});
    call.setArguments(arguments);
    const auto answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patience);
    return answer.type() == QDBusMessage::ReplyMessage;
}

} // namespace

bool RunningProgram::raise() {
    return call(QStringLiteral("Activate"), {});
}

bool RunningProgram::open(const QUrl& file) {
    return call(QStringLiteral("Open"), {QStringList(QString::fromLatin1(file.toEncoded()))});
}

RunningProgram::RunningProgram(QQuickWindow& window, std::function<void(const QUrl&)> openFile)
    : m_window(window)
    , m_openFile(std::move(openFile)) {
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

void RunningProgram::Open(const QStringList& uris, const QVariantMap& platformData) {
    Activate(platformData);
    const QUrl file = uris.isEmpty() ? QUrl() : QUrl(uris.first());
    // Later, since whoever asks waits for the answer, and a file can be long.
    if (file.isLocalFile())
        QMetaObject::invokeMethod(
            this, [this, file] { m_openFile(file); }, Qt::QueuedConnection);
}
