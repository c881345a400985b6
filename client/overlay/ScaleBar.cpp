#include "client/overlay/ScaleBar.h"

#include <array>
#include <cmath>

ScaleBar ScaleBar::fitting(double room)
{
    constexpr std::array factors{5.0, 2.0, 1.0};
    const double power = std::pow(10.0, std::floor(std::log10(room)));
    double length = power;
    for (const double factor : factors) {
        if (factor * power <= room) {
            length = factor * power;
            break;
        }
    }
    constexpr double millimetresPerCentimetre = 10;
    const bool inCentimetres = length >= millimetresPerCentimetre;
    const double shown = inCentimetres ? length / millimetresPerCentimetre : length;
    return {length,
        QString::number(shown) % (inCentimetres ? QLatin1String(" cm") : QLatin1String(" mm"))};
}
