#include "RegularExpression.h"

#include <memory>
#include <unicode/uregex.h>

namespace {

constexpr int32_t timeLimit = 300; // in ICU's steps of about a millisecond

struct CloseExpression {
    void operator()(URegularExpression* expression) const { uregex_close(expression); }
};

} // namespace

std::optional<std::vector<TextRange>> matchesIgnoringCase(const QString& pattern,
                                                          const QString& text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<URegularExpression, CloseExpression> expression(
        uregex_open(reinterpret_cast<const UChar*>(pattern.utf16()), int32_t(pattern.size()),
                    UREGEX_CASE_INSENSITIVE, nullptr, &status));
    if (status == U_REGEX_PATTERN_TOO_BIG)
        return std::vector<TextRange>();
    if (U_FAILURE(status))
        return std::nullopt;
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
