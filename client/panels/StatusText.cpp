#include "client/panels/StatusText.h"

#include "client/overlay/OverlayColors.h"

namespace {

/// That of the overlays is made for a dark ground.
QColor warningOn(const QColor &ground)
{
    constexpr int middle = 128;
    constexpr int halfAsBright = 200;
    const QColor bright = OverlayColors::warning();
    return ground.lightness() < middle ? bright : bright.darker(halfAsBright);
}

} // namespace

void StatusText::showText(const QString &text)
{
    m_isWarning = false;
    setPalette({}); // That of the window again.
    setText(text);
}

void StatusText::showWarning(const QString &text)
{
    m_isWarning = true;
    QPalette colors;
    colors.setColor(QPalette::WindowText, warningOn(palette().color(QPalette::Window)));
    setPalette(colors);
    setText(text);
}
