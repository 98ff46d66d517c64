#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

/** The mail portal of a desktop: what it was asked for, and how it answers. */
class MailPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Email")

public:
    explicit MailPortal(uint answer);
    ~MailPortal() override;

    QVariantMap options;
    QStringList attachmentPaths;
    QList<QByteArray> attachments;

public Q_SLOTS:
    QDBusObjectPath ComposeEmail(const QString& parentWindow, const QVariantMap& given,
                                 const QDBusMessage& call);

private:
    uint m_answer;
    QDBusConnection m_bus;
};
