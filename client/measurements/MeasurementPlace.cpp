#include "client/measurements/MeasurementPlace.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/measurements/Measurement.h"
#include "client/measurements/MeasurementView.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/WorkstationViewerManager.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace MeasurementPlace {

namespace {

McVec3d middle(const Measurement &measurement)
{
    McVec3d sum;
    for (const McVec3d &point : measurement.points) {
        sum = sum + point;
    }
    return sum * (1.0 / static_cast<double>(measurement.points.size()));
}

bool isSamePlane(const KxSlice &a, const KxSlice &b)
{
    constexpr double almostOne = 0.9999;
    return std::abs(a.normal().dot(b.normal())) > almostOne;
}

/// In the order in which they count.
auto fitness(const Measurement &measurement, const SliceViewer &viewer)
{
    return std::tuple(viewer.widget()->isVisible(), viewer.series()->uid() == measurement.seriesUid,
        isSamePlane(viewer.shownSlice(), measurement.plane),
        ExViewerManager::isActiveViewer(viewer));
}

/// Turns an oblique plane, which has no name that it could be set by.
void turnTo(const KxSlice &plane, SliceViewer &viewer)
{
    const McVec3d from = viewer.shownSlice().normal();
    McVec3d to = plane.normal();
    to = from.dot(to) < 0 ? -to : to; // The other way about is the same plane.
    const McVec3d axis = from.cross(to);
    if (axis.length() > 0) {
        viewer.rotate(axis.normalized(), std::atan2(axis.length(), from.dot(to)));
    }
}

} // namespace

PlaneKind planeKind(const Measurement &measurement, const KxVolume &volume)
{
    for (const PlaneKind kind :
        {PlaneKind::Axial, PlaneKind::Sagittal, PlaneKind::Coronal, PlaneKind::Original}) {
        if (isSamePlane(PlaneGeometry::plane(kind, volume), measurement.plane)) {
            return kind;
        }
    }
    return PlaneKind::Oblique;
}

QString sliceText(const Measurement &measurement, const LoadedSeries &series)
{
    const KxVolume *const volume
        = series.images() != nullptr ? series.images()->volume(0) : nullptr;
    if (volume == nullptr || measurement.points.empty()) {
        return {};
    }
    const SliceStack stack(measurement.plane, *volume);
    return QStringLiteral("%1 %2/%3")
        .arg(PlaneGeometry::name(planeKind(measurement, *volume)))
        .arg(stack.nearestIndex(middle(measurement)) + 1)
        .arg(stack.count());
}

SliceViewer *viewerFor(const Measurement &measurement)
{
    SliceViewer *best = nullptr;
    for (WorkstationViewer *each : WorkstationViewerManager::all()) {
        auto *const viewer = dynamic_cast<SliceViewer *>(each);
        const bool canShow = viewer != nullptr && viewer->volume(0) != nullptr
            && MeasurementGeometry::isOf(measurement, *viewer->series());
        if (canShow && (!best || fitness(measurement, *viewer) > fitness(measurement, *best))) {
            best = viewer;
        }
    }
    return best;
}

void show(const Measurement &measurement, SliceViewer &viewer)
{
    if (measurement.points.empty() || viewer.volume(0) == nullptr) {
        return;
    }
    if (!isSamePlane(viewer.shownSlice(), measurement.plane)) {
        const PlaneKind kind = planeKind(measurement, *viewer.volume(0));
        kind == PlaneKind::Oblique ? turnTo(measurement.plane, viewer) : viewer.setPlane(kind);
    }
    const McVec3d point = middle(measurement);
    viewer.scrollTo(point);
    if (!QRectF(viewer.widget()->rect()).contains(viewer.positionOf(point))) {
        viewer.pan(point - viewer.shownSlice().center());
    }
}

} // namespace MeasurementPlace
