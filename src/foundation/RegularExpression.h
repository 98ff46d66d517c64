#pragma once

#include <QString>

#include <optional>
#include <vector>

/** A part of a text, in UTF-16 units. */
struct TextRange {
    qsizetype start = 0;
    qsizetype length = 0;

    bool operator==(const TextRange&) const = default;
};

/**
 * Where an expression (ICU's syntax, any case) matches in a text; nothing when the pattern is no
 * valid expression. A search that takes longer than a fraction of a second ends with the matches
 * found so far.
 */
std::optional<std::vector<TextRange>> matchesIgnoringCase(const QString& pattern,
                                                          const QString& text);
