#include "foundation/Environment.h"

#include <QTimeZone>

#include <unicode/locid.h>

Environment Environment::ofThisDevice() {
    return {
        .now = [] { return std::chrono::floor<Date::duration>(std::chrono::system_clock::now()); },
        .locale = QString::fromLatin1(icu::Locale::getDefault().getName()),
        .timeZone = QString::fromLatin1(QTimeZone::systemTimeZoneId())};
}
