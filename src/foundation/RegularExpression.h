#pragma once

#include <QString>

#include <variant>
#include <vector>

/** A part of a text, in UTF-16 units. */
struct TextRange {
    qsizetype start = 0;
    qsizetype length = 0;

    bool operator==(const TextRange&) const = default;
};

/** Why a pattern is no valid expression. */
struct PatternFault {
    QString sign; ///< the one that makes it none, as near as ICU tells
};

/**
 * Where an expression (ICU's syntax, any case) matches in a text. A search that takes longer than a
 * fraction of a second ends with the matches found so far.
 */
std::variant<std::vector<TextRange>, PatternFault> matchesIgnoringCase(const QString& pattern,
                                                                       const QString& text);
