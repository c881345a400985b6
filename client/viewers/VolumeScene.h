#pragma once

#include "platform/render/KxVolume.h"
#include "platform/util/McHandle.h"
#include "platform/util/McVec3d.h"

#include <QSize>

/// One picture of a volume: what, from where, how large, how good. A plain value that goes to the
/// render thread.
struct VolumeScene
{
    McHandle<KxVolume> volume; ///< complete: nobody writes to it any more
    McVec3d viewDirection{0, 1, 0}; ///< unit vector away from the observer; here from the front
    McVec3d up{0, 0, 1}; ///< unit vector, at a right angle to viewDirection
    double mmPerPixel = 1;
    QSize pixels;
    /// Values below the window are clear, those above it opaque.
    KxVolume::Window window;
    bool isQuick = false;
    int number = 0; ///< of the wish: tells its picture from those of earlier ones
};
