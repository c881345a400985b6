#include "tests/support/FakeScreen.h"

#include <QtMath>

#include <algorithm>

QRect FakeScreen::screenRect(int screen) const
{
    return {screen * width, 0, width, height};
}

QString FakeScreen::screenName(int screen) const
{
    return QStringLiteral("Screen %1").arg(screen + 1);
}

QRect FakeScreen::childRect(const QWidget * /*widget*/, const McBox2f &box) const
{
    const int totalWidth = std::max(screens, 1) * width;
    const auto at
        = [](float share, int whole) { return qRound(share * static_cast<float>(whole)); };
    const QPoint topLeft(at(box.xMin(), totalWidth), at(box.yMin(), height));
    const QPoint bottomRight(at(box.xMax(), totalWidth) - 1, at(box.yMax(), height) - 1);
    return {topLeft, bottomRight};
}
