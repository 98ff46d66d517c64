#pragma once

#include "Fuzzing.h"
#include "reliability/SimulatedDisk.h"

#include <QString>

#include <algorithm>
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

inline const std::optional<QString>& anyText(Choices& choices) {
    return texts.at(std::size_t(choices.below(int(texts.size()))));
}

/** One of so many, of which the later ones may be out of reach. */
inline std::size_t anyOf(Choices& choices, std::size_t count) {
    return std::size_t(choices.below(int(std::min<std::size_t>(count, 256))));
}

/** A value that orders texts as lists do: absent before empty, then by code points. */
inline std::pair<bool, std::string> sortable(const std::optional<QString>& text) {
    return {text.has_value(), text.value_or(QString()).toStdString()};
}

/** Whether a search finds a text; both small sigmas are one letter. */
inline bool matches(const std::optional<QString>& text, const QString& search) {
    const auto lowered = [](const QString& whole) {
        return whole.toLower().replace(u'\u03c2', u'\u03c3');
    };
    return text && lowered(*text).contains(lowered(search));
}

/** Has a session of actions with screens act as the bytes choose, on a disk that never waits. */
template <class Session>
int runSession(const std::uint8_t* bytes, std::size_t count) {
    const SimulatedDisk disk;
    Choices choices(bytes, std::min<std::size_t>(count, 400));
    Session session;
    while (!choices.isAtEnd())
        session.act(choices);
    return 0;
}
