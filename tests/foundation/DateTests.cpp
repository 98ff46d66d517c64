#include "foundation/Date.h"
#include "foundation/Environment.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>

#include <array>
#include <gtest/gtest.h>
#include <map>

using namespace std::chrono_literals;
using std::chrono::sys_days;

namespace {

const QString hyphens = QStringLiteral("yyyy-MM-dd HH:mm:ss");

Environment environment(const char* locale, const char* timeZone) {
    return {.now = [] { return Date(); },
            .locale = QString::fromLatin1(locale),
            .timeZone = QString::fromLatin1(timeZone)};
}

std::optional<Date> read(const char* text, const Environment& place) {
    return parseDatePattern(QString::fromUtf8(text), hyphens, place);
}

const Environment utc = environment("en_US", "UTC");
const Environment berlin = environment("de_DE", "Europe/Berlin");

} // namespace

TEST(Date, IsShownInTheLocaleAndTimeZone) {
    const Date date = sys_days(2021y / 1 / 5) + 23h + 30min;
    EXPECT_EQ(formatDate(date, DateStyle::Medium, utc), QStringLiteral("Jan 5, 2021"));
    EXPECT_EQ(formatDate(date, DateStyle::Long, utc), QStringLiteral("January 5, 2021"));
    EXPECT_EQ(formatDate(date, DateStyle::Medium, berlin), QStringLiteral("06.01.2021"));
    EXPECT_EQ(formatDate(date, DateStyle::Long, environment("th_TH", "UTC")),
              QString::fromUtf8("5 มกราคม 2564"));
    EXPECT_EQ(formatDate(sys_days(1500y / 3 / 1), DateStyle::Medium, utc),
              QStringLiteral("Mar 1, 1500"))
        << "no Julian calendar";
}

TEST(Date, IsReadBackAsTheStartOfItsDay) {
    for (const char* locale : {"en_US", "de_DE", "ar_EG", "ar_SA", "fa_IR", "th_TH",
                               "ja_JP@calendar=japanese", "he_IL"}) {
        // Midnight of 4 November 2018 was skipped in São Paulo.
        const Environment place = environment(locale, "America/Sao_Paulo");
        for (const DateStyle style : {DateStyle::Medium, DateStyle::Long}) {
            SCOPED_TRACE(locale);
            const auto read = [&](Date date) {
                return parseDate(formatDate(date, style, place), style, place);
            };
            EXPECT_EQ(read(sys_days(2018y / 11 / 4) + 12h), Date(sys_days(2018y / 11 / 4) + 3h));
            EXPECT_EQ(read(sys_days(2018y / 11 / 5) + 12h), Date(sys_days(2018y / 11 / 5) + 2h));
            EXPECT_EQ(read(sys_days(1931y / 2 / 28) + 12h), Date(sys_days(1931y / 2 / 28) + 3h));
        }
    }
    // At half past eleven in the evening of 30 March 1919 the clocks of Toronto were put on an
    // hour.
    EXPECT_EQ(parseDate(QStringLiteral("Mar 31, 1919"), DateStyle::Medium,
                        environment("en_US", "America/Toronto")),
              Date(sys_days(1919y / 3 / 31) + 4h + 30min));
    // The clocks of Havana go back from one to midnight.
    EXPECT_EQ(parseDate(QStringLiteral("Nov 1, 2020"), DateStyle::Medium,
                        environment("en_US", "America/Havana")),
              Date(sys_days(2020y / 11 / 1) + 4h));
}

TEST(Date, IsRefusedWhenTheTextIsNotWhollyADate) {
    for (const char* text : {"", "soon", "Jan 5, 2021 x", "Jan 32, 2021", "Feb 29, 2021",
                             "1/5/2021", "5. Januar 2021"})
        EXPECT_FALSE(parseDate(QString::fromLatin1(text), DateStyle::Medium, utc)) << text;
    EXPECT_TRUE(parseDate(QStringLiteral("Feb 29, 2020"), DateStyle::Medium, utc));
    EXPECT_FALSE(parseDate(QStringLiteral("Jan 5, 2021"), DateStyle::Medium, berlin));
}

TEST(DatePattern, ReadsLocalTime) {
    EXPECT_EQ(read("2021-03-07 14:05:09", utc), Date(sys_days(2021y / 3 / 7) + 14h + 5min + 9s));
    EXPECT_EQ(read("2021-07-07 01:00:00", berlin), Date(sys_days(2021y / 7 / 6) + 23h));
    EXPECT_EQ(read("1969-12-31 23:59:59", utc), Date(-1s));
    EXPECT_EQ(read("0987-06-05 00:00:00", utc), Date(sys_days(987y / 6 / 5)));
    EXPECT_EQ(read("2020-02-29 00:00:00", utc), Date(sys_days(2020y / 2 / 29)));
}

TEST(DatePattern, MeansTheGregorianCalendarInEveryLocale) {
    const Date date = sys_days(2021y / 3 / 7) + 14h + 5min + 9s;
    for (const char* locale : {"ar_EG", "fa_IR", "th_TH", "ja_JP@calendar=japanese", "mr_IN"})
        EXPECT_EQ(read("2021-03-07 14:05:09", environment(locale, "UTC")), date) << locale;
    EXPECT_EQ(read("٢٠٢١-٠٣-٠٧ ١٤:٠٥:٠٩", environment("ar_EG", "UTC")), date);
}

