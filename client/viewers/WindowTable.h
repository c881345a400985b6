#pragma once

#include "platform/render/KxVolume.h"

#include <QRgb>

#include <cstdint>
#include <vector>

/// Grey levels of all 16-bit values for one window: one look-up a pixel instead of arithmetic.
/// A plain value.
class WindowTable
{
public:
    /// The value of pixels that lie outside the volume; they are black whatever the window.
    static constexpr std::int16_t outside = INT16_MIN;

    /// Makes the table for a window, unless it is there already. @param inverted dark for bright.
    void setWindow(const KxVolume::Window &window, bool inverted);
    /// The grey of a value. @pre setWindow() has been called.
    [[nodiscard]] QRgb grey(std::int16_t value) const
    {
        return m_greys[static_cast<std::uint16_t>(value)];
    }
    /// Brightness 0 to 255 of any value in a window.
    [[nodiscard]] static int level(double value, const KxVolume::Window &window);

private:
    KxVolume::Window m_window;
    bool m_inverted = false;
    std::vector<QRgb> m_greys;
};
