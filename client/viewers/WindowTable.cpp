#include "client/viewers/WindowTable.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double brightest = 255;

QRgb greyOf(int level)
{
    return qRgb(level, level, level);
}

} // namespace

int WindowTable::level(double value, const KxVolume::Window &window)
{
    const double width = std::max(window.width, 1e-6);
    const double fraction = (value - window.center) / width + 0.5;
    return static_cast<int>(std::lround(std::clamp(fraction, 0.0, 1.0) * brightest));
}

void WindowTable::setWindow(const KxVolume::Window &window, bool inverted)
{
    const bool isThere = !m_greys.empty() && m_window.center == window.center
        && m_window.width == window.width && m_inverted == inverted;
    if (isThere) {
        return;
    }
    m_window = window;
    m_inverted = inverted;
    const int brightestLevel = static_cast<int>(brightest);
    m_greys.resize(UINT16_MAX + 1);
    for (int value = INT16_MIN; value <= INT16_MAX; ++value) {
        const int grey = level(value, window);
        m_greys[static_cast<std::uint16_t>(value)]
            = greyOf(inverted ? brightestLevel - grey : grey);
    }
    m_greys[static_cast<std::uint16_t>(outside)] = greyOf(0);
}
