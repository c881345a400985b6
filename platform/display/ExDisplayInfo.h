#pragma once

#include <QString>

/// One display: place and size on the desktop in device-independent pixels.
struct ExDisplayInfo
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    /// Whether the desktop calls it the primary one; at most one display is.
    bool primary = false;
    /// Name of the connector or device as the window system tells it, e.g. "DP-1".
    QString name;
    /// Serial number; empty when the window system does not tell it.
    QString serial;
    /// Pixels of the device per device-independent pixel.
    double scale = 1;
};
