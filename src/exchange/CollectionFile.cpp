#include "exchange/CollectionFile.h"

#include "foundation/FatalError.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace {

/** The lines of a text, one after the other. CR LF, LF and CR each end a line. */
class LineReader {
public:
    explicit LineReader(QStringView text)
        : m_rest(text) {}

    /** Whether there was one more line, which line() and number() then tell of. */
    bool next() {
        if (m_atEnd)
            return false;
        const auto isLineEnd = [](QChar character) {
            return character == u'\n' || character == u'\r';
        };
        const qsizetype length =
            std::find_if(m_rest.begin(), m_rest.end(), isLineEnd) - m_rest.begin();
        m_line = m_rest.first(length);
        ++m_number;
        m_atEnd = length == m_rest.size();
        const qsizetype lineEndLength = m_atEnd ? 0
                                        : m_rest.sliced(length).startsWith(QLatin1String("\r\n"))
                                            ? 2
                                            : 1;
        m_rest = m_rest.sliced(length + lineEndLength);
        return true;
    }

    QStringView line() const { return m_line; }
    qsizetype number() const { return m_number; }

private:
    QStringView m_rest;
    QStringView m_line;
    qsizetype m_number = 0;
    bool m_atEnd = false;
};

// QString::replace moves the rest of the text again and again: too slow for a long one.
QString replaced(QStringView text, QStringView before, QStringView after) {
    QString result;
    result.reserve(text.size());
    for (;;) {
        const qsizetype position = text.indexOf(before);
        result.append(text.left(position));
        if (position < 0)
            return result;
        result.append(after);
        text = text.sliced(position + before.size());
    }
}

/** The first five fields of a line; those that it lacks are empty. */
std::array<QStringView, 5> splitFields(QStringView line) {
    std::array<QStringView, 5> fields;
    for (QStringView& field : fields) {
        const qsizetype end = line.indexOf(u'^');
        field = line.left(end);
        if (end < 0)
            break;
        line = line.sliced(end + 1);
    }
    return fields;
}

/** How a message tells which quote it is about. */
QString describe(const Event& quote) {
    constexpr qsizetype longest = 100;
    const auto part = [](const std::optional<QString>& text) {
        return text.value_or(QString()).left(longest);
    };
    return QStringLiteral("\"%1\" by \"%2\" on \"%3\"")
        .arg(part(quote.quote()), part(quote.author()), part(quote.category()));
}

} // namespace

QString collectionLine(const Event& quote) {
    const auto source = quote.source();
    if (!source)
        fatalError(QStringLiteral("A quote without a source cannot be exported: ") +
                   describe(quote));
    const auto date = quote.timestamp();
    const QStringList fields{quote.author().value_or(QString()),
                             quote.category().value_or(QString()), *source,
                             date ? formatUtc(*date) : QString(),
                             replaced(quote.quote().value_or(QString()), u"\n", u"@#@")};
    return fields.join(u'^') + u'\n';
}

QString collectionLine(const Topics& topic) {
    return topic.topic().value_or(QString()) + u'\n';
}

QString trimmedOfBlanks(QStringView text) {
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text.toString();
}

std::optional<std::vector<QuoteLine>> readQuoteLines(const QString& document) {
    std::vector<QuoteLine> quotes;
    bool isCollection = false;
    LineReader reader(document);
    while (reader.next()) {
        QString line = reader.line().toString();
        line.remove(u'\'');
        if (line == quoteSectionMarker)
            isCollection = true;
        const auto [author, topic, source, date, quote] = splitFields(line);
        if (!topic.isEmpty())
            quotes.push_back({author.toString(), topic.toString(), source.toString(),
                              date.toString(), replaced(quote, u"@#@", u"\n"), reader.number()});
    }
    if (!isCollection)
        return std::nullopt;
    return quotes;
}

std::vector<QString> readTopicNames(const QString& document) {
    std::vector<QString> names;
    bool inTopics = false;
    LineReader reader(document);
    while (reader.next()) {
        const QStringView line = reader.line();
        if (inTopics && !line.isEmpty())
            names.push_back(trimmedOfBlanks(line.sliced(line.lastIndexOf(u'^') + 1)));
        inTopics = inTopics || line == topicSectionMarker;
    }
    return names;
}

std::optional<Date> readDate(const QString& field, const Environment& environment) {
    const QString text = replaced(field, u" +0000", u"");
    // Hyphens first: they are what an export writes.
    const auto date = parseDatePattern(text, QStringLiteral("yyyy-MM-dd HH:mm:ss"), environment);
    return date ? date : parseDatePattern(text, QStringLiteral("yyyy.MM.dd HH:mm:ss"), environment);
}
