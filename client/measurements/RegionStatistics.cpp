#include "client/measurements/RegionStatistics.h"

#include "client/measurements/Measurement.h"
#include "platform/render/KxVolume.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/// A region this near to a plane of voxels, in their distances, lies on it.
constexpr double onGrid = 0.02;
/// Sine of the angle by which a plane may differ from one of the grid and count as it.
constexpr double parallelSine = 1e-3;

/// Sums by Welford's method: no loss of digits for values far from 0.
class Sums
{
public:
    void add(double value)
    {
        if (std::isnan(value)) {
            return;
        }
        ++m_result.count;
        const double offset = value - m_result.mean;
        m_result.mean += offset / m_result.count;
        m_squares += offset * (value - m_result.mean);
        m_result.minimum = m_result.count == 1 ? value : std::min(m_result.minimum, value);
        m_result.maximum = m_result.count == 1 ? value : std::max(m_result.maximum, value);
    }

    [[nodiscard]] std::optional<RegionStatistics> result(bool areVoxels) const
    {
        if (m_result.count == 0) {
            return std::nullopt;
        }
        RegionStatistics done = m_result;
        done.areVoxels = areVoxels;
        done.deviation = std::sqrt(m_squares / m_result.count);
        return done;
    }

private:
    RegionStatistics m_result;
    double m_squares = 0;
};

/// The columns of a transform and the components of a point by number.
McVec3d axis(const McTransform3d &transform, int i)
{
    const std::array axes{transform.xAxis(), transform.yAxis(), transform.zAxis()};
    return axes.at(static_cast<std::size_t>(i));
}

double component(const McVec3d &v, int i)
{
    return std::array{v.x, v.y, v.z}.at(static_cast<std::size_t>(i));
}

McVec3d unit(int i)
{
    return {i == 0 ? 1.0 : 0.0, i == 1 ? 1.0 : 0.0, i == 2 ? 1.0 : 0.0};
}

/// Which index of the grid is one and the same all over the region's plane, and its value.
struct GridPlane
{
    int axis;
    int index;
};

std::optional<GridPlane> gridPlane(const Measurement &region, const KxVolume &volume)
{
    const McTransform3d &toPatient = volume.voxelToPatient();
    const McVec3d normal = region.plane.normal();
    const McVec3d place = toPatient.inverted().map(region.points.front());
    for (int i = 0; i < 3; ++i) {
        const double a = axis(toPatient, (i + 1) % 3).normalized().dot(normal);
        const double b = axis(toPatient, (i + 2) % 3).normalized().dot(normal);
        const double index = std::round(component(place, i));
        if (std::abs(a) < parallelSine && std::abs(b) < parallelSine
            && std::abs(component(place, i) - index) < onGrid) {
            return GridPlane{i, static_cast<int>(index)};
        }
    }
    return std::nullopt;
}

std::optional<RegionStatistics> ofVoxels(const Measurement &region, const QPolygonF &line,
    const KxVolume &volume, const GridPlane &plane)
{
    const McTransform3d toVoxels = volume.voxelToPatient().inverted();
    const int across = (plane.axis + 1) % 3;
    const int along = (plane.axis + 2) % 3;
    QPolygonF inVoxels;
    for (const McVec3d &point : MeasurementGeometry::outline(region)) {
        const McVec3d place = toVoxels.map(point);
        inVoxels.append({component(place, across), component(place, along)});
    }
    const QRectF bounds = inVoxels.boundingRect();
    const auto &size = volume.dimensions();
    const int lastAcross = std::min(static_cast<int>(std::floor(bounds.right())),
        size.at(static_cast<std::size_t>(across)) - 1);
    const int lastAlong = std::min(static_cast<int>(std::floor(bounds.bottom())),
        size.at(static_cast<std::size_t>(along)) - 1);
    Sums sums;
    for (int v = std::max(static_cast<int>(std::ceil(bounds.top())), 0); v <= lastAlong; ++v) {
        for (int u = std::max(static_cast<int>(std::ceil(bounds.left())), 0); u <= lastAcross;
             ++u) {
            const McVec3d voxel
                = unit(plane.axis) * plane.index + unit(across) * u + unit(along) * v;
            const McVec3d point = volume.voxelToPatient().map(voxel);
            if (line.containsPoint(MeasurementGeometry::inPlane(region, point), Qt::OddEvenFill)) {
                sums.add(volume.value(static_cast<int>(voxel.x), static_cast<int>(voxel.y),
                    static_cast<int>(voxel.z)));
            }
        }
    }
    return sums.result(true);
}

/// Trilinear; NaN where one of the eight voxels around is outside.
double interpolated(const KxVolume &volume, const McVec3d &place)
{
    const McVec3d corner{std::floor(place.x), std::floor(place.y), std::floor(place.z)};
    const McVec3d part = place - corner;
    double sum = 0;
    for (int i = 0; i < 8; ++i) {
        const int dx = i & 1;
        const int dy = (i >> 1) & 1;
        const int dz = (i >> 2) & 1;
        const double weight = (dx == 1 ? part.x : 1 - part.x) * (dy == 1 ? part.y : 1 - part.y)
            * (dz == 1 ? part.z : 1 - part.z);
        if (weight > 0) { // The outermost voxels have no neighbours on one side.
            sum += weight
                * volume.value(static_cast<int>(corner.x) + dx, static_cast<int>(corner.y) + dy,
                    static_cast<int>(corner.z) + dz);
        }
    }
    return sum;
}

std::optional<RegionStatistics> ofSamples(
    const Measurement &region, const QPolygonF &line, const KxVolume &volume)
{
    constexpr double mostSamples = 1e6;
    const McTransform3d toVoxels = volume.voxelToPatient().inverted();
    const KxSlice &plane = region.plane;
    // The points of a region may lie a little before or behind the plane it was drawn in.
    const McVec3d origin = plane.center() + plane.normal() * plane.distance(region.points.front());
    const auto spacing = volume.spacing();
    const QRectF bounds = line.boundingRect();
    const double step = std::max(*std::min_element(spacing.begin(), spacing.end()),
        std::sqrt(bounds.width() * bounds.height() / mostSamples));
    Sums sums;
    for (double y = bounds.top() + step / 2; y < bounds.bottom(); y += step) {
        for (double x = bounds.left() + step / 2; x < bounds.right(); x += step) {
            if (line.containsPoint({x, y}, Qt::OddEvenFill)) {
                sums.add(interpolated(
                    volume, toVoxels.map(origin + plane.right() * x + plane.down() * y)));
            }
        }
    }
    return sums.result(false);
}

} // namespace

std::optional<RegionStatistics> RegionStatistics::of(
    const Measurement &region, const KxVolume &volume)
{
    const bool hasValues = volume.components() == 1 && region.points.size() > 1
        && volume.voxelToPatient().determinant() != 0;
    if (!hasValues || !MeasurementGeometry::area(region)) {
        return std::nullopt;
    }
    const QPolygonF line = MeasurementGeometry::outlineInPlane(region);
    const auto plane = gridPlane(region, volume);
    return plane ? ofVoxels(region, line, volume, *plane) : ofSamples(region, line, volume);
}
