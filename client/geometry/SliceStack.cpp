#include "client/geometry/SliceStack.h"

#include "client/geometry/VolumeCorners.h"
#include "platform/render/KxSlice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// More than half of a direction along the body counts as along the body.
constexpr double alongBody = 0.7;

McVec3d scrollDirection(const McVec3d &normal)
{
    const bool goesToHead = normal.z > alongBody;
    return goesToHead ? -normal : normal;
}

/// Of the grid's three directions, the distance that one step takes along @p direction in the one
/// that runs most along it.
double gridStep(const KxVolume &volume, const McVec3d &direction)
{
    const McVec3d inVoxels = volume.voxelToPatient().inverted().mapDirection(direction);
    const double most
        = std::max({std::abs(inVoxels.x), std::abs(inVoxels.y), std::abs(inVoxels.z)});
    return most > 0 ? 1 / most : 1;
}

} // namespace

SliceStack::SliceStack(const KxSlice &slice, const KxVolume &volume)
    : m_direction(scrollDirection(slice.normal()))
    , m_step(gridStep(volume, m_direction))
{
    double lowest = m_direction.dot(volume.center());
    double highest = lowest;
    for (const McVec3d &corner : volumeCorners(volume, 0)) {
        const double position = m_direction.dot(corner);
        lowest = std::min(lowest, position);
        highest = std::max(highest, position);
    }
    // Whatever does not make a full step lies half before and half behind the planes.
    const int steps = static_cast<int>(std::floor((highest - lowest) / m_step + 1e-3));
    m_count = steps + 1;
    m_first = (lowest + highest - steps * m_step) / 2;
}

int SliceStack::nearestIndex(const McVec3d &point) const
{
    const double index = (m_direction.dot(point) - m_first) / m_step;
    return static_cast<int>(std::lround(std::clamp(index, 0.0, static_cast<double>(m_count - 1))));
}

McVec3d SliceStack::moved(const McVec3d &point, int index) const
{
    const double target = position(std::clamp(index, 0, m_count - 1));
    return point + m_direction * (target - m_direction.dot(point));
}
