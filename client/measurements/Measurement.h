#pragma once

#include "platform/render/KxSlice.h"

#include <QPointF>
#include <QPolygonF>
#include <QString>

#include <optional>
#include <string>
#include <vector>

class LoadedSeries;

/// A shape that a user has drawn on a slice to measure something. Its points are patient
/// coordinates in mm, or, for a series whose place is not known, those of its volume. A plain
/// value.
struct Measurement
{
    enum class Kind { Distance, Angle, Ellipse, Rectangle, Polygon };

    int id = 0; ///< from 1; 0 before a list has given one
    Kind kind = Kind::Distance;
    QString name;
    /// What it was drawn on.
    std::string seriesUid;
    std::string frameOfReference;
    /// The plane it was drawn in; the axes of ellipse and rectangle are the plane's.
    KxSlice plane;
    /// Distance: its ends. Angle: a point on a leg, the apex, a point on the other leg. Ellipse and
    /// rectangle: opposite corners of the rectangle around it. Polygon: its corners.
    std::vector<McVec3d> points;
    /// Not while its maker still draws it.
    bool isComplete = false;

    friend bool operator==(const Measurement &a, const Measurement &b)
    {
        return a.id == b.id && a.points == b.points && a.kind == b.kind && a.name == b.name
            && a.isComplete == b.isComplete;
    }
};

/// The geometry of measurements. Pure functions.
namespace MeasurementGeometry {

/// Whether it encloses an area.
[[nodiscard]] bool isRegion(Measurement::Kind kind);
/// Whether its points can be compared with those of images of the series.
[[nodiscard]] bool isOf(const Measurement &measurement, const LoadedSeries &series);

/// What can be dragged: the points, and of ellipse and rectangle all four corners in order around.
[[nodiscard]] std::vector<McVec3d> handles(const Measurement &measurement);
/// The line that is drawn: open for distance and angle, closed (the last point is not the first
/// once more) for regions.
[[nodiscard]] std::vector<McVec3d> outline(const Measurement &measurement);
/// The measurement with one handle moved, a region within its plane. @param handle index in
/// handles().
[[nodiscard]] Measurement withHandleMoved(
    const Measurement &measurement, std::size_t handle, const McVec3d &shift);
/// The measurement as a whole moved, a region within its plane too.
[[nodiscard]] Measurement moved(const Measurement &measurement, const McVec3d &shift);
/// Whether every point of it is at most @p reach mm before or behind the plane.
[[nodiscard]] bool liesIn(const Measurement &measurement, const KxSlice &plane, double reach);

/// A point in the measurement's plane: mm to the right of and below the plane's center.
[[nodiscard]] QPointF inPlane(const Measurement &measurement, const McVec3d &point);
/// The outline of a region in its plane, mm.
[[nodiscard]] QPolygonF outlineInPlane(const Measurement &region);

/// Between the ends, mm (or pixels).
[[nodiscard]] double distance(const Measurement &measurement);
/// At the apex, 0 to 180 degrees; nothing while a leg has no length.
[[nodiscard]] std::optional<double> angle(const Measurement &measurement);
/// Of a region, mm2 (or pixels); nothing for a polygon that crosses itself.
[[nodiscard]] std::optional<double> area(const Measurement &measurement);

} // namespace MeasurementGeometry
