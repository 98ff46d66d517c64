#include "store/TextOrder.h"

#include <QChar>

#include <algorithm>

std::strong_ordering compareByCodePoint(QStringView left, QStringView right) {
    const auto [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (l == left.end() || r == right.end())
        return left.size() <=> right.size();
    // Surrogates stand for code points beyond all other code units.
    if (l->isSurrogate() != r->isSurrogate())
        return l->isSurrogate() <=> r->isSurrogate();
    return l->unicode() <=> r->unicode();
}
