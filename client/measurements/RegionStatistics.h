#pragma once

#include <optional>

struct Measurement;
class KxVolume;

/// The values of a volume inside a region. A plain value.
struct RegionStatistics
{
    /// Whether these are voxels as they were acquired; otherwise samples between voxels.
    bool areVoxels = false;
    /// How many of these there are; values outside the volume do not count.
    int count = 0;
    double mean = 0;
    double deviation = 0; ///< of the population, not of a sample
    double minimum = 0;
    double maximum = 0;

    /// Where the region lies on a plane of the volume's grid, of the voxels whose centres are in
    /// it. On any other plane, of interpolated values on a grid in that plane, as fine as the
    /// volume's finest. Nothing for a region without values: too small, outside the volume, in
    /// colour images, or of a line that crosses itself.
    [[nodiscard]] static std::optional<RegionStatistics> of(
        const Measurement &region, const KxVolume &volume);
};
