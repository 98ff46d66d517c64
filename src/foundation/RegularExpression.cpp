#include "RegularExpression.h"

#include <QRegularExpression>

#include <algorithm>
#include <memory>
#include <unicode/uregex.h>

namespace {

constexpr int32_t timeLimit = 300; // in ICU's steps of about a millisecond

struct CloseExpression {
    void operator()(URegularExpression* expression) const { uregex_close(expression); }
};

// ICU notices what is never closed only at the pattern's end.
QString faultySign(const QString& pattern, UErrorCode fault, int32_t offset) {
    if (fault == U_REGEX_MISSING_CLOSE_BRACKET)
        return QStringLiteral("[");
    if (fault == U_REGEX_MISMATCHED_PAREN && pattern.count(u'(') > pattern.count(u')'))
        return QStringLiteral("(");
    const qsizetype place = std::clamp<qsizetype>(offset - 1, 0, pattern.size() - 1);
    const qsizetype sign =
        pattern.lastIndexOf(QRegularExpression(QStringLiteral("[\\\\()\\[\\]{}*+?|^$]")), place);
    return pattern.mid(std::max<qsizetype>(sign, 0), 1);
}

} // namespace

std::variant<std::vector<TextRange>, PatternFault> matchesIgnoringCase(const QString& pattern,
                                                                       const QString& text) {
    UParseError place{};
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<URegularExpression, CloseExpression> expression(
        uregex_open(reinterpret_cast<const UChar*>(pattern.utf16()), int32_t(pattern.size()),
                    UREGEX_CASE_INSENSITIVE, &place, &status));
    if (status == U_REGEX_PATTERN_TOO_BIG)
        return std::vector<TextRange>();
    if (U_FAILURE(status))
        return PatternFault{faultySign(pattern, status, place.offset)};
    uregex_setTimeLimit(expression.get(), timeLimit, &status);
    uregex_setText(expression.get(), reinterpret_cast<const UChar*>(text.utf16()),
                   int32_t(text.size()), &status);
    std::vector<TextRange> matches;
    while (uregex_findNext(expression.get(), &status) && U_SUCCESS(status)) {
        const int32_t start = uregex_start(expression.get(), 0, &status);
        const int32_t end = uregex_end(expression.get(), 0, &status);
        matches.push_back({start, end - start});
    }
    return matches;
}
