#pragma once

#include "foundation/Date.h"

#include <QString>

#include <compare>
#include <functional>

/** A version of the system as it reports itself, such as 13.2. */
struct SystemVersion {
    int major = 0;
    int minor = 0;

    auto operator<=>(const SystemVersion&) const = default;
};

/** What the device tells of itself: its clock, language, place and system. */
struct Environment {
    std::function<Date()> now;
    QString locale;   ///< of dates: an ICU identifier, such as "en_US"
    QString timeZone; ///< IANA time zone identifier, such as "Europe/Berlin"
    SystemVersion systemVersion{17, 0};

    static Environment ofThisDevice();
};
