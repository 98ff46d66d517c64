#include "MailPortal.h"

#include "Desktop.h"

#include <QDBusArgument>
#include <QDBusUnixFileDescriptor>
#include <QFileInfo>

#include <gtest/gtest.h>

MailPortal::MailPortal(uint answer)
    : m_answer(answer)
    , m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                          QStringLiteral("portal"))) {
    m_bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
                         QDBusConnection::ExportAllSlots);
    EXPECT_TRUE(m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
}

MailPortal::~MailPortal() {
    QDBusConnection::disconnectFromBus(QStringLiteral("portal"));
}

QDBusObjectPath MailPortal::ComposeEmail(const QString& /*parentWindow*/, const QVariantMap& given,
                                         const QDBusMessage& call) {
    options = given;
    for (const auto& descriptor : qdbus_cast<QList<QDBusUnixFileDescriptor>>(
             given.value(QStringLiteral("attachment_fds")))) {
        const QString link = QStringLiteral("/proc/self/fd/%1").arg(descriptor.fileDescriptor());
        attachmentPaths.append(QFileInfo(link).symLinkTarget());
        attachments.append(contents(link).value_or("unreadable"));
    }
    const QString request = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                                .arg(call.service().mid(1).replace(u'.', u'_'),
                                     given.value(QStringLiteral("handle_token")).toString());
    QDBusMessage response = QDBusMessage::createSignal(
        request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
    response.setArguments({m_answer, QVariantMap()});
    m_bus.send(response);
    return QDBusObjectPath(request);
}
