#pragma once

#include "foundation/Date.h"
#include "foundation/LineEnds.h"
#include "store/Records.h"

#include <QByteArray>
#include <QString>

#include <optional>

/** The lines that begin the two sections of a collection file. */
inline const auto quoteSectionMarker = QStringLiteral("[QUOTECOLLECTION]");
inline const auto topicSectionMarker = QStringLiteral("[TOPICCOLLECTION]");

/** Adds a quote to a collection file in UTF-8, as a line with its line feed. Line feeds within the
 * quote are escaped, nothing else is. A quote whose source is absent is a fatal error. */
void appendLine(QByteArray& file, const Event& quote);

/** Adds a topic to a collection file in UTF-8, as a line with its line feed. */
void appendLine(QByteArray& file, const Topics& topic);

/** A quote as a line of a collection file tells it. Apostrophes are gone from every text; a field
 * that the line lacks is empty. */
struct QuoteLine {
    QString author;
    QString topic; ///< empty where the line is no quote: an import passes it over
    QString source;
    QString date;         ///< as it stands in the file, for readDate
    QString quote;        ///< with its line feeds back in place
    qsizetype number = 0; ///< of the line in the file, from 1, as a text editor counts

    bool operator==(const QuoteLine&) const = default;
};

/** The lines of a text, one after the other. */
class LineReader {
public:
    /** The text must stay as it is. */
    explicit LineReader(QStringView text)
        : m_text(text)
        , m_ends(text) {}

    /** Whether there was one more line, which line() and number() then tell of. */
    bool next();
    QStringView line() const { return m_line; }
    qsizetype number() const { return m_number; } ///< from 1
    double share() const;                         ///< of the text that is read, 0 to 1

private:
    QStringView m_text;
    LineEnds m_ends;
    QStringView m_line;
    qsizetype m_place = 0;
    qsizetype m_number = 0;
    bool m_isAtEnd = false;
};

/** Whether a line of the text marks it as a quote collection. */
bool isQuoteCollection(const QString& document);

/**
 * The lines of a collection file's text one after the other, in file order, those that name no
 * topic too, but neither empty ones nor the quote marker.
 */
class QuoteLineReader {
public:
    explicit QuoteLineReader(const QString& document)
        : m_document(document)
        , m_lines(document) {}

    /** The next line, nothing after the last. */
    std::optional<QuoteLine> next();
    double share() const { return m_lines.share(); } ///< of the text that is read, 0 to 1
    /** Where the topic section begins, as far as the text is read. */
    QStringView topicSection() const { return m_topicSection; }

private:
    QStringView m_document;
    LineReader m_lines;
    QStringView m_topicSection;
};

/** The names in the topic section of a collection file's text, in file order, repetitions included.
 * Whether the text is a quote collection is not asked. */
class TopicNameReader {
public:
    explicit TopicNameReader(QStringView document)
        : m_lines(document) {}

    /** The next name, nothing after the last. */
    std::optional<QString> next();

private:
    LineReader m_lines;
    bool m_inTopics = false;
};

/** Reads the date field of a quote line, with dots or hyphens in the day, as local time: its UTC
 * offset "+0000" is dropped. Each number may lack its leading zeros. Whatever an export writes is
 * read. Nothing when it is no date, as with an empty field. */
std::optional<Date> readDate(const QString& field, const Environment& environment);

/** The text without the spaces and tabs, and no other white space, at its ends. */
QString trimmedOfBlanks(QStringView text);
