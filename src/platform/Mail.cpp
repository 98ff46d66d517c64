#include "Mail.h"

#include "platform/Markup.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QUuid>

namespace {

/** How the portal's Request tells that the user cancelled it, and that it failed otherwise. */
constexpr uint responseCancelled = 1;
constexpr uint responseFailed = 2;

QString plainBody(const MailMessage& message) {
    return message.isHtml ? textOfMarkup(message.body) : message.body;
}

QVariant openFiles(const QStringList& paths) {
    QList<QDBusUnixFileDescriptor> descriptors;
    for (const QString& path : paths) {
        QFile file(path);
        if (file.open(QFile::ReadOnly))
            descriptors.append(QDBusUnixFileDescriptor(file.handle()));
    }
    return QVariant::fromValue(descriptors);
}

} // namespace

QUrl mailtoAddress(const MailMessage& message) {
    const auto encoded = [](const QString& text) {
        return QString::fromLatin1(QUrl::toPercentEncoding(text));
    };
    QStringList recipients;
    for (const QString& recipient : message.recipients)
        recipients.append(QString::fromLatin1(QUrl::toPercentEncoding(recipient, "@")));
    QStringList fields;
    if (!message.subject.isEmpty())
        fields.append(QStringLiteral("subject=") + encoded(message.subject));
    const QString body = plainBody(message);
    if (!body.isEmpty())
        fields.append(QStringLiteral("body=") +
                      encoded(body).replace(QStringLiteral("%0A"), QStringLiteral("%0D%0A")));
    QString address = QStringLiteral("mailto:") + recipients.join(u',');
    if (!fields.isEmpty())
        address += u'?' + fields.join(u'&');
    return {address, QUrl::StrictMode};
}

PortalMail::PortalMail(const MailMessage& message, const QStringList& attachments, Answer answer,
                       std::function<void()> fallback, QObject* parent, const QDBusConnection& bus)
    : QObject(parent)
    , m_answer(std::move(answer))
    , m_fallback(std::move(fallback)) {
    qDBusRegisterMetaType<QList<QDBusUnixFileDescriptor>>();
    QVariantMap options{{QStringLiteral("subject"), message.subject},
                        {QStringLiteral("body"), plainBody(message)}};
    // Older portals know a single address only.
    if (message.recipients.size() == 1)
        options.insert(QStringLiteral("address"), message.recipients.constFirst());
    else if (!message.recipients.isEmpty())
        options.insert(QStringLiteral("addresses"), message.recipients);
    if (!attachments.isEmpty())
        options.insert(QStringLiteral("attachment_fds"), openFiles(attachments));
    compose(bus, options);
}

void PortalMail::compose(QDBusConnection bus, const QVariantMap& options) {
    if (!bus.isConnected()) {
        // A call would never be answered, not even with an error.
        QMetaObject::invokeMethod(this, &PortalMail::fallBack, Qt::QueuedConnection);
        return;
    }
    const QString token = QUuid::createUuid().toString(QUuid::Id128);
    // The answer may come before the reply that names its object, whose path is known already.
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    bus.connect(QString(),
                QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token),
                QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"), this,
                SLOT(answered(uint, QVariantMap)));

    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Email"), QStringLiteral("ComposeEmail"));
    QVariantMap withToken = options;
    withToken.insert(QStringLiteral("handle_token"), token);
    call.setArguments({QString(), withToken});
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        if (watcher->isError())
            fallBack();
    });
}

void PortalMail::answered(uint response, const QVariantMap& /*results*/) {
    if (response == responseFailed) {
        fallBack();
        return;
    }
    m_answer({response == responseCancelled ? Outcome::Cancelled : Outcome::Done});
    deleteLater();
}

void PortalMail::fallBack() {
    if (const auto fallback = std::exchange(m_fallback, nullptr))
        fallback();
    deleteLater();
}
