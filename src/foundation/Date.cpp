#include "foundation/Date.h"

#include "foundation/Environment.h"

#include <array>
#include <cstdio>
#include <map>
#include <memory>
#include <unicode/basictz.h>
#include <unicode/dtptngen.h>
#include <unicode/gregocal.h>
#include <unicode/smpdtfmt.h>
#include <unicode/tztrans.h>
#include <utility>

namespace {

using std::chrono::milliseconds;

/** A time on the wall, counted in milliseconds since 1970-01-01 00:00 of the wall's own clock. */
using LocalTime = std::chrono::local_time<milliseconds>;

icu::UnicodeString toIcu(const QString& text) {
    return {QStringView(text).utf16(), int32_t(text.size())};
}

const icu::BasicTimeZone& timeZone(const QString& identifier) {
    thread_local std::map<QString, std::unique_ptr<icu::BasicTimeZone>> zones;
    std::unique_ptr<icu::BasicTimeZone>& zone = zones[identifier];
    if (!zone) {
        std::unique_ptr<icu::TimeZone> made(icu::TimeZone::createTimeZone(toIcu(identifier)));
        // Every zone that ICU makes from an identifier is a BasicTimeZone.
        zone.reset(dynamic_cast<icu::BasicTimeZone*>(made.release()));
    }
    return *zone;
}

LocalTime toLocalTime(Date date, const icu::BasicTimeZone& zone) {
    int32_t standardOffset = 0;
    int32_t daylightOffset = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone.getOffset(double(date.time_since_epoch().count()), false, standardOffset, daylightOffset,
                   status);
    return LocalTime(date.time_since_epoch() + milliseconds(standardOffset + daylightOffset));
}

Date toDate(LocalTime time, const icu::BasicTimeZone& zone) {
    int32_t standardOffset = 0;
    int32_t daylightOffset = 0;
    UErrorCode status = U_ZERO_ERROR;
    zone.getOffsetFromLocal(double(time.time_since_epoch().count()), UCAL_TZ_LOCAL_FORMER,
                            UCAL_TZ_LOCAL_FORMER, standardOffset, daylightOffset, status);
    return Date(time.time_since_epoch() - milliseconds(standardOffset + daylightOffset));
}

/** The first moment of a day whose midnight is given, which daylight saving may skip. */
Date startOfDay(LocalTime midnight, const icu::BasicTimeZone& zone) {
    const Date date = toDate(midnight, zone);
    icu::TimeZoneTransition change;
    if (toLocalTime(date, zone) != midnight &&
        zone.getPreviousTransition(double(date.time_since_epoch().count()), true, change))
        return Date(milliseconds(int64_t(change.getTime())));
    return date;
}

// All formatters read and write wall times as if they were UTC: the time zone is applied apart
// from them, so that a strict parse does not refuse the times that daylight saving skips.
std::unique_ptr<icu::DateFormat> prepared(std::unique_ptr<icu::DateFormat> format) {
    format->setTimeZone(*icu::TimeZone::getGMT());
    format->setLenient(false);
    // WallTime knows no Julian calendar, so neither do the formatters.
    if (auto* calendar = dynamic_cast<const icu::GregorianCalendar*>(format->getCalendar())) {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::GregorianCalendar> proleptic(calendar->clone());
        proleptic->setGregorianChange(-1e15, status);
        format->adoptCalendar(proleptic.release());
    }
    return format;
}

const icu::DateFormat& styleFormat(DateStyle style, const QString& locale) {
    thread_local std::map<std::pair<QString, DateStyle>, std::unique_ptr<icu::DateFormat>> formats;
    std::unique_ptr<icu::DateFormat>& format = formats[{locale, style}];
    if (!format) {
        format = prepared(std::unique_ptr<icu::DateFormat>(icu::DateFormat::createDateInstance(
            style == DateStyle::Medium ? icu::DateFormat::kMedium : icu::DateFormat::kLong,
            icu::Locale(locale.toLatin1().constData()))));
    }
    return *format;
}

const icu::DateFormat& patternFormat(const QString& pattern, const QString& locale) {
    thread_local std::map<std::pair<QString, QString>, std::unique_ptr<icu::DateFormat>> formats;
    std::unique_ptr<icu::DateFormat>& format = formats[{locale, pattern}];
    if (!format) {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale gregorian(locale.toLatin1().constData());
        gregorian.setKeywordValue("calendar", "gregorian", status);
        format =
            prepared(std::make_unique<icu::SimpleDateFormat>(toIcu(pattern), gregorian, status));
        format->setBooleanAttribute(UDAT_PARSE_PARTIAL_LITERAL_MATCH, false, status);
        format->setBooleanAttribute(UDAT_PARSE_MULTIPLE_PATTERNS_FOR_MATCH, false, status);
    }
    return *format;
}

QString toQt(const icu::UnicodeString& text) {
    return QString::fromUtf16(text.getBuffer(), text.length());
}

QString format(LocalTime time, const icu::DateFormat& format) {
    icu::UnicodeString text;
    format.format(double(time.time_since_epoch().count()), text);
    return toQt(text);
}

/** The pattern of a locale for parts of a date. */
const QString& patternOfParts(const QString& parts, const QString& locale) {
    thread_local std::map<std::pair<QString, QString>, QString> patterns;
    QString& pattern = patterns[{locale, parts}];
    if (pattern.isEmpty()) {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale gregorian(locale.toLatin1().constData());
        gregorian.setKeywordValue("calendar", "gregorian", status);
        const std::unique_ptr<icu::DateTimePatternGenerator> generator(
            icu::DateTimePatternGenerator::createInstance(gregorian, status));
        pattern = toQt(generator->getBestPattern(toIcu(parts), status));
    }
    return pattern;
}

LocalTime midnightOf(const WallTime& day) {
    return std::chrono::local_days(std::chrono::year_month_day{
        std::chrono::year(day.year), std::chrono::month(unsigned(day.month)),
        std::chrono::day(unsigned(day.day))});
}

std::optional<LocalTime> parse(const QString& text, const icu::DateFormat& format) {
    using namespace std::chrono_literals;
    constexpr LocalTime beginning = std::chrono::local_days(1y / 1 / 1);
    constexpr LocalTime end = std::chrono::local_days(10000y / 1 / 1);

    // ICU takes minutes over millions of digits.
    constexpr qsizetype longestText = 200;
    if (text.size() > longestText)
        return std::nullopt;
    icu::ParsePosition position;
    const UDate parsed = format.parse(toIcu(text), position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != text.size())
        return std::nullopt;
    const LocalTime time{milliseconds(int64_t(parsed))};
    if (time < beginning || time >= end)
        return std::nullopt;
    return time;
}

/** A number in ASCII digits; -1 for anything else. */
int number(QStringView digits) {
    int value = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return -1;
        value = 10 * value + (digit.unicode() - u'0');
    }
    return value;
}

} // namespace

