#pragma once

#include "client/geometry/PlaneKind.h"
#include "platform/render/KxSlice.h"

#include <QLineF>
#include <QSizeF>
#include <QString>

#include <optional>

class KxVolume;

/// The geometry of planes through a volume, in patient coordinates (mm). Pure functions.
namespace PlaneGeometry {

/// Name of a plane for the user.
QString name(PlaneKind kind);

/// The plane of this kind through the middle of a volume, as radiologists look at it: the patient's
/// right on the left of axial and coronal images, axial ones seen from the feet, sagittal ones from
/// the patient's left. Oblique gives the original plane.
KxSlice plane(PlaneKind kind, const KxVolume &volume);

/// Letters of the side of the patient towards which a direction points, the strongest first, e.g.
/// "L", "PH"; components that turn it by less than about 15 degrees are left out.
QString orientationLetters(const McVec3d &direction);

/// The plane turned about an axis (unit vector) through its center. @param angle in radians.
KxSlice rotated(const KxSlice &slice, const McVec3d &axis, double angle);

/// Where @p other cuts @p slice: two points in the coordinates of @p slice (mm to the right of and
/// below its center), @p reach mm to either side of the point next to the center. Nothing for
/// planes that are parallel, or as good as.
std::optional<QLineF> intersection(const KxSlice &slice, const KxSlice &other, double reach);

/// Whether two planes show the same view, seen from the same side or from the other one: to be
/// scrolled together.
bool isParallel(const KxSlice &a, const KxSlice &b);

/// Half the size in mm (width, height) of the rectangle, around the slice's center, that holds
/// everything that the slice's plane can show of a volume when it is scrolled.
QSizeF halfExtent(const KxSlice &slice, const KxVolume &volume);

} // namespace PlaneGeometry
