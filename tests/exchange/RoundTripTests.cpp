#include "exchange/ExportViewController.h"
#include "exchange/ImportViewController.h"
#include "support/TestApplication.h"
#include "toolkit/DocumentPickerViewController.h"

#include <QDateTime>
#include <QFile>
#include <QTimeZone>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using std::chrono::sys_days;

namespace {

/** The file that the export screen hands over. */
QByteArray exported(TestApplication& application) {
    ExportViewController screen(application.delegate);
    screen.viewDidLoad();
    screen.ExportButton->press();
    screen.SaveButton->press();
    QFile file(application.folder.filePath(QStringLiteral("temporary/QuoteCollection.csv")));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    application.mainQueue.waiting.clear();
    return file.readAll();
}

void import(TestApplication& application, const QByteArray& content) {
    const QString path = application.folder.filePath(QStringLiteral("import.csv"));
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(content);
    file.close();
    ImportViewController screen(application.delegate);
    screen.viewDidLoad();
    screen.didPickDocumentAtURL(QUrl::fromLocalFile(path));
    screen.ImportButton->press();
    application.finishLongWork();
}

/** Every quote in store order, absent attributes told apart from empty ones. */
std::vector<std::optional<QString>> textsOf(TestApplication& application) {
    std::vector<std::optional<QString>> texts;
    for (const Event* quote : application.all<Event>()) {
        for (const auto& text :
             {quote->author(), quote->category(), quote->source(), quote->quote()})
            texts.push_back(text);
    }
    return texts;
}

std::vector<std::optional<Date>> datesOf(TestApplication& application) {
    std::vector<std::optional<Date>> dates;
    for (const Event* quote : application.all<Event>())
        dates.push_back(quote->timestamp());
    return dates;
}

QStringList topicsOf(TestApplication& application) {
    return application.names<Topics>(&Topics::topic);
}

/** What remains of a moment of which the digits in UTC are read as local time. */
Date readAsLocal(Date date, const QString& zone) {
    const QDateTime digits =
        QDateTime::fromMSecsSinceEpoch(date.time_since_epoch().count(), QTimeZone::utc());
    const QDateTime local(digits.date(), digits.time(), QTimeZone(zone.toLatin1()));
    return Date(std::chrono::milliseconds(local.toMSecsSinceEpoch()));
}

class RoundTrip : public testing::TestWithParam<const char*> {};

TEST_P(RoundTrip, KeepsEveryTextAndMovesDatesByTheOffset) {
    const QString zone = QLatin1String(GetParam());
    TestApplication first;
    TestApplication second;
    TestApplication third;
    for (TestApplication* application : {&first, &second, &third})
        application->environment.timeZone = zone;
    // In the order of an export, which is that of the store after an import.
    const Date winter = sys_days(2021y / 1 / 15) + 12h + 34min + 56s;
    const Date summer = sys_days(2021y / 7 / 15) + 23h + 59min + 59s;
    first.addQuote({"A", "T", "S", "one\n\n two \n", winter});
    first.addQuote({"A", "T", "[TOPICCOLLECTION]", "\t @# \"quoted\", \\n ; = ", summer});
    first.addQuote({"A", "[QUOTECOLLECTION]", "S", "\u2028\u0085\v\f \x01", winter + 12h});
    first.addQuote({"e\u0301", "T", "S", "decomposed e\u0301"}); // no date
    first.addQuote({"\u00e9", "T", "S", "composed \u00e9", sys_days(1950y / 6 / 1) + 1s});
    first.addQuote({"Лев", "學而", "سلام", "naïve 한국어 ไทย", sys_days(2037y / 12 / 31) + 5h});
    first.addQuote({"\ufeff\uffff", "T", "S", "\u200d\ufffd", summer + 24h});
    for (const char* plane :
         {"\U00010000", "\U0001fffd", "\U00020000", "\U000e0001", "\U000f0000", "\U0010fffd"})
        first.addQuote({plane, "T", "S", plane, winter});
    for (const char* topic : {"It's", "O'Brien", "e\u0301", "\u00e9", "\U0010fffd"})
        first.context().insert<Topics>()->setTopic(QString::fromUtf8(topic));

    const QByteArray file = exported(first);
    import(second, file);
    EXPECT_EQ(textsOf(second), textsOf(first));
    EXPECT_EQ(topicsOf(second), topicsOf(first));
    std::vector<std::optional<Date>> moved = datesOf(first);
    for (auto& date : moved) {
        if (date)
            date = readAsLocal(*date, zone);
    }
    EXPECT_EQ(datesOf(second), moved);

    const QByteArray again = exported(second);
    EXPECT_EQ(again == file, zone == QLatin1String("UTC"));
    import(third, again);
    EXPECT_EQ(textsOf(third), textsOf(first)) << "a second trip changes dates alone";
    for (auto& date : moved) {
        if (date)
            date = readAsLocal(*date, zone);
    }
    EXPECT_EQ(datesOf(third), moved);
}

INSTANTIATE_TEST_SUITE_P(Zones, RoundTrip,
                         testing::Values("UTC", "America/New_York", "America/St_Johns",
                                         "Europe/Berlin", "Asia/Kolkata", "Australia/Lord_Howe",
                                         "Pacific/Kiritimati", "Pacific/Pago_Pago"));

TEST(RoundTripOfDates, AtTheEdgesOfDaylightSavingAndOfTheYears) {
    struct Trip {
        Date before;
        Date after;
    };
    const auto noon = 12h;
    const std::vector<Trip> trips{
        {sys_days(2021y / 3 / 14) + 1h + 59min, sys_days(2021y / 3 / 14) + 6h + 59min},
        // Skipped by the clock: the offset from before the change.
        {sys_days(2021y / 3 / 14) + 2h + 30min, sys_days(2021y / 3 / 14) + 7h + 30min},
        {sys_days(2021y / 3 / 14) + 3h, sys_days(2021y / 3 / 14) + 7h},
        // Shown twice by the clock: the first time is meant.
        {sys_days(2021y / 11 / 7) + 1h + 30min, sys_days(2021y / 11 / 7) + 5h + 30min},
        {sys_days(2021y / 11 / 7) + 2h, sys_days(2021y / 11 / 7) + 7h},
        // Seconds are all that the file has.
        {sys_days(2021y / 1 / 1) + noon + 999ms, sys_days(2021y / 1 / 1) + noon + 5h},
        {sys_days(1900y / 2 / 28) + noon, sys_days(1900y / 2 / 28) + noon + 5h},
        {sys_days(9998y / 1 / 1) + noon, sys_days(9998y / 1 / 1) + noon + 5h}};
    TestApplication first;
    TestApplication second;
    second.environment.timeZone = QStringLiteral("America/New_York");
    std::vector<std::optional<Date>> expected;
    for (std::size_t i = 0; i < trips.size(); ++i) {
        first.addQuote({QByteArray::number(int(i)).constData(), "T", "S", "q", trips[i].before});
        expected.emplace_back(trips[i].after);
    }
    import(second, exported(first));
    EXPECT_EQ(datesOf(second), expected);
}

TEST(RoundTripLosses, AreTheseAndNoOthers) {
    TestApplication first;
    first.addQuote({nullptr, "T", "S", "absent author"});
    first.addQuote({"", "T", "S", "empty author"});
    first.addQuote({"A", nullptr, "S", "left out: no topic"});
    first.addQuote({"A", "", "S", "left out: empty topic"});
    first.addQuote({"B", "T", "S", "collapses"});
    first.addQuote({"B", "T", "S", "into the last, whose text wins"});
    first.addQuote({"B", "T", "S"});
    first.addQuote({"C", "T", "", "empty source"});
    first.addQuote({"D", "T", "S", "a return\rsplits"});
    first.addQuote({"E", "T", "S", "a return\rF^U^V^^may begin a quote"});
    first.addQuote({"G", "T", "S", "cut off at the caret^here"});
    first.addQuote({"H", "T", "S", "@#@ becomes a line feed, @@#@#@ one within"});
    first.addQuote({"I", "T^U", "S", "a caret moves fields: this and the source are lost"});
    first.addQuote({"O'J", "it's", "'S'", "'tis"});
    first.addQuote({"K", "T", "S", ""});
    first.context().insert<Topics>()->setTopic(QStringLiteral("it's"));
    first.context().insert<Topics>()->setTopic(QStringLiteral("  Hope  "));
    first.context().insert<Topics>()->setTopic(QStringLiteral("a^b"));
    first.context().insert<Topics>();

    TestApplication second;
    // The topic moves to the source, which would be read as a date.
    first.all<Event>().at(12)->setSource(QLatin1String(""));
    import(second, exported(first));
    const auto text = [](const char* value) { return std::optional(QString::fromUtf8(value)); };
    const std::vector<std::optional<QString>> expected{
        // author, topic, source, text
        {},         text("T"),   text("S"), text("absent author"),
        {},         text("T"),   text("S"), text("empty author"),
        text("B"),  text("T"),   text("S"), text("into the last, whose text wins"),
        text("C"),  text("T"),   {},        text("empty source"),
        text("D"),  text("T"),   text("S"), text("a return"),
        text("E"),  text("T"),   text("S"), text("a return"),
        text("F"),  text("U"),   text("V"), text("may begin a quote"),
        text("G"),  text("T"),   text("S"), text("cut off at the caret"),
        text("H"),  text("T"),   text("S"), text("\n becomes a line feed, @\n#@ one within"),
        text("I"),  text("T"),   text("U"), {},
        text("K"),  text("T"),   text("S"), {},
        text("OJ"), text("its"), text("S"), text("tis"),
        text("a"),  text("b"),   {},        {}}; // the topic with a caret
    EXPECT_EQ(textsOf(second), expected);
    EXPECT_EQ(topicsOf(second), QStringList({"Hope", "b", "it's"}));

    // Sources that came back as absent end the next export.
    EXPECT_NE(fatalMessageOf([&] { exported(second); }), "");
    for (Event* quote : second.all<Event>()) {
        if (!quote->source())
            second.context().deleteObject(*quote);
    }
    EXPECT_EQ(exported(second), "[QUOTECOLLECTION]\n"
                                "^T^S^^absent author\n"
                                "^T^S^^empty author\n"
                                "B^T^S^^into the last, whose text wins\n"
                                "D^T^S^^a return\n"
                                "E^T^S^^a return\n"
                                "F^U^V^^may begin a quote\n"
                                "G^T^S^^cut off at the caret\n"
                                "H^T^S^^@#@ becomes a line feed, @@#@#@ one within\n"
                                "I^T^U^^\n"
                                "K^T^S^^\n"
                                "OJ^its^S^^tis\n"
                                "[TOPICCOLLECTION]\nHope\nb\nit's\n");

    // A field that a caret has moved to the date's place is no date.
    TestApplication third;
    first.all<Event>().at(12)->setSource(QStringLiteral("S"));
    EXPECT_EQ(fatalMessageOf([&] { import(third, exported(first)); }),
              "Line 16 of import.csv has a date that cannot be read: \"S\"");
}

} // namespace