QString formatDate(Date date, DateStyle style, const Environment& environment) {
    const LocalTime time = toLocalTime(date, timeZone(environment.timeZone));
    return format(time, styleFormat(style, environment.locale));
}

QString formatUtc(Date date) {
    const auto midnight = std::chrono::floor<std::chrono::days>(date);
    const std::chrono::year_month_day day(midnight);
    const std::chrono::hh_mm_ss time(std::chrono::floor<std::chrono::seconds>(date - midnight));
    // A printf takes many times as long, and an export writes many dates.
    QString text = QStringLiteral("0000-00-00 00:00:00 +0000");
    const auto write = [digits = text.data()](int place, unsigned number) {
        digits[place] = QChar(u'0' + number / 10 % 10);
        digits[place + 1] = QChar(u'0' + number % 10);
    };
    const int year(day.year());
    write(0, unsigned(year) / 100);
    write(2, unsigned(year));
    write(5, unsigned(day.month()));
    write(8, unsigned(day.day()));
    write(11, unsigned(time.hours().count()));
    write(14, unsigned(time.minutes().count()));
    write(17, unsigned(time.seconds().count()));
    return year >= 0 && year <= 9999 ? text : text.replace(0, 4, QString::asprintf("%04d", year));
}

std::optional<WallTime> readPlainDate(QStringView text) {
    using namespace std::chrono;
    if (text.endsWith(utcOffset))
        text.chop(utcOffset.size());
    constexpr qsizetype afterYear = 15;
    const qsizetype yearLength = text.size() - afterYear;
    if (yearLength < 4 || yearLength > 5)
        return std::nullopt;
    const QStringView yearText = text.first(yearLength);
    text = text.sliced(yearLength);
    if ((text[0] != u'-' && text[0] != u'.') || text[3] != text[0] || text[6] != u' ' ||
        text[9] != u':' || text[12] != u':')
        return std::nullopt;
    // What is local time in the years 1 to 9999 may be in the one before or after in UTC.
    const int year = number(yearText);
    const int month = number(text.sliced(1, 2));
    const int day = number(text.sliced(4, 2));
    const int hour = number(text.sliced(7, 2));
    const int minute = number(text.sliced(10, 2));
    const int second = number(text.sliced(13, 2));
    const bool isReal = year >= 0 && year <= 10000 && month > 0 && day > 0 &&
                        year_month_day(std::chrono::year(year), std::chrono::month(unsigned(month)),
                                       std::chrono::day(unsigned(day)))
                            .ok() &&
                        hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
                        second < 60;
    if (!isReal)
        return std::nullopt;
    return WallTime{year, month, day, hours(hour) + minutes(minute) + seconds(second)};
}

std::optional<Date> parseDate(const QString& text, DateStyle style,
                              const Environment& environment) {
    const auto midnight = parse(text, styleFormat(style, environment.locale));
    if (!midnight)
        return std::nullopt;
    return startOfDay(*midnight, timeZone(environment.timeZone));
}

std::optional<Date> parseDatePattern(const QString& text, const QString& pattern,
                                     const Environment& environment) {
    const auto time = parse(text, patternFormat(pattern, environment.locale));
    if (!time)
        return std::nullopt;
    return toDate(*time, timeZone(environment.timeZone));
}

WallTime wallTime(Date date, const Environment& environment) {
    const LocalTime time = toLocalTime(date, timeZone(environment.timeZone));
    const auto midnight = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day day(midnight);
    return {int(day.year()), int(unsigned(day.month())), int(unsigned(day.day())), time - midnight};
}

QString formatParts(const WallTime& day, const QString& parts, const Environment& environment) {
    return format(midnightOf(day),
                  patternFormat(patternOfParts(parts, environment.locale), environment.locale));
}

QString formatNumber(int number, const Environment& environment) {
    icu::UnicodeString text;
    styleFormat(DateStyle::Long, environment.locale)
        .getNumberFormat()
        ->format(int32_t(number), text);
    return toQt(text);
}

QString orderOfDate(const Environment& environment) {
    QString order;
    const QString pattern = patternOfParts(QStringLiteral("yMMMMd"), environment.locale);
    for (const QChar letter : pattern) {
        const QChar part = letter == u'L' ? QChar(u'M') : letter;
        if (QStringLiteral("yMd").contains(part) && !order.contains(part))
            order += part;
    }
    return order.size() == 3 ? order : QStringLiteral("yMd");
}

Date dateFromWallTime(const WallTime& time, const Environment& environment) {
    return toDate(midnightOf(time) + time.timeOfDay, timeZone(environment.timeZone));
}
