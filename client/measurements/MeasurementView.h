#pragma once

#include "client/overlay/OverlayContent.h"

#include <QPointF>

#include <optional>

struct Measurement;
class SliceViewer;

/// Measurements as a slice viewer shows them. Positions are device-independent pixels in its
/// widget. Pure functions of the present MeasurementList; without one there is nothing.
namespace MeasurementView {

/// Which measurement, or handle of it, is at a place.
struct Pick
{
    int id = 0;
    /// Index in MeasurementGeometry::handles(); -1 for the shape itself.
    int handle = -1;
    /// Pixels from the place.
    double distance = 0;
};

/// Whether a measurement lies in the shown plane, within half a step of the viewer's planes.
[[nodiscard]] bool isShown(const Measurement &measurement, const SliceViewer &viewer);
/// The nearest handle in reach or, without one, the nearest line; of what is equally near the
/// picked measurement's, then the one made last. Not the one that is being drawn.
[[nodiscard]] std::optional<Pick> pick(const SliceViewer &viewer, const QPointF &position);
/// All that are shown.
[[nodiscard]] QVector<OverlayContent::Shape> shapes(const SliceViewer &viewer);

} // namespace MeasurementView
