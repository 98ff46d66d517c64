#include "exchange/CollectionFile.h"

#include "foundation/FatalError.h"

#include <algorithm>
#include <array>

namespace {

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

/** A line without its apostrophes, kept in the buffer where there are any. */
QStringView withoutApostrophes(QStringView line, QString& buffer) {
    if (!line.contains(u'\''))
        return line;
    buffer = line.toString().remove(u'\'');
    return buffer;
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

bool LineReader::next() {
    if (m_isAtEnd)
        return false;
    const qsizetype end = m_ends.next(m_place);
    m_line = m_text.sliced(m_place, end - m_place);
    ++m_number;
    m_isAtEnd = end == m_text.size();
    m_place = end + m_ends.length(end);
    return true;
}

double LineReader::share() const {
    return m_text.isEmpty() ? 1 : double(m_place) / double(m_text.size());
}

bool isQuoteCollection(const QString& document) {
    LineReader reader(document);
    QString buffer;
    while (reader.next()) {
        if (withoutApostrophes(reader.line(), buffer) == quoteSectionMarker)
            return true;
    }
    return false;
}

std::optional<QuoteLine> QuoteLineReader::next() {
    QString buffer;
    while (m_lines.next()) {
        if (m_topicSection.isEmpty() && m_lines.line() == topicSectionMarker)
            m_topicSection = m_document.sliced(m_lines.line().data() - m_document.data());
        const QStringView line = withoutApostrophes(m_lines.line(), buffer);
        if (line.isEmpty() || line == quoteSectionMarker)
            continue;
        const auto [author, topic, source, date, quote] = splitFields(line);
        return QuoteLine{author.toString(),
                         topic.toString(),
                         source.toString(),
                         date.toString(),
                         replaced(quote, u"@#@", u"\n"),
                         m_lines.number()};
    }
    return std::nullopt;
}

std::optional<QString> TopicNameReader::next() {
    while (m_lines.next()) {
        const QStringView line = m_lines.line();
        if (m_inTopics && !line.isEmpty())
            return trimmedOfBlanks(line.sliced(line.lastIndexOf(u'^') + 1));
        m_inTopics = m_inTopics || line == topicSectionMarker;
    }
    return std::nullopt;
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
