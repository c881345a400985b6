#pragma once

#include <QString>

/// Length of a scale bar: the longest round one (1, 2 or 5 times a power of ten) that fits.
struct ScaleBar
{
    double millimetres = 0;
    QString label;

    /// @param room in mm, above 0.
    static ScaleBar fitting(double room);
};
