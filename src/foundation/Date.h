#pragma once

#include <QString>

#include <chrono>
#include <optional>

struct Environment;

/** A moment in time, in milliseconds since 1970-01-01 00:00 UTC. */
using Date = std::chrono::sys_time<std::chrono::milliseconds>;

/** The two lengths in which dates are shown, such as "Jan 5, 2021" and "January 5, 2021". */
enum class DateStyle { Medium, Long };

/** The day of a moment, without time, in the environment's locale and time zone. */
QString formatDate(Date date, DateStyle style, const Environment& environment);

/** A moment in UTC to the second, whatever the place and language: "2021-03-07 14:05:09 +0000". */
QString formatUtc(Date date);

/** What stands at the end of such a moment. */
inline constexpr QStringView utcOffset = u" +0000";

/** A day of the Gregorian calendar and a time of day, as a clock on the wall shows them. */
struct WallTime {
    int year = 1970;
    int month = 1; ///< 1 to 12
    int day = 1;
    std::chrono::milliseconds timeOfDay{0};

    bool operator==(const WallTime&) const = default;
};

/** A time as formatUtc writes it, with or without its offset, with hyphens or dots, and exactly so;
 * nothing for what needs a closer look. */
std::optional<WallTime> readPlainDate(QStringView text);

/** The moment at which the shown day starts in the environment's time zone; nothing when the
 * text is not wholly a date of that style and locale. A month's name may be long or short. */
std::optional<Date> parseDate(const QString& text, DateStyle style, const Environment& environment);

/**
 * Reads a wall-clock time by an ICU date pattern (Unicode TR 35), such as "yyyy.MM.dd HH:mm:ss",
 * in the environment's time zone and with its locale's digits, in the Gregorian calendar. The
 * whole text must match (blanks before a number are passed over) and name a real day and time of
 * the years 1 to 9999. A time that daylight saving skips is read with the offset from before the
 * change; of a time that it repeats, the first is meant.
 */
std::optional<Date> parseDatePattern(const QString& text, const QString& pattern,
                                     const Environment& environment);

WallTime wallTime(Date date, const Environment& environment);

/** Parts of a day of the Gregorian calendar, such as "yMMMM" for month and year (a skeleton of
 * Unicode TR 35), in the order, words and digits of the environment's locale. */
QString formatParts(const WallTime& day, const QString& parts, const Environment& environment);

/** A number in the digits that dates have in the environment's locale. */
QString formatNumber(int number, const Environment& environment);

/** The order in which dates have year, month and day in the environment's locale: "Mdy", say. */
QString orderOfDate(const Environment& environment);

/** Skipped and repeated times as in parseDatePattern. */
Date dateFromWallTime(const WallTime& time, const Environment& environment);
