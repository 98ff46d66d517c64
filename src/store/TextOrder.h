#pragma once

#include <QStringView>

#include <compare>

/** The order of all texts: by Unicode code point, which UTF-16 code units do not give. */
std::strong_ordering compareByCodePoint(QStringView left, QStringView right);
