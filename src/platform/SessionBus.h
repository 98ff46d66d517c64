#pragma once

#include <QHash>
#include <QVariant>

#include <array>

/** What the user has set on the desktop, by group and name with a blank between them. */
using DesktopSettings = QHash<QString, QVariant>;

/** The groups of settings that say how programs look. */
inline constexpr std::array appearanceGroups{
    QLatin1String("org.freedesktop.appearance"), QLatin1String("org.gnome.desktop.interface"),
    QLatin1String("org.gnome.desktop.a11y.interface"), QLatin1String("org.kde.kdeglobals.General"),
    QLatin1String("org.kde.kdeglobals.KDE")};

/**
 * Settles what Qt would wait for: a session bus that takes a connection and then says nothing is
 * done without, and the portal's file chooser is used where it answers at once, unless the user has
 * chosen a platform theme. Answers how programs look on this desktop, as far as it is told in time.
 * To be called before there is an application.
 */
DesktopSettings askSessionBus();
