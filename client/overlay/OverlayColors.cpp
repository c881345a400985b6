#include "client/overlay/OverlayColors.h"

#include <array>

namespace OverlayColors {

QColor plane(PlaneKind kind)
{
    // From the palette of Okabe and Ito: vermilion, bluish green, sky blue, reddish purple, yellow.
    static constexpr std::array<QRgb, 5> colors{
        0xffd55e00, 0xff009e73, 0xff56b4e9, 0xffcc79a7, 0xfff0e442};
    return QColor::fromRgb(colors[static_cast<std::size_t>(kind)]);
}

QColor measurement(int number)
{
    // Okabe and Ito's hues, light enough for thin lines on grey: yellow, sky blue, orange, green,
    // pink, and a pale violet.
    static constexpr std::array<QRgb, 6> colors{
        0xfff0e442, 0xff6cc4f5, 0xfff2a93b, 0xff2fd6a4, 0xffef9cc9, 0xffc3b5ff};
    return QColor::fromRgb(colors[static_cast<std::size_t>(number) % colors.size()]);
}

QColor accent()
{
    return QColor::fromRgb(0xff4fa3d9);
}

QColor text()
{
    return QColor::fromRgb(0xffd7dbe0);
}

QColor warning()
{
    return QColor::fromRgb(0xffe0a443);
}

QColor hairline()
{
    return QColor::fromRgb(0xff3a3f46);
}

} // namespace OverlayColors
