#include "client/measurements/Measurement.h"

#include "client/data/LoadedSeries.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace MeasurementGeometry {

namespace {

/// An ellipse is drawn as a polygon of so many corners: less than a tenth of a percent of its size
/// off the true line.
constexpr int ellipseCorners = 96;

bool hasBox(Measurement::Kind kind)
{
    return kind == Measurement::Kind::Ellipse || kind == Measurement::Kind::Rectangle;
}

McVec3d pointAt(const Measurement &measurement, const QPointF &place)
{
    const KxSlice &plane = measurement.plane;
    return plane.center() + plane.right() * place.x() + plane.down() * place.y();
}

QRectF box(const Measurement &measurement)
{
    return {inPlane(measurement, measurement.points.front()),
        inPlane(measurement, measurement.points.back())};
}

std::vector<McVec3d> ellipse(const Measurement &measurement)
{
    const QRectF around = box(measurement);
    std::vector<McVec3d> line;
    line.reserve(ellipseCorners);
    for (int i = 0; i < ellipseCorners; ++i) {
        const double angle = 2 * std::numbers::pi * i / ellipseCorners;
        line.push_back(pointAt(measurement,
            around.center()
                + QPointF(std::cos(angle) * around.width(), std::sin(angle) * around.height())
                    / 2));
    }
    return line;
}

/// As much of a shift as leaves a region in its plane.
McVec3d allowed(const Measurement &measurement, const McVec3d &shift)
{
    const McVec3d normal = measurement.plane.normal();
    return isRegion(measurement.kind) ? shift - normal * shift.dot(normal) : shift;
}

bool crossesItself(const QPolygonF &polygon)
{
    const qsizetype count = polygon.size();
    const auto side = [&](qsizetype i) { return QLineF(polygon[i], polygon[(i + 1) % count]); };
    for (qsizetype i = 0; i < count; ++i) {
        // Neighbours meet at their common corner.
        const qsizetype end = i == 0 ? count - 1 : count;
        for (qsizetype j = i + 2; j < end; ++j) {
            if (side(i).intersects(side(j), nullptr) == QLineF::BoundedIntersection) {
                return true;
            }
        }
    }
    return false;
}

double areaOf(const QPolygonF &polygon)
{
    double twice = 0;
    for (qsizetype i = 0; i < polygon.size(); ++i) {
        const QPointF &a = polygon[i];
        const QPointF &b = polygon[(i + 1) % polygon.size()];
        twice += a.x() * b.y() - b.x() * a.y();
    }
    return std::abs(twice) / 2;
}

} // namespace

bool isRegion(Measurement::Kind kind)
{
    return kind != Measurement::Kind::Distance && kind != Measurement::Kind::Angle;
}

bool isOf(const Measurement &measurement, const LoadedSeries &series)
{
    return series.uid() == measurement.seriesUid
        || (series.placement() == KxVolume::Placement::Patient
            && !measurement.frameOfReference.empty()
            && series.info().frameOfReference == measurement.frameOfReference);
}

std::vector<McVec3d> handles(const Measurement &measurement)
{
    if (!hasBox(measurement.kind) || measurement.points.size() < 2) {
        return measurement.points;
    }
    // Not normalized: the corner that is dragged may pass the opposite one.
    const QPointF a = inPlane(measurement, measurement.points.front());
    const QPointF b = inPlane(measurement, measurement.points.back());
    return {measurement.points.front(), pointAt(measurement, {b.x(), a.y()}),
        measurement.points.back(), pointAt(measurement, {a.x(), b.y()})};
}

std::vector<McVec3d> outline(const Measurement &measurement)
{
    const bool isEllipse
        = measurement.kind == Measurement::Kind::Ellipse && measurement.points.size() >= 2;
    return isEllipse ? ellipse(measurement) : handles(measurement);
}

Measurement withHandleMoved(
    const Measurement &measurement, std::size_t handle, const McVec3d &shift)
{
    Measurement changed = measurement;
    const McVec3d by = allowed(measurement, shift);
    if (!hasBox(measurement.kind)) {
        changed.points.at(handle) = measurement.points.at(handle) + by;
        return changed;
    }
    const McVec3d right = measurement.plane.right() * by.dot(measurement.plane.right());
    const McVec3d down = measurement.plane.down() * by.dot(measurement.plane.down());
    const bool movesFirstColumn = handle == 0 || handle == 3;
    const bool movesFirstRow = handle == 0 || handle == 1;
    McVec3d &columnOwner = movesFirstColumn ? changed.points.front() : changed.points.back();
    columnOwner = columnOwner + right;
    McVec3d &rowOwner = movesFirstRow ? changed.points.front() : changed.points.back();
    rowOwner = rowOwner + down;
    return changed;
}

Measurement moved(const Measurement &measurement, const McVec3d &shift)
{
    Measurement changed = measurement;
    const McVec3d by = allowed(measurement, shift);
    for (McVec3d &point : changed.points) {
        point = point + by;
    }
    return changed;
}

bool liesIn(const Measurement &measurement, const KxSlice &plane, double reach)
{
    const std::vector<McVec3d> line = outline(measurement);
    return std::all_of(line.begin(), line.end(),
        [&](const McVec3d &point) { return std::abs(plane.distance(point)) <= reach; });
}

QPointF inPlane(const Measurement &measurement, const McVec3d &point)
{
    const McVec3d offset = point - measurement.plane.center();
    return {offset.dot(measurement.plane.right()), offset.dot(measurement.plane.down())};
}

QPolygonF outlineInPlane(const Measurement &region)
{
    QPolygonF polygon;
    for (const McVec3d &point : outline(region)) {
        polygon.append(inPlane(region, point));
    }
    return polygon;
}

double distance(const Measurement &measurement)
{
    return (measurement.points.back() - measurement.points.front()).length();
}

std::optional<double> angle(const Measurement &measurement)
{
    if (measurement.points.size() < 3) {
        return std::nullopt;
    }
    const McVec3d first = measurement.points[0] - measurement.points[1];
    const McVec3d second = measurement.points[2] - measurement.points[1];
    if (first.length() == 0 || second.length() == 0) {
        return std::nullopt;
    }
    // Unlike the arc cosine, exact for small angles too.
    return std::atan2(first.cross(second).length(), first.dot(second)) * 180 / std::numbers::pi;
}

std::optional<double> area(const Measurement &measurement)
{
    if (measurement.kind == Measurement::Kind::Polygon) {
        const QPolygonF polygon = outlineInPlane(measurement);
        return crossesItself(polygon) ? std::nullopt : std::optional(areaOf(polygon));
    }
    const QRectF around = box(measurement).normalized();
    const double part = measurement.kind == Measurement::Kind::Ellipse ? std::numbers::pi / 4 : 1.0;
    return around.width() * around.height() * part;
}

} // namespace MeasurementGeometry
