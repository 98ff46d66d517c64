#pragma once

#include <QString>

/** A colour of four components, each 0 to 1. */
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    /** From hue, saturation and brightness, each 0 to 1. */
    static Color hsb(double hue, double saturation, double brightness, double alpha = 1);

    /** "#aarrggbb", as views read it. */
    QString name() const;

    bool operator==(const Color&) const = default;
};

inline constexpr Color black{0, 0, 0, 1};
inline constexpr Color red{1, 0, 0, 1};
inline constexpr Color grey{0.5, 0.5, 0.5, 1};
inline constexpr Color lightGrey{2.0 / 3, 2.0 / 3, 2.0 / 3, 1};
