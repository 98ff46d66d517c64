#include "Color.h"

#include <array>
#include <cmath>

Color Color::hsb(double hue, double saturation, double brightness, double alpha) {
    const double sector = hue * 6;
    const double floor = std::floor(sector);
    const double fraction = sector - floor;
    const double low = brightness * (1 - saturation);
    const double falling = brightness * (1 - saturation * fraction);
    const double rising = brightness * (1 - saturation * (1 - fraction));
    const std::array<Color, 6> sectors{{
        {brightness, rising, low, alpha},
        {falling, brightness, low, alpha},
        {low, brightness, rising, alpha},
        {low, falling, brightness, alpha},
        {rising, low, brightness, alpha},
        {brightness, low, falling, alpha},
    }};
    return sectors.at(std::size_t(floor) % sectors.size());
}

QString Color::name() const {
    QString text = QStringLiteral("#");
    for (const double component : {alpha, red, green, blue})
        text += QStringLiteral("%1").arg(std::lround(component * 255), 2, 16, QLatin1Char('0'));
    return text;
}
