#pragma once

#include "platform/Platform.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include <functional>

/** A message as a mailto: address, without its attachments. */
QUrl mailtoAddress(const MailMessage& message);

/**
 * Asks the desktop portal for a mail composer. Deletes itself when the portal has answered; when
 * there is no portal, or it has no mail program, the fallback runs in place of the answer.
 */
class PortalMail : public QObject {
    Q_OBJECT

public:
    /** The attachments are given by the paths of their files. */
    PortalMail(const MailMessage& message, const QStringList& attachments, Answer answer,
               std::function<void()> fallback, QObject* parent,
               const QDBusConnection& bus = QDBusConnection::sessionBus());

private:
    Q_SLOT void answered(uint response, const QVariantMap& results);
    void compose(QDBusConnection bus, const QVariantMap& options);
    void fallBack();

    Answer m_answer;
    std::function<void()> m_fallback;
};
