#pragma once

#include "client/geometry/PlaneKind.h"

#include <QString>

struct Measurement;
class KxVolume;
class LoadedSeries;
class SliceViewer;

/// Where measurements lie, and how they are brought into sight. Pure functions of the viewer
/// manager's viewers; without a manager there are none.
namespace MeasurementPlace {

/// The kind of plane that it was drawn in; Oblique for any that is none of the others.
[[nodiscard]] PlaneKind planeKind(const Measurement &measurement, const KxVolume &volume);
/// The plane and its number for the user, e.g. "Axial 12/50"; for a series without volumes empty.
[[nodiscard]] QString sliceText(const Measurement &measurement, const LoadedSeries &series);
/// The slice viewer that shows it with least change: one of its series before one that shares its
/// coordinates, then one with a parallel plane, then the active one. Null when none can show it.
[[nodiscard]] SliceViewer *viewerFor(const Measurement &measurement);
/// Turns the viewer to the measurement's plane where its own is another one, scrolls to its slice,
/// and brings it into the picture when its middle is outside.
void show(const Measurement &measurement, SliceViewer &viewer);

} // namespace MeasurementPlace
