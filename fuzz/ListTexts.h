#pragma once

#include <QString>

#include <array>
#include <optional>
#include <string>
#include <utility>

/** Texts that sort or fold in ways of their own. */
inline const std::array<std::optional<QString>, 16> texts{
    std::nullopt,
    QStringLiteral(""),
    QStringLiteral("a"),
    QStringLiteral("A"),
    QStringLiteral("Ann"),
    QStringLiteral("ann's"),
    QStringLiteral("\u00c4nn"),
    QStringLiteral("\u0130"),
    QStringLiteral("i"),
    QStringLiteral("\u00df"),
    QStringLiteral("SS"),
    QStringLiteral("\uffee"),
    QStringLiteral("\U0001F600"),
    QStringLiteral("\u03a3\u03a3"),
    QStringLiteral("\u03c2"),
    QStringLiteral("a\nb"),
};

/** A value that orders texts as lists do: absent before empty, then by code points. */
inline std::pair<bool, std::string> sortable(const std::optional<QString>& text) {
    return {text.has_value(), text.value_or(QString()).toStdString()};
}

/** Whether a search finds a text. */
inline bool matches(const std::optional<QString>& text, const QString& search) {
    return text && text->toLower().contains(search.toLower());
}
