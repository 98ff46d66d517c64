#include "Announcer.h"

#include <QAccessible>

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#endif

void Announcer::focus(QQuickItem* item) {
    QAccessibleEvent event(item, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

bool Announcer::isHeard() {
    return QAccessible::isActive();
}

void Announcer::say(QQuickItem* item, const QString& text) {
    if (!QAccessible::isActive() || !item || text.isEmpty())
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent announcement(item, text);
    QAccessible::updateAccessibility(&announcement);
#else
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(item);
    // Qt's own connection to the accessibility bus, which knows no announcements before 6.8.
    QDBusConnection bus(QStringLiteral("a11y"));
    if (!interface || !bus.isConnected())
        return;
    auto signal = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(interface)),
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
    constexpr int polite = 1; // of AT-SPI's degrees
    signal.setArguments(
        {QString(), polite, 0, QVariant::fromValue(QDBusVariant(text)), QVariantMap()});
    bus.send(signal);
#endif
}