TEST(DatePattern, RefusesWhatIsNoRealDayOrNotTheWholeText) {
    for (const char* text :
         {"", "2021-13-07 14:05:09", "2021-02-29 00:00:00", "2021-03-00 00:00:00",
          "2021-03-07 24:00:00", "2021-03-07 14:60:00", "2021-03-07 14:05", "2021-03-07 14:05:09 ",
          "2021-03-07 14:05:09 +0000", "2021.03.07 14:05:09", "0000-01-01 00:00:00",
          "-2021-03-07 14:05:09", "123456789012-01-01 00:00:00"})
        EXPECT_FALSE(read(text, utc)) << text;
    EXPECT_FALSE(parseDatePattern(QString(20'000'000, u'1'), hyphens, utc)) << "and at once";
}

TEST(DatePattern, AcceptsTimesThatDaylightSavingSkipsOrRepeats) {
    EXPECT_EQ(read("2021-03-28 01:59:59", berlin), Date(sys_days(2021y / 3 / 28) + 59min + 59s));
    EXPECT_EQ(read("2021-03-28 02:30:00", berlin), Date(sys_days(2021y / 3 / 28) + 1h + 30min));
    EXPECT_EQ(read("2021-03-28 03:00:00", berlin), Date(sys_days(2021y / 3 / 28) + 1h));
    EXPECT_EQ(read("2021-10-31 02:30:00", berlin), Date(sys_days(2021y / 10 / 31) + 30min));
    EXPECT_EQ(read("2021-10-31 03:00:00", berlin), Date(sys_days(2021y / 10 / 31) + 2h));
}

TEST(WallTime, IsWhatTheClockShowsAndComesBack) {
    const Date summer = sys_days(2021y / 6 / 30) + 22h + 30min + 1ms;
    const WallTime shown{2021, 7, 1, 30min + 1ms};
    EXPECT_EQ(wallTime(summer, berlin), shown);
    EXPECT_EQ(dateFromWallTime(shown, berlin), summer);
    EXPECT_EQ(wallTime(Date(-1ms), utc), (WallTime{1969, 12, 31, 24h - 1ms}));
    EXPECT_EQ(wallTime(sys_days(1500y / 2 / 28) + 24h, utc), (WallTime{1500, 3, 1}));
    for (Date date = sys_days(2021y / 3 / 28); date < sys_days(2021y / 3 / 29); date += 30min)
        EXPECT_EQ(dateFromWallTime(wallTime(date, berlin), berlin), date);
}

TEST(FormatUtc, CutsToTheSecond) {
    EXPECT_EQ(formatUtc(sys_days(2021y / 3 / 7) + 14h + 5min + 9s + 999ms),
              "2021-03-07 14:05:09 +0000");
    EXPECT_EQ(formatUtc(Date(-1ms)), "1969-12-31 23:59:59 +0000");
    EXPECT_EQ(formatUtc(sys_days(45y / 2 / 3)), "0045-02-03 00:00:00 +0000");
    EXPECT_EQ(formatUtc(sys_days(9999y / 12 / 31) + 24h - 1s), "9999-12-31 23:59:59 +0000");
}

TEST(Environment, OfThisDeviceKnowsItsTimeZoneAndLocale) {
    const Environment here = Environment::ofThisDevice();
    const auto clock = std::chrono::system_clock::now();
    EXPECT_LT(std::chrono::abs(clock - here.now()), 1min);
    EXPECT_FALSE(here.locale.isEmpty());
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(1'614'600'000'000);
    const WallTime shown = wallTime(Date(1'614'600'000'000ms), here);
    EXPECT_EQ(shown.timeOfDay.count(), local.time().msecsSinceStartOfDay());
    EXPECT_EQ(here.systemVersion, (SystemVersion{17, 0}));
}

TEST(Environment, TakesZonesFromFilesAndTheLocaleOfDates) {
    const std::array variables{"TZ", "LC_ALL", "LC_TIME", "LANG"};
    std::map<const char*, QByteArray> before;
    for (const char* variable : variables)
        before[variable] = qgetenv(variable);
    const auto zone = [](const QByteArray& setting) {
        qputenv("TZ", setting);
        return Environment::ofThisDevice().timeZone;
    };
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("zone"));
    ASSERT_TRUE(QFile::copy(QStringLiteral("/usr/share/zoneinfo/Asia/Kolkata"), copy));
    EXPECT_EQ(zone("/usr/share/zoneinfo/Europe/Berlin"), "Europe/Berlin");
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("zoneinfo/posix/Pacific")));
    const QString posix = folder.filePath(QStringLiteral("zoneinfo/posix/Pacific/Chatham"));
    ASSERT_TRUE(QFile::copy(copy, posix));
    EXPECT_EQ(zone(':' + posix.toLatin1()), "Pacific/Chatham");
    const Environment kolkata = environment("en", zone(copy.toLatin1()).toLatin1().constData());
    EXPECT_EQ(wallTime(Date(), kolkata).timeOfDay, 5h + 30min);

    const auto locale = [](const char* all, const char* time, const char* language) {
        qputenv("LC_ALL", all);
        qputenv("LC_TIME", time);
        qputenv("LANG", language);
        return Environment::ofThisDevice().locale;
    };
    EXPECT_EQ(locale("", "de_DE.UTF-8", "en_US.UTF-8"), "de_DE");
    EXPECT_EQ(locale("fr_FR", "de_DE.UTF-8", "en_US.UTF-8"), "fr_FR");
    EXPECT_EQ(locale("", "", "nl_NL.UTF-8"), "nl_NL");
    EXPECT_EQ(locale("", "C.UTF-8", "nl_NL.UTF-8"), "en_US_POSIX");
    for (const char* variable : variables)
        before[variable].isEmpty() ? qunsetenv(variable) : qputenv(variable, before[variable]);
}
