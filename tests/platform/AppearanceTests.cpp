#include "platform/DesktopAppearance.h"
#include "support/Desktop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

#include <gtest/gtest.h>

using Groups = QMap<QString, QVariantMap>;

/** A portal that knows settings, and tells of their changes. */
class SettingsPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit SettingsPortal(const Groups& settings)
        : m_settings(settings)
        , m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                              QStringLiteral("settings portal"))) {
        qDBusRegisterMetaType<Groups>();
        m_bus.registerObject(path, this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        EXPECT_TRUE(m_bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }
    ~SettingsPortal() override {
        QDBusConnection::disconnectFromBus(QStringLiteral("settings portal"));
    }

    void change(const char* group, const char* key, const QVariant& value) {
        Q_EMIT SettingChanged(QLatin1String(group), QLatin1String(key), QDBusVariant(value));
    }

public Q_SLOTS:
    // NOLINTNEXTLINE(readability-identifier-naming): its name on the bus
    Groups ReadAll(const QStringList& groups) {
        Groups asked;
        for (const QString& group : groups) {
            if (m_settings.contains(group))
                asked[group] = m_settings[group];
        }
        return asked;
    }

Q_SIGNALS:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
    Groups m_settings;
    QDBusConnection m_bus;
};

namespace {

TEST(DesktopAppearance, FollowsThePortalFromTheStartOn) {
    SettingsPortal portal(
        {{QStringLiteral("org.freedesktop.appearance"), {{QStringLiteral("color-scheme"), 1u}}},
         {QStringLiteral("org.gnome.desktop.interface"),
          {{QStringLiteral("text-scaling-factor"), 1.25},
           {QStringLiteral("font-name"), QStringLiteral("Cantarell 13.2")}}}});
    Appearance appearance;
    const DesktopAppearance followed(appearance, {});
    EXPECT_FALSE(appearance.dark);
    ASSERT_TRUE(waitFor([&] { return appearance.dark; }));
    EXPECT_NEAR(appearance.textScale, 1.5, 0.001);
    EXPECT_FALSE(appearance.highContrast);
    EXPECT_FALSE(appearance.reducedMotion);

    portal.change("org.freedesktop.appearance", "contrast", 1u);
    portal.change("org.freedesktop.appearance", "color-scheme", 2u);
    portal.change("org.gnome.desktop.interface", "enable-animations", false);
    portal.change("org.gnome.desktop.interface", "text-scaling-factor", -7.0);
    ASSERT_TRUE(waitFor([&] { return appearance.textScale == 1; }));
    EXPECT_TRUE(appearance.highContrast);
    EXPECT_FALSE(appearance.dark);
    EXPECT_TRUE(appearance.reducedMotion);
}

TEST(DesktopAppearance, TakesWhatWasToldBeforeTheStart) {
    Appearance appearance;
    const DesktopAppearance followed(
        appearance,
        {{QStringLiteral("org.kde.kdeglobals.General font"), QStringLiteral("Noto Sans,15,-1,5")},
         {QStringLiteral("org.kde.kdeglobals.KDE AnimationDurationFactor"), QStringLiteral("0")}});
    EXPECT_NEAR(appearance.textScale, 1.5, 0.001);
    EXPECT_TRUE(appearance.reducedMotion);
}

} // namespace

#include "AppearanceTests.moc"
