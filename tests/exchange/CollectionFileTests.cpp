#include "exchange/CollectionFile.h"
#include "foundation/Environment.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using std::chrono::sys_days;

namespace {

std::optional<std::vector<QuoteLine>> quotes(const QString& document) {
    if (!isQuoteCollection(document))
        return std::nullopt;
    std::vector<QuoteLine> read;
    QuoteLineReader reader(document);
    while (const auto line = reader.next())
        read.push_back(*line);
    return read;
}

std::optional<std::vector<QuoteLine>> quotes(const char* document) {
    return quotes(QString::fromUtf8(document));
}

QuoteLine quote(const char* author, const char* topic, const char* source, const char* date,
                const char* text, qsizetype number) {
    return {QString::fromUtf8(author), QString::fromUtf8(topic), QString::fromUtf8(source),
            QString::fromUtf8(date),   QString::fromUtf8(text),  number};
}

std::vector<QString> topics(const char* document) {
    std::vector<QString> names;
    const QString text = QString::fromUtf8(document);
    TopicNameReader reader(text);
    while (const auto name = reader.next())
        names.push_back(*name);
    return names;
}

} // namespace

TEST(CollectionLine, HasTheTextsAsTheyStand) {
    TestApplication application;
    const auto lineOf = [](const auto& record) {
        QByteArray file;
        appendLine(file, record);
        return file;
    };
    const auto line = [&](const QuoteValues& values) {
        return lineOf(application.addQuote(values));
    };
    const Date date = sys_days(2020y / 1 / 2) + 3h + 4min + 5s + 678ms;
    EXPECT_EQ(line({"A", "T", "", "x\ny", date}), "A^T^^2020-01-02 03:04:05 +0000^x@#@y\n");
    EXPECT_EQ(line({"A", "T", "S", "text"}), "A^T^S^^text\n");
    EXPECT_EQ(line({nullptr, nullptr, "", nullptr}), "^^^^\n");
    EXPECT_EQ(line({" O'B^\r\n ", "\"", "@#@", "\n\r\n@#@^\n"}),
              " O'B^\r\n ^\"^@#@^^@#@\r@#@@#@^@#@\n");
    // Composed and decomposed, and the last character of every plane.
    const char* unicode = "\u00e9 e\u0301 \ufeff\u2028\ufffd \U0001fffd \U0002fffd \U0010fffd";
    EXPECT_EQ(line({"A", "T", "S", unicode}), QByteArray("A^T^S^^") + unicode + "\n");
    const Event& stray = application.addQuote({"A", "T", nullptr, "q"});
    EXPECT_EQ(fatalMessageOf([&] { lineOf(stray); }),
              "A quote without a source cannot be exported: \"q\" by \"A\" on \"T\"");

    Topics& topic = *application.context().insert<Topics>();
    EXPECT_EQ(lineOf(topic), "\n");
    topic.setTopic(QStringLiteral(" a^'b' "));
    EXPECT_EQ(lineOf(topic), " a^'b' \n");
}

TEST(QuoteLines, AreReadFieldByField) {
    const auto read = quotes("[QUOTECOLLECTION]\n"
                             "A^T^S^2020-01-02 03:04:05 +0000^x@#@y\n"
                             "^T^^^\n"
                             "short^T\n"
                             "A^caret^in^the^topic^moves the rest\n"
                             " A ^\tT ^ S^d^ @#@#@ \n"
                             "no topic^^S^d^q\n"
                             "[TOPICCOLLECTION]\n"
                             "T\n"
                             "late^T^^^still a quote");
    EXPECT_EQ(read, (std::vector{quote("A", "T", "S", "2020-01-02 03:04:05 +0000", "x\ny", 2),
                                 quote("", "T", "", "", "", 3), quote("short", "T", "", "", "", 4),
                                 quote("A", "caret", "in", "the", "topic", 5),
                                 quote(" A ", "\tT ", " S", "d", " \n#@ ", 6),
                                 quote("no topic", "", "S", "d", "q", 7),
                                 quote("[TOPICCOLLECTION]", "", "", "", "", 8),
                                 quote("T", "", "", "", "", 9),
                                 quote("late", "T", "", "", "still a quote", 10)}));
}

TEST(QuoteLines, NeedTheMarkerOnALineOfItsOwn) {
    EXPECT_FALSE(quotes(""));
    EXPECT_FALSE(quotes("A^T^S^^q\n[TOPICCOLLECTION]\nT\n"));
    EXPECT_FALSE(quotes(" [QUOTECOLLECTION]\n[QUOTECOLLECTION]x\nA^T^S^^[QUOTECOLLECTION]"));
    EXPECT_EQ(quotes("[QUOTECOLLECTION]"), std::vector<QuoteLine>());
    EXPECT_EQ(quotes("A^T^S^^q\n\n[QUOTECOLLECTION]"),
              std::vector{quote("A", "T", "S", "", "q", 1)});
    EXPECT_TRUE(quotes("'[QUOTE'COLLECTION]")) << "apostrophes go before the marker is sought";
}

