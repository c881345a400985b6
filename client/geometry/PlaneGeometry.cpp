#include "client/geometry/PlaneGeometry.h"

#include "client/geometry/VolumeCorners.h"
#include "platform/render/KxVolume.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>

namespace PlaneGeometry {

namespace {

/// Below the sine of this angle (15 degrees) a component of a direction is not told.
constexpr double faintComponent = 0.26;
/// Planes whose normals are closer than about 18 degrees show the same view.
constexpr double parallelCosine = 0.95;

struct Axes
{
    McVec3d right;
    McVec3d down;
};

constexpr Axes axialAxes{{1, 0, 0}, {0, 1, 0}};
constexpr Axes sagittalAxes{{0, 1, 0}, {0, 0, -1}};
constexpr Axes coronalAxes{{1, 0, 0}, {0, 0, -1}};

/// The acquired rows and columns, made orthogonal where the grid is not quite.
Axes originalAxes(const KxVolume &volume)
{
    const McVec3d right = volume.voxelToPatient().xAxis().normalized();
    const McVec3d column = volume.voxelToPatient().yAxis();
    return {right, (column - right * column.dot(right)).normalized()};
}

Axes axesOf(PlaneKind kind, const KxVolume &volume)
{
    switch (kind) {
    case PlaneKind::Axial:
        return axialAxes;
    case PlaneKind::Sagittal:
        return sagittalAxes;
    case PlaneKind::Coronal:
        return coronalAxes;
    case PlaneKind::Original:
    case PlaneKind::Oblique:
        break;
    }
    return originalAxes(volume);
}

/// Rodrigues' formula.
McVec3d turned(const McVec3d &v, const McVec3d &axis, double angle)
{
    const double cosine = std::cos(angle);
    return v * cosine + axis.cross(v) * std::sin(angle) + axis * (axis.dot(v) * (1 - cosine));
}

} // namespace

QString name(PlaneKind kind)
{
    static constexpr std::array names{QT_TRANSLATE_NOOP("Plane", "Axial"),
        QT_TRANSLATE_NOOP("Plane", "Sagittal"), QT_TRANSLATE_NOOP("Plane", "Coronal"),
        QT_TRANSLATE_NOOP("Plane", "Original"), QT_TRANSLATE_NOOP("Plane", "Oblique")};
    return QCoreApplication::translate("Plane", names[static_cast<std::size_t>(kind)]);
}

KxSlice plane(PlaneKind kind, const KxVolume &volume)
{
    const Axes axes = axesOf(kind, volume);
    return {volume.center(), axes.right, axes.down};
}

QString orientationLetters(const McVec3d &direction)
{
    struct Side
    {
        double amount;
        QChar letter;
    };
    const auto side = [](double value, char positive, char negative) {
        return Side{std::abs(value), QLatin1Char(value > 0 ? positive : negative)};
    };
    std::array sides{
        side(direction.x, 'L', 'R'), side(direction.y, 'P', 'A'), side(direction.z, 'H', 'F')};
    std::stable_sort(sides.begin(), sides.end(),
        [](const Side &a, const Side &b) { return a.amount > b.amount; });
    QString letters;
    for (const Side &each : sides) {
        if (each.amount >= faintComponent) {
            letters += each.letter;
        }
    }
    return letters;
}

KxSlice rotated(const KxSlice &slice, const McVec3d &axis, double angle)
{
    const McVec3d right = turned(slice.right(), axis, angle).normalized();
    const McVec3d down = turned(slice.down(), axis, angle);
    // Many small turns must not let the axes drift from the right angle.
    return {
        slice.center(), right, (down - right * down.dot(right)).normalized(), slice.thickness()};
}

std::optional<QLineF> intersection(const KxSlice &slice, const KxSlice &other, double reach)
{
    if (isParallel(slice, other)) {
        return std::nullopt;
    }
    const double a = slice.right().dot(other.normal());
    const double b = slice.down().dot(other.normal());
    const double c = other.distance(slice.center());
    const double square = a * a + b * b;
    const QPointF nearest(-c * a / square, -c * b / square);
    const QPointF along = QPointF(-b, a) * (reach / std::sqrt(square));
    return QLineF(nearest - along, nearest + along);
}

bool isParallel(const KxSlice &a, const KxSlice &b)
{
    return std::abs(a.normal().dot(b.normal())) > parallelCosine;
}

QSizeF halfExtent(const KxSlice &slice, const KxVolume &volume)
{
    double width = 0;
    double height = 0;
    for (const McVec3d &corner : volumeCorners(volume, 0.5)) {
        const McVec3d offset = corner - slice.center();
        width = std::max(width, std::abs(offset.dot(slice.right())));
        height = std::max(height, std::abs(offset.dot(slice.down())));
    }
    return {width, height};
}

} // namespace PlaneGeometry
