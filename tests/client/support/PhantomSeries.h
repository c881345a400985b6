#pragma once

#include "client/data/LoadedSeries.h"
#include "platform/util/McHandle.h"

#include <cmath>
#include <string>

/// A body of 0 HU with a ball of 1000 HU in it, in air of -1000 HU, on grids that scanners use. The
/// ball lies at the patient's left, front and head side of the middle, so that no view of it looks
/// like its mirror image.
class PhantomSeries
{
public:
    enum class Grid {
        Axial, ///< from feet to head
        AxialFromHead, ///< from head to feet
        Sagittal,
        Coronal,
        Tilted, ///< axial images of a tilted gantry: each slice is shifted against the last
        Oblique ///< turned by 20 degrees
    };

    static constexpr McVec3d middle{12, -34, 56};
    static constexpr McVec3d ball{12 + 30, -34 - 20, 56 + 24};
    static constexpr double ballRadius = 6;
    static constexpr double body = 0;

    /// The places of the grid's voxels; its middle is at middle.
    static McTransform3d transform(Grid grid, const std::array<int, 3> &dimensions);
    /// A complete series. @param phases so many volumes, of which each next one is 100 HU brighter
    /// throughout.
    static McHandle<LoadedSeries> make(Grid grid, const std::string &uid = "phantom",
        int phases = 1, const std::string &frameOfReference = "frame",
        const QString &modality = QStringLiteral("CT"));
    static McHandle<KxVolume> makeVolume(
        Grid grid, KxVolume::ScalarType type = KxVolume::ScalarType::Int16, double offset = 0);
};

inline bool isNear(double value, double expected, double tolerance = 1e-6)
{
    return std::abs(value - expected) <= tolerance;
}