TEST(QuoteLines, LoseTheirApostrophesEverywhere) {
    EXPECT_EQ(quotes("[QUOTECOLLECTION]\nO'Brien^'T'^S'^'^@'#@it's\nA^'^S^^left out\n''"),
              (std::vector{quote("OBrien", "T", "S", "", "\nits", 2),
                           quote("A", "", "S", "", "left out", 3)}));
}

TEST(QuoteLines, EndWithAnyLineEndAndAreNumberedAsAnEditorCounts) {
    const auto read =
        quotes("[QUOTECOLLECTION]\r\n\r\nA^T^^^crlf\r\nB^T^^^cr\rC^T^^^lf\n\n\rD^T^^^end");
    EXPECT_EQ(*read,
              (std::vector{quote("A", "T", "", "", "crlf", 3), quote("B", "T", "", "", "cr", 4),
                           quote("C", "T", "", "", "lf", 5), quote("D", "T", "", "", "end", 8)}));
}

TEST(QuoteLines, MayBeVeryLong) {
    constexpr qsizetype many = 3'000'000;
    const QString start = QStringLiteral("[QUOTECOLLECTION]\nA^T^S^^");
    const auto breaks = quotes(start + QStringLiteral("@#@").repeated(many));
    QuoteLine expected = quote("A", "T", "S", "", "", 2);
    expected.quote.fill(u'\n', many);
    EXPECT_TRUE(breaks == std::vector{expected});
    const auto carets = quotes(start + QString(many, u'^') + u'\n' + QString(many, u'\''));
    EXPECT_EQ(carets, std::vector{quote("A", "T", "S", "", "", 2)});
}

TEST(TopicNames, AreTheLastFieldsAfterTheFirstTopicMarker) {
    EXPECT_EQ(topics("[QUOTECOLLECTION]\nA^T^S^^q\n"), std::vector<QString>());
    EXPECT_EQ(topics("[QUOTECOLLECTION]\r\nA^T^S^^q\r\n[TOPICCOLLECTION]\r\n\r\n"
                     "  Hope \t\nO'Brien\na^b\rHope\n[TOPICCOLLECTION]\n \nlast^"),
              (std::vector<QString>{QStringLiteral("Hope"), QStringLiteral("O'Brien"),
                                    QStringLiteral("b"), QStringLiteral("Hope"),
                                    QStringLiteral("[TOPICCOLLECTION]"), QString(), QString()}));
    EXPECT_EQ(topics("[TOPICCOLLECTION]\n\u00A0Hope\u2003"),
              std::vector<QString>{QString::fromUtf8("\u00A0Hope\u2003")})
        << "only blanks and tabs are trimmed";
}

TEST(ReadDate, TakesDotsOrHyphensAsLocalTime) {
    for (const char* locale : {"en_US", "ar_EG", "th_TH"}) {
        const Environment newYork{.now = {},
                                  .locale = QString::fromLatin1(locale),
                                  .timeZone = QStringLiteral("America/New_York")};
        const auto read = [&](const char* field) {
            return readDate(QString::fromLatin1(field), newYork);
        };
        const Date date = sys_days(2021y / 3 / 7) + 19h + 5min + 9s;
        for (const char* field :
             {"2021-03-07 14:05:09 +0000", "2021.03.07 14:05:09 +0000", "2021-03-07 14:05:09",
              "2021.03.07 +0000 14:05:09 +0000", "2021-3-7 14:5:9 +0000", "2021.3.07 14:05:9"})
            EXPECT_EQ(read(field), date) << locale << field;
        EXPECT_TRUE(read("2021-03-14 02:30:00 +0000")) << "skipped by daylight saving";
        for (const char* field : {"", " +0000", "2021.03-07 14:05:09", "2021-03-07 14:05:09 +0100",
                                  "2021-03-07", "2021-02-30 14:05:09 +0000", "2021-03-07 24:00:00",
                                  "99999-03-07 14:05:09", "yesterday"})
            EXPECT_FALSE(read(field)) << locale << field;
        // The first and the last day here and elsewhere, as an export writes them.
        for (const Date day : {sys_days(0y / 12 / 31) + 14h, sys_days(10000y / 1 / 1) + 4h}) {
            const auto local = readDate(formatUtc(day), newYork);
            ASSERT_TRUE(local) << locale;
            Environment utc = newYork;
            utc.timeZone = QStringLiteral("UTC");
            EXPECT_EQ(wallTime(*local, newYork), wallTime(day, utc));
        }
    }
}
