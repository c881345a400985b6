#include "client/app/BenchmarkVolume.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

constexpr std::array<int, 3> dimensions{512, 512, 150};
constexpr double pixelSpacing = 0.7;
constexpr double sliceSpacing = 2;

/// Rings and noise: nothing that a cache or a branch could guess.
void fillSlice(KxVolume &volume, int z)
{
    std::vector<std::int16_t> line(static_cast<std::size_t>(dimensions[0]));
    std::uint32_t random = static_cast<std::uint32_t>(z) * 2654435761U + 1;
    for (int y = 0; y < dimensions[1]; ++y) {
        for (int x = 0; x < dimensions[0]; ++x) {
            random = random * 1664525U + 1013904223U;
            const int radius = ((x - 256) * (x - 256) + (y - 256) * (y - 256)) / 64 + z * 4;
            line[static_cast<std::size_t>(x)]
                = static_cast<std::int16_t>(radius % 400 - 200 + static_cast<int>(random >> 26));
        }
        std::memcpy(volume.slice(z) + static_cast<std::size_t>(y) * line.size() * sizeof(line[0]),
            line.data(), line.size() * sizeof(line[0]));
    }
}

} // namespace

McHandle<LoadedSeries> makeBenchmarkSeries()
{
    const McHandle<KxVolume> volume(new KxVolume(dimensions, KxVolume::ScalarType::Int16));
    volume->setVoxelToPatient(McTransform3d(
        {pixelSpacing, 0, 0}, {0, pixelSpacing, 0}, {0, 0, sliceSpacing}, {-179, -179, -149}));
    volume->setUnit("HU");
    volume->setDefaultWindow({40, 400});
    for (int z = 0; z < dimensions[2]; ++z) {
        fillSlice(*volume, z);
    }
    const McHandle<KxImageSeries> images(new KxImageSeries("benchmark"));
    images->appendVolume(volume, "");
    SeriesInfo info;
    info.patientName = QStringLiteral("Benchmark");
    info.patientId = QStringLiteral("BM-1");
    info.seriesDescription = QStringLiteral("512 x 512 x 150, 16 bit");
    info.modality = QStringLiteral("CT");
    info.frameOfReference = "benchmark";
    McHandle<LoadedSeries> series(new LoadedSeries("benchmark", info));
    series->setImages(images);
    series->setProgress(1);
    series->setComplete();
    return series;
}
