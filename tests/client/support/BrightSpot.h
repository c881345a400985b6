#pragma once

#include <QImage>
#include <QPointF>

/// What of a picture is brighter than a grey: the middle of these pixels, in pixels from the middle
/// of the picture, and how many there are.
struct BrightSpot
{
    BrightSpot(const QImage &image, int grey)
    {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qGray(image.pixel(x, y)) > grey) {
                    middle += QPointF(x + 0.5, y + 0.5);
                    ++count;
                }
            }
        }
        middle = middle / std::max(count, 1) - QPointF(image.width(), image.height()) / 2;
    }

    QPointF middle;
    int count = 0;
};
