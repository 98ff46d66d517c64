#include "DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QRegularExpression>

#include <algorithm>

namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString portalInterface = QStringLiteral("org.freedesktop.portal.Settings");

using Groups = QMap<QString, QVariantMap>;

/** The size at the end of "Cantarell 11", or in second place of "Noto Sans,10,-1,5,…", over the
 * usual one; 1 where there is none. */
double relativeFontSize(const QString& font, const char* pattern, double usualSize) {
    const auto match = QRegularExpression(QLatin1String(pattern)).match(font);
    return match.hasMatch() ? match.captured(1).toDouble() / usualSize : 1;
}

double textScale(const DesktopSettings& settings) {
    const QString gnome =
        settings.value(QStringLiteral("org.gnome.desktop.interface font-name")).toString();
    const QString kde =
        settings.value(QStringLiteral("org.kde.kdeglobals.General font")).toString();
    const double factor =
        settings.value(QStringLiteral("org.gnome.desktop.interface text-scaling-factor"), 1)
            .toDouble() *
        (kde.isEmpty() ? relativeFontSize(gnome, "([0-9.]+)$", 11)
                       : relativeFontSize(kde, "^[^,]*,([0-9.]+)", 10));
    return factor > 0 ? std::clamp(factor, 0.5, 3.0) : 1;
}

} // namespace

DesktopAppearance::DesktopAppearance(Appearance& appearance, DesktopSettings settings)
    : m_appearance(appearance)
    , m_settings(std::move(settings)) {
    qRegisterMetaType<QDBusVariant>(); // as whose name a slot may have it, which Qt does later
    // From whichever service: to ask which one it is would wait for the bus.
    QDBusConnection::sessionBus().connect({}, portalPath, portalInterface,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(settingChanged(QString, QString, QDBusVariant)));
    if (m_settings.isEmpty())
        askAgain();
    follow();
}

void DesktopAppearance::askAgain() {
    qDBusRegisterMetaType<Groups>();
    auto question =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"), portalPath,
                                       portalInterface, QStringLiteral("ReadAll"));
    question << QStringList(appearanceGroups.begin(), appearanceGroups.end());
    auto* answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<Groups> reply = *answer;
        answer->deleteLater();
        if (reply.isError())
            return;
        const Groups groups = reply.value();
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            for (auto setting = group->begin(); setting != group->end(); ++setting)
                m_settings[group.key() + u' ' + setting.key()] = *setting;
        }
        follow();
    });
}

void DesktopAppearance::settingChanged(const QString& group, const QString& key,
                                       const QDBusVariant& value) {
    m_settings[group + u' ' + key] = value.variant();
    follow();
}

void DesktopAppearance::follow() {
    const auto setting = [this](const char* name, const QVariant& unset = {}) {
        return m_settings.value(QLatin1String(name), unset);
    };
    m_appearance.dark = setting("org.freedesktop.appearance color-scheme").toUInt() == 1;
    m_appearance.highContrast = setting("org.freedesktop.appearance contrast").toUInt() == 1 ||
                                setting("org.gnome.desktop.a11y.interface high-contrast").toBool();
    m_appearance.reducedMotion =
        setting("org.freedesktop.appearance reduced-motion").toUInt() == 1 ||
        !setting("org.gnome.desktop.interface enable-animations", true).toBool() ||
        setting("org.kde.kdeglobals.KDE AnimationDurationFactor", 1).toDouble() == 0;
    m_appearance.textScale = textScale(m_settings);
    Q_EMIT m_appearance.changed();
}
