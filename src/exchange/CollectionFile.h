#pragma once

#include "foundation/Date.h"
#include "store/Records.h"

#include <QByteArray>
#include <QString>

#include <functional>
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

/**
 * Hands over the lines of a collection file's text one after the other, in file order, those that
 * name no topic too, but neither empty ones nor the quote marker. None, and false, when no line
 * marks the text as a quote collection.
 */
bool readQuoteLines(const QString& document, const std::function<void(const QuoteLine&)>& use);

/** Hands over the names in the topic section of a collection file's text, in file order,
 * repetitions included. Whether the text is a quote collection is left to readQuoteLines. */
void readTopicNames(const QString& document, const std::function<void(const QString&)>& use);

/** Reads the date field of a quote line, with dots or hyphens in the day, as local time: its UTC
 * offset "+0000" is dropped. Each number may lack its leading zeros. Whatever an export writes is
 * read. Nothing when it is no date, as with an empty field. */
std::optional<Date> readDate(const QString& field, const Environment& environment);

/** The text without the spaces and tabs, and no other white space, at its ends. */
QString trimmedOfBlanks(QStringView text);
