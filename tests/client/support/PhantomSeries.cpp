#include "tests/client/support/PhantomSeries.h"

#include <cmath>
#include <cstring>

namespace {

constexpr double inPlane = 1.5;
constexpr double betweenSlices = 2.5;

McTransform3d around(
    const McVec3d &x, const McVec3d &y, const McVec3d &z, const std::array<int, 3> &size)
{
    const McVec3d toMiddle
        = x * ((size[0] - 1) / 2.0) + y * ((size[1] - 1) / 2.0) + z * ((size[2] - 1) / 2.0);
    return {x, y, z, PhantomSeries::middle - toMiddle};
}

double valueAt(const McVec3d &point)
{
    constexpr double air = -1000;
    constexpr double ballValue = 1000;
    if ((point - PhantomSeries::ball).length() <= PhantomSeries::ballRadius) {
        return ballValue;
    }
    const McVec3d offset = point - PhantomSeries::middle;
    const bool isBody = std::abs(offset.x) < 60 && std::abs(offset.y) < 45;
    return isBody ? PhantomSeries::body : air;
}

template <typename Scalar>
void put(KxVolume &volume, int z, std::size_t index, double value)
{
    const auto scalar = static_cast<Scalar>(value);
    std::memcpy(volume.slice(z) + index * sizeof scalar, &scalar, sizeof scalar);
}

void fill(KxVolume &volume, double offset)
{
    const auto &size = volume.dimensions();
    for (int z = 0; z < size[2]; ++z) {
        std::size_t index = 0;
        for (int y = 0; y < size[1]; ++y) {
            for (int x = 0; x < size[0]; ++x, ++index) {
                const double value
                    = valueAt(volume.voxelToPatient().map({double(x), double(y), double(z)}))
                    + offset;
                if (volume.scalarType() == KxVolume::ScalarType::Int16) {
                    put<std::int16_t>(volume, z, index, value);
                } else {
                    put<float>(volume, z, index, value);
                }
            }
        }
    }
}

} // namespace

McTransform3d PhantomSeries::transform(Grid grid, const std::array<int, 3> &dimensions)
{
    const McVec3d x{inPlane, 0, 0};
    const McVec3d y{0, inPlane, 0};
    const McVec3d z{0, 0, betweenSlices};
    const double cosine = std::cos(0.35);
    const double sine = std::sin(0.35);
    switch (grid) {
    case Grid::Axial:
        return around(x, y, z, dimensions);
    case Grid::AxialFromHead:
        return around(x, y, -z, dimensions);
    case Grid::Sagittal:
        return around({0, inPlane, 0}, {0, 0, -inPlane}, {betweenSlices, 0, 0}, dimensions);
    case Grid::Coronal:
        return around(x, {0, 0, -inPlane}, {0, betweenSlices, 0}, dimensions);
    case Grid::Tilted:
        return around(x, {0, inPlane * cosine, -inPlane * sine}, z, dimensions);
    case Grid::Oblique:
        break;
    }
    return around({inPlane * cosine, inPlane * sine, 0}, {-inPlane * sine, inPlane * cosine, 0}, z,
        dimensions);
}

McHandle<KxVolume> PhantomSeries::makeVolume(Grid grid, KxVolume::ScalarType type, double offset)
{
    // The long way along the patient's axes, whichever of the grid's these are.
    const bool isAxial = grid != Grid::Sagittal && grid != Grid::Coronal;
    const std::array<int, 3> dimensions = isAxial ? std::array{96, 80, 50} : std::array{96, 84, 56};
    const McHandle<KxVolume> volume(new KxVolume(dimensions, type));
    volume->setVoxelToPatient(transform(grid, dimensions));
    volume->setUnit("HU");
    volume->setDefaultWindow({0, 2000});
    fill(*volume, offset);
    return volume;
}

McHandle<LoadedSeries> PhantomSeries::make(Grid grid, const std::string &uid, int phases,
    const std::string &frameOfReference, const QString &modality)
{
    constexpr double brighter = 100;
    const McHandle<KxImageSeries> images(new KxImageSeries(uid));
    for (int phase = 0; phase < phases; ++phase) {
        images->appendVolume(makeVolume(grid, KxVolume::ScalarType::Int16, brighter * phase),
            "t " + std::to_string(phase));
    }
    SeriesInfo info;
    info.patientName = QStringLiteral("Phantom");
    info.modality = modality;
    info.frameOfReference = frameOfReference;
    const McHandle<LoadedSeries> series(new LoadedSeries(uid, info));
    series->setImages(images);
    series->setProgress(1);
    series->setComplete();
    return series;
}
