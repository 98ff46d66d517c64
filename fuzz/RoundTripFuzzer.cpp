#include "Fuzzing.h"
#include "exchange/CollectionFile.h"
#include "support/TestApplication.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace std::chrono_literals;

namespace {

/** What texts are made of. Fields with the last few of them fall apart when they are read. */
const std::array<QString, 16> pieces{
    QStringLiteral("a"),          QStringLiteral("b"),      QStringLiteral("'"),
    QStringLiteral("@#@"),        QStringLiteral("@'#@"),   QStringLiteral(" "),
    QStringLiteral("\t"),         QStringLiteral(" +0000"), QStringLiteral("\u2028"),
    QStringLiteral("\U0001F600"), quoteSectionMarker,       topicSectionMarker,
    QStringLiteral("[QUOTE^"),    QStringLiteral("^"),      QStringLiteral("\r"),
    QStringLiteral("\n"),
};
constexpr int harmlessPieces = 12;
constexpr auto offset = 5h; ///< of the local time, from UTC

std::optional<QString> text(Choices& choices, int kinds) {
    const int length = choices.below(6);
    if (length == 5)
        return std::nullopt;
    QString result = QLatin1String("");
    for (int i = 0; i < length; ++i)
        result += pieces.at(std::size_t(choices.below(kinds)));
    return result;
}

std::optional<Date> date(Choices& choices) {
    const int kind = choices.below(3);
    if (kind == 0)
        return std::nullopt;
    std::int64_t number = 0;
    for (int i = 0; i < 5; ++i)
        number = number * 256 + choices.below(256);
    // The years 1 to 9999, wherever on Earth.
    constexpr std::int64_t first = -62'135'683'200;
    constexpr std::int64_t end = 253'402'387'200;
    return Date(std::chrono::seconds(first + number % (end - first)));
}

/** What a reader makes of a file, put as plainly as it can be. */
std::vector<QStringList> plainlyReadQuotes(QString document) {
    std::vector<QStringList> quotes;
    document.replace(u'\r', u'\n').remove(u'\'');
    for (const QString& line : document.split(u'\n')) {
        QStringList fields = line.split(u'^');
        fields.resize(5);
        fields[4].replace(QStringLiteral("@#@"), QStringLiteral("\n"));
        if (!fields[1].isEmpty())
            quotes.push_back(fields);
    }
    return quotes;
}

QString trimmed(QString name) {
    static const QRegularExpression blanks(QStringLiteral("\\A[ \\t]+|[ \\t]+\\z"));
    return name.remove(blanks);
}

std::vector<QString> plainlyReadTopics(QString document) {
    const QStringList lines = document.replace(u'\r', u'\n').split(u'\n');
    std::vector<QString> topics;
    for (const QString& line : lines.mid(lines.indexOf(topicSectionMarker) + 1)) {
        if (!line.isEmpty())
            topics.push_back(trimmed(line.section(u'^', -1)));
    }
    return topics;
}

/** Records that are not saved, the same ones in each run: only what they hold is written. */
template <class Record>
Record& record(std::size_t number) {
    static TestApplication application;
    static std::vector<Record*> records;
    while (records.size() <= number)
        records.push_back(application.context().insert<Record>());
    return *records[number];
}

/** A quote without what gets lost in a file, if it does not get lost as a whole. */
std::optional<QStringList> kept(const Event& quote) {
    QString text = quote.quote().value_or(QString());
    text.replace(u'\n', QStringLiteral("@#@"));
    const auto date = quote.timestamp();
    QStringList fields{quote.author().value_or(QString()), quote.category().value_or(QString()),
                       quote.source().value_or(QString()), date ? formatUtc(*date) : QString(),
                       text};
    fields.replaceInStrings(QStringLiteral("'"), QString());
    fields[4].replace(QStringLiteral("@#@"), QStringLiteral("\n"));
    return fields[1].isEmpty() ? std::nullopt : std::optional(fields);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    Choices choices(bytes, std::min<std::size_t>(count, 2000));
    const bool isHarmless = choices.below(2) == 0;
    const int kinds = isHarmless ? harmlessPieces : int(pieces.size());

    QByteArray file = quoteSectionMarker.toUtf8() + '\n';
    std::vector<QStringList> keptQuotes;
    std::vector<Date> dates;
    for (std::size_t i = 0; choices.below(16) != 0; ++i) {
        Event& quote = record<Event>(i);
        quote.setAuthor(text(choices, kinds));
        quote.setCategory(text(choices, kinds));
        quote.setSource(text(choices, kinds));
        quote.setTimestamp(date(choices));
        auto words = text(choices, kinds);
        if (words && choices.below(2) == 1)
            words->append(QStringLiteral("\nx"));
        quote.setQuote(words);
        const QString message = fatalMessageOf([&] { appendLine(file, quote); });
        require(message.isEmpty() == quote.source().has_value(), "each quote needs a source");
        const auto fields = kept(quote);
        if (quote.source() && fields) {
            keptQuotes.push_back(*fields);
            if (quote.timestamp())
                dates.push_back(*quote.timestamp() - offset);
        }
    }
    file += topicSectionMarker.toUtf8() + '\n';
    std::vector<QString> keptTopics;
    for (std::size_t i = 0; choices.below(8) != 0; ++i) {
        Topics& topic = record<Topics>(i);
        topic.setTopic(text(choices, kinds));
        appendLine(file, topic);
        const QString name = topic.topic().value_or(QString());
        if (!name.isEmpty())
            keptTopics.push_back(trimmed(name));
    }

    const QString document = QString::fromUtf8(file);
    std::vector<QStringList> quotes;
    QuoteLineReader quoteReader(document);
    while (const auto line = quoteReader.next()) {
        if (!line->topic.isEmpty())
            quotes.push_back({line->author, line->topic, line->source, line->date, line->quote});
    }
    std::vector<QString> topics;
    TopicNameReader topicReader(quoteReader.topicSection());
    while (const auto name = topicReader.next())
        topics.push_back(*name);
    require(isQuoteCollection(document), "what is written is known for a collection");
    require(quotes == plainlyReadQuotes(document), "quotes are read line by line");
    require(topics == plainlyReadTopics(document), "topics are read line by line");
    if (!isHarmless)
        return 0;
    require(quotes == keptQuotes, "quotes lose apostrophes, and nothing else");
    require(topics == keptTopics, "topics lose the blanks around them, and nothing else");
    const Environment environment{[] { return Date(); }, QStringLiteral("en_US"),
                                  QStringLiteral("Etc/GMT-5")};
    std::vector<Date> datesRead;
    for (const QStringList& quote : quotes) {
        if (!quote[3].isEmpty())
            datesRead.push_back(readDate(quote[3], environment).value());
    }
    require(datesRead == dates, "dates move by the offset of the local time");
    return 0;
}
