#include "exchange/CollectionFile.h"

#include "foundation/FatalError.h"
#include "foundation/LineEnds.h"

#include <algorithm>
#include <array>

namespace {

/** The lines of a text, one after the other. */
class LineReader {
public:
    explicit LineReader(QStringView text)
        : m_text(text)
        , m_ends(text) {}

    /** Whether there was one more line, which line() and number() then tell of. */
    bool next() {
        if (m_isAtEnd)
            return false;
        const qsizetype end = m_ends.next(m_place);
        m_line = m_text.sliced(m_place, end - m_place);
        ++m_number;
        m_isAtEnd = end == m_text.size();
        m_place = end + m_ends.length(end);
        return true;
    }

    QStringView line() const { return m_line; }
    qsizetype number() const { return m_number; }

private:
    QStringView m_text;
    LineEnds m_ends;
    QStringView m_line;
    qsizetype m_place = 0;
    qsizetype m_number = 0;
    bool m_isAtEnd = false;
};

// QString::replace moves the rest of the text again and again: too slow for a long one.
QString replaced(QStringView text, QStringView before, QStringView after) {
    // One character is found far faster than several.
    if (!text.contains(before.front()))
        return text.toString();
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

/** Takes the apostrophes out of lines. */
class ApostropheFilter {
public:
    /** Valid until the next line. */
    QStringView operator()(QStringView line) {
        if (!line.contains(u'\''))
            return line;
        m_filtered = line.toString().remove(u'\'');
        return m_filtered;
    }

private:
    QString m_filtered;
};

bool isQuoteCollection(const QString& document) {
    ApostropheFilter withoutApostrophes;
    LineReader reader(document);
    while (reader.next()) {
        if (withoutApostrophes(reader.line()) == quoteSectionMarker)
            return true;
    }
    return false;
}

} // namespace

void appendLine(QByteArray& file, const Event& quote) {
    const auto source = quote.utf8(Event::Keys::source);
    if (!source)
        fatalError(QStringLiteral("A quote without a source cannot be exported: ") +
                   describe(quote));
    const auto date = quote.timestamp();
    file += quote.utf8(Event::Keys::author).value_or(QByteArrayView());
    file += '^';
    file += quote.utf8(Event::Keys::category).value_or(QByteArrayView());
    file += '^';
    file += *source;
    file += '^';
    if (date)
        file += formatUtc(*date).toLatin1();
    file += '^';
    QByteArrayView text = quote.utf8(Event::Keys::quote).value_or(QByteArrayView());
    for (qsizetype lineFeed = 0; (lineFeed = text.indexOf('\n')) >= 0;) {
        file += text.first(lineFeed);
        file += "@#@";
        text = text.sliced(lineFeed + 1);
    }
    file += text;
    file += '\n';
}

void appendLine(QByteArray& file, const Topics& topic) {
    file += topic.topic().value_or(QString()).toUtf8();
    file += '\n';
}

QString trimmedOfBlanks(QStringView text) {
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text.toString();
}

bool readQuoteLines(const QString& document, const std::function<void(const QuoteLine&)>& use) {
    if (!isQuoteCollection(document))
        return false;
    ApostropheFilter withoutApostrophes;
    LineReader reader(document);
    while (reader.next()) {
        const QStringView line = withoutApostrophes(reader.line());
        const auto [author, topic, source, date, quote] = splitFields(line);
        if (!line.isEmpty() && line != quoteSectionMarker)
            use({author.toString(), topic.toString(), source.toString(), date.toString(),
                 replaced(quote, u"@#@", u"\n"), reader.number()});
    }
    return true;
}

void readTopicNames(const QString& document, const std::function<void(const QString&)>& use) {
    bool inTopics = false;
    LineReader reader(document);
    while (reader.next()) {
        const QStringView line = reader.line();
        if (inTopics && !line.isEmpty())
            use(trimmedOfBlanks(line.sliced(line.lastIndexOf(u'^') + 1)));
        inTopics = inTopics || line == topicSectionMarker;
    }
}

std::optional<Date> readDate(const QString& field, const Environment& environment) {
    // ICU takes ten times as long.
    if (const auto plain = readPlainDate(field))
        return dateFromWallTime(*plain, environment);
    const QString text = replaced(field, utcOffset, u"");
    // Hyphens first: they are what an export writes.
    const auto date = parseDatePattern(text, QStringLiteral("yyyy-M-d H:m:s"), environment);
    return date ? date : parseDatePattern(text, QStringLiteral("yyyy.M.d H:m:s"), environment);
}
