#include "Fuzzing.h"
#include "exchange/CollectionFile.h"
#include "foundation/Environment.h"

#include <QStringList>

namespace {

// Day and month in both orders, digits that are not ASCII, calendars other than the Gregorian, and
// clocks that skip hours or whole days.
const QStringList locales{QStringLiteral("en_US"),
                          QStringLiteral("de_DE"),
                          QStringLiteral("ar_EG"),
                          QStringLiteral("th_TH"),
                          QStringLiteral("ja_JP@calendar=japanese"),
                          QStringLiteral("fa_IR")};
const QStringList timeZones{QStringLiteral("UTC"), QStringLiteral("Europe/Berlin"),
                            QStringLiteral("Pacific/Apia"), QStringLiteral("America/Sao_Paulo")};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    if (count < 2)
        return 0;
    const Environment environment{[] { return Date(); }, locales.at(bytes[0] % locales.size()),
                                  timeZones.at(bytes[1] % timeZones.size())};
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(bytes) + 2, qsizetype(count) - 2);
    if (const auto date = readDate(text, environment)) {
        const WallTime time = wallTime(*date, environment);
        require(time.year >= 0 && time.year <= 10000, "a year that an export writes");
        require(time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31,
                "a real day");
        require(dateFromWallTime(time, environment) <= *date, "of a repeated time, the first");
    }
    for (const auto style : {DateStyle::Medium, DateStyle::Long}) {
        // A year of two digits is taken for one of this century or the last.
        const auto day = parseDate(text, style, environment);
        if (day && wallTime(*day, environment).year >= 1000) {
            const QString shown = formatDate(*day, style, environment);
            require(parseDate(shown, style, environment) == day, "what is shown can be read");
        }
    }
    return 0;
}
