#pragma once

#include "platform/render/KxVolume.h"

#include <array>

/// The eight corners of a volume's grid in patient coordinates. @param margin in voxels beyond the
/// centres of the outermost voxels: 0.5 for the outer faces.
inline std::array<McVec3d, 8> volumeCorners(const KxVolume &volume, double margin)
{
    std::array<McVec3d, 8> corners;
    for (unsigned i = 0; i < corners.size(); ++i) {
        const auto along = [&](unsigned axis) {
            return ((i >> axis) & 1U) != 0 ? volume.dimensions()[axis] - 1 + margin : -margin;
        };
        corners[i] = volume.voxelToPatient().map({along(0), along(1), along(2)});
    }
    return corners;
}
