#pragma once

#include "client/geometry/PlaneKind.h"
#include "platform/render/KxSlice.h"
#include "platform/render/KxVolume.h"
#include "platform/util/McVec3d.h"

/// How a slice viewer shows its series, to be shown so again later. A plain value.
struct SliceView
{
    PlaneKind plane = PlaneKind::Axial;
    PlaneKind ownPlane = PlaneKind::Axial; ///< what an oblique plane was turned away from
    KxSlice slice;
    double zoom = 1; ///< device-independent pixels for a millimetre
    bool isFitting = true; ///< the zoom follows the size of the viewer
    KxVolume::Window window;
    bool isInverted = false;
    bool isFlippedAcross = false;
    bool isFlippedDown = false;
};

/// The same of a 3D viewer.
struct VolumeView
{
    McVec3d viewDirection{0, 1, 0};
    McVec3d up{0, 0, 1};
    double zoom = 1;
    bool isFitting = true;
    KxVolume::Window window;
};
