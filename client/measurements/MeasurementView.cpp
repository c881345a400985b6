#include "client/measurements/MeasurementView.h"

#include "client/measurements/MeasurementList.h"
#include "client/measurements/MeasurementTexts.h"
#include "client/overlay/OverlayColors.h"
#include "client/viewers/SliceViewer.h"
#include "framework/viewers/ExViewerManager.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace MeasurementView {

namespace {

/// Pixels around the pointer in which a shape is found, and a handle.
constexpr double reachOfLine = 6;
constexpr double reachOfHandle = 9;

QPolygonF positions(const SliceViewer &viewer, const std::vector<McVec3d> &points)
{
    QPolygonF found;
    for (const McVec3d &point : points) {
        found.append(viewer.positionOf(point));
    }
    return found;
}

bool isClosed(const Measurement &measurement)
{
    return MeasurementGeometry::isRegion(measurement.kind)
        && (measurement.isComplete || measurement.kind != Measurement::Kind::Polygon);
}

QPolygonF line(const Measurement &measurement, const SliceViewer &viewer)
{
    QPolygonF found = positions(viewer, MeasurementGeometry::outline(measurement));
    if (isClosed(measurement) && !found.isEmpty()) {
        found.append(found.first());
    }
    return found;
}

double distanceFrom(const QPointF &position, const QLineF &side)
{
    const QPointF along = side.p2() - side.p1();
    const double square = QPointF::dotProduct(along, along);
    const double part = square > 0
        ? std::clamp(QPointF::dotProduct(position - side.p1(), along) / square, 0.0, 1.0)
        : 0.0;
    return QLineF(position, side.p1() + along * part).length();
}

std::optional<Pick> nearestHandle(
    const Measurement &measurement, const SliceViewer &viewer, const QPointF &position)
{
    std::optional<Pick> best;
    const QPolygonF handles = positions(viewer, MeasurementGeometry::handles(measurement));
    for (qsizetype i = 0; i < handles.size(); ++i) {
        const double distance = QLineF(position, handles[i]).length();
        if (distance <= reachOfHandle && (!best || distance < best->distance)) {
            best = Pick{measurement.id, static_cast<int>(i), distance};
        }
    }
    return best;
}

std::optional<Pick> nearestLine(
    const Measurement &measurement, const SliceViewer &viewer, const QPointF &position)
{
    std::optional<Pick> best;
    const QPolygonF corners = line(measurement, viewer);
    for (qsizetype i = 0; i + 1 < corners.size(); ++i) {
        const double distance = distanceFrom(position, {corners[i], corners[i + 1]});
        if (distance <= reachOfLine && (!best || distance < best->distance)) {
            best = Pick{measurement.id, -1, distance};
        }
    }
    return best;
}

bool isBetter(const Pick &pick, const std::optional<Pick> &best, int picked)
{
    if (!best || (pick.handle >= 0) != (best->handle >= 0)) {
        return !best || pick.handle >= 0;
    }
    constexpr double same = 0.5;
    const double nearer = best->distance - pick.distance;
    return std::abs(nearer) > same ? nearer > 0 : best->id != picked;
}

/// Each keeps its colour when others go.
QColor colorOf(const Measurement &measurement)
{
    return OverlayColors::measurement(measurement.id - 1);
}

} // namespace

bool isShown(const Measurement &measurement, const SliceViewer &viewer)
{
    constexpr double rounding = 1e-6;
    return viewer.volume(0) != nullptr && MeasurementGeometry::isOf(measurement, *viewer.series())
        && MeasurementGeometry::liesIn(
            measurement, viewer.shownSlice(), viewer.stack().step() / 2 + rounding);
}

std::optional<Pick> pick(const SliceViewer &viewer, const QPointF &position)
{
    const MeasurementList *const list = MeasurementList::instancePointer();
    if (list == nullptr) {
        return std::nullopt;
    }
    std::optional<Pick> best;
    for (const Measurement &each : list->all()) {
        if (!each.isComplete || !isShown(each, viewer)) {
            continue;
        }
        auto found = nearestHandle(each, viewer, position);
        if (!found) {
            found = nearestLine(each, viewer, position);
        }
        if (found && isBetter(*found, best, list->picked())) {
            best = found;
        }
    }
    return best;
}

QVector<OverlayContent::Shape> shapes(const SliceViewer &viewer)
{
    QVector<OverlayContent::Shape> found;
    const MeasurementList *const list = MeasurementList::instancePointer();
    if (list == nullptr) {
        return found;
    }
    for (const Measurement &each : list->all()) {
        if (!isShown(each, viewer)) {
            continue;
        }
        const bool isPicked = each.id == list->picked() || !each.isComplete;
        found.append({line(each, viewer), positions(viewer, MeasurementGeometry::handles(each)),
            MeasurementTexts::result(each, *list, *viewer.series(), viewer.phase()), colorOf(each),
            isPicked});
    }
    return found;
}

} // namespace MeasurementView
