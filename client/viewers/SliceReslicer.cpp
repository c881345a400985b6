#include "client/viewers/SliceReslicer.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

namespace {

/// Values outside the volume, for voxels of each type.
double outsideValue(KxVolume::ScalarType type)
{
    switch (type) {
    case KxVolume::ScalarType::UInt8:
        return 0;
    case KxVolume::ScalarType::Int16:
        return WindowTable::outside;
    case KxVolume::ScalarType::Float32:
        break;
    }
    return -HUGE_VAL;
}

/// Calls @p paint(line of the picture, first value of the line) for every line.
template <typename Value, typename Paint>
QImage paintLines(const SliceReslicer::Cut &cut, int components, Paint paint)
{
    QImage image(cut.pixels, QImage::Format_RGB32);
    const auto *values = static_cast<const Value *>(cut.values);
    for (int y = 0; y < image.height(); ++y) {
        paint(reinterpret_cast<QRgb *>(image.scanLine(y)), values, image.width());
        values += static_cast<std::ptrdiff_t>(image.width()) * components;
    }
    return image;
}

QImage paintColors(const SliceReslicer::Cut &cut)
{
    return paintLines<std::uint8_t>(cut, 3, [](QRgb *line, const std::uint8_t *values, int width) {
        for (int x = 0; x < width; ++x, values += 3) {
            line[x] = qRgb(values[0], values[1], values[2]);
        }
    });
}

template <typename Value>
QImage paintGreys(const SliceReslicer::Cut &cut, const WindowTable &table)
{
    return paintLines<Value>(cut, 1, [&table](QRgb *line, const Value *values, int width) {
        for (int x = 0; x < width; ++x) {
            line[x] = table.grey(values[x]);
        }
    });
}

QImage paintFloats(const SliceReslicer::Cut &cut, const KxVolume::Window &window, bool inverted)
{
    return paintLines<float>(
        cut, 1, [&window, inverted](QRgb *line, const float *values, int width) {
            for (int x = 0; x < width; ++x) {
                constexpr int brightest = 255;
                const int grey = WindowTable::level(static_cast<double>(values[x]), window);
                const int level = inverted && std::isfinite(values[x]) ? brightest - grey : grey;
                line[x] = qRgb(level, level, level);
            }
        });
}

} // namespace

SliceReslicer::SliceReslicer() = default;

SliceReslicer::~SliceReslicer() = default;

void SliceReslicer::setVolume(const McHandle<KxVolume> &volume)
{
    if (m_volume.get() == volume.get()) {
        return;
    }
    m_cut = {};
    if (!m_cutter) {
        m_cutter = SliceCutter::make();
    }
    if (m_cutter) {
        m_cutter->setVolume(volume.get(), volume ? outsideValue(volume->scalarType()) : 0);
    }
    m_volume = volume;
}

void SliceReslicer::voxelsChanged()
{
    if (m_cutter) {
        m_cutter->voxelsChanged();
    }
}

void SliceReslicer::cut(const KxSlice &slice, double mmPerPixel, const QSize &pixels)
{
    if (!m_volume || !m_cutter) {
        return;
    }
    const McTransform3d toVoxels = m_volume->voxelToPatient().inverted();
    const McVec3d right = slice.right() * mmPerPixel;
    const McVec3d down = slice.down() * mmPerPixel;
    // The middle of the first pixel; the slice's center is the middle of the picture.
    const McVec3d first = slice.center() - right * ((pixels.width() - 1) / 2.0)
        - down * ((pixels.height() - 1) / 2.0);
    const SliceCutter::Plane plane{toVoxels.map(first), toVoxels.mapDirection(right),
        toVoxels.mapDirection(down), toVoxels.mapDirection(slice.normal())};
    m_cut = {m_cutter->cut(plane, pixels), pixels};
}

QImage SliceReslicer::image(const KxVolume::Window &window, bool inverted)
{
    if (m_cut.values == nullptr) {
        return {};
    }
    if (m_volume->components() == 3) {
        return paintColors(m_cut);
    }
    switch (m_volume->scalarType()) {
    case KxVolume::ScalarType::UInt8:
        m_table.setWindow(window, inverted);
        return paintGreys<std::uint8_t>(m_cut, m_table);
    case KxVolume::ScalarType::Int16:
        m_table.setWindow(window, inverted);
        return paintGreys<std::int16_t>(m_cut, m_table);
    case KxVolume::ScalarType::Float32:
        break;
    }
    return paintFloats(m_cut, window, inverted);
}
