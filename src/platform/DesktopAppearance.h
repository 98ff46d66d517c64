#pragma once

#include "platform/SessionBus.h"
#include "toolkit/Appearance.h"

#include <QDBusVariant>

/** Has an appearance follow what the user has set on this desktop, as its portal tells. */
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    /** Where nothing was told in time before the start, the portal is asked again. */
    DesktopAppearance(Appearance& appearance, DesktopSettings settings);

private:
    void askAgain();
    void follow();
    Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

    Appearance& m_appearance;
    DesktopSettings m_settings;
};
