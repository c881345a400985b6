#include "client/viewers/SliceReslicer.h"

#include "client/viewers/VolumeImage.h"

#include <vtkImageData.h>
#include <vtkImageReslice.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkSmartPointer.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

struct SliceReslicer::Pipeline
{
    vtkSmartPointer<vtkImageData> input;
    vtkNew<vtkImageReslice> reslice;
    vtkNew<vtkMatrix4x4> axes;
    bool hasCut = false;
};

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

/// Rounding must not keep a plane along the grid from VTK's quick path for such planes.
double clean(double value)
{
    constexpr double tiny = 1e-9;
    return std::abs(value) < tiny ? 0 : value;
}

void setColumn(vtkMatrix4x4 &matrix, int column, const McVec3d &value)
{
    matrix.SetElement(0, column, clean(value.x));
    matrix.SetElement(1, column, clean(value.y));
    matrix.SetElement(2, column, clean(value.z));
}

/// Calls @p paint(line of the picture, first value of the line) for every line.
template <typename Value, typename Paint>
QImage paintLines(vtkImageData &cut, Paint paint)
{
    const std::array size{cut.GetDimensions()[0], cut.GetDimensions()[1]};
    const int components = cut.GetNumberOfScalarComponents();
    QImage image(size[0], size[1], QImage::Format_RGB32);
    const auto *values = static_cast<const Value *>(cut.GetScalarPointer());
    for (int y = 0; y < size[1]; ++y) {
        paint(reinterpret_cast<QRgb *>(image.scanLine(y)), values, size[0]);
        values += static_cast<std::ptrdiff_t>(size[0]) * components;
    }
    return image;
}

QImage paintColors(vtkImageData &cut)
{
    return paintLines<std::uint8_t>(cut, [](QRgb *line, const std::uint8_t *values, int width) {
        for (int x = 0; x < width; ++x, values += 3) {
            line[x] = qRgb(values[0], values[1], values[2]);
        }
    });
}

template <typename Value>
QImage paintGreys(vtkImageData &cut, const WindowTable &table)
{
    return paintLines<Value>(cut, [&table](QRgb *line, const Value *values, int width) {
        for (int x = 0; x < width; ++x) {
            line[x] = table.grey(values[x]);
        }
    });
}

QImage paintFloats(vtkImageData &cut, const KxVolume::Window &window, bool inverted)
{
    return paintLines<float>(cut, [&window, inverted](QRgb *line, const float *values, int width) {
        for (int x = 0; x < width; ++x) {
            constexpr int brightest = 255;
            const int grey = WindowTable::level(static_cast<double>(values[x]), window);
            const int level = inverted && std::isfinite(values[x]) ? brightest - grey : grey;
            line[x] = qRgb(level, level, level);
        }
    });
}

} // namespace

SliceReslicer::SliceReslicer()
    : m_pipeline(std::make_unique<Pipeline>())
{
    m_pipeline->reslice->SetInterpolationModeToLinear();
    m_pipeline->reslice->SetOutputOrigin(0, 0, 0);
    m_pipeline->reslice->SetOutputSpacing(1, 1, 1);
    m_pipeline->reslice->SetResliceAxes(m_pipeline->axes);
}

SliceReslicer::~SliceReslicer() = default;

void SliceReslicer::setVolume(const McHandle<KxVolume> &volume)
{
    if (m_volume.get() == volume.get()) {
        return;
    }
    m_volume = volume;
    m_pipeline->hasCut = false;
    m_pipeline->input = volume ? volumeImage(*volume, false) : nullptr;
    m_pipeline->reslice->SetInputData(m_pipeline->input);
    if (volume) {
        const double outside = outsideValue(volume->scalarType());
        m_pipeline->reslice->SetBackgroundColor(outside, outside, outside, outside);
    }
}

void SliceReslicer::voxelsChanged()
{
    if (m_pipeline->input) {
        m_pipeline->input->Modified();
    }
}

void SliceReslicer::cut(const KxSlice &slice, double mmPerPixel, const QSize &pixels)
{
    if (!m_volume) {
        return;
    }
    const McTransform3d toVoxels = m_volume->voxelToPatient().inverted();
    const McVec3d right = slice.right() * mmPerPixel;
    const McVec3d down = slice.down() * mmPerPixel;
    // The middle of the first pixel; the slice's center is the middle of the picture.
    const McVec3d first = slice.center() - right * ((pixels.width() - 1) / 2.0)
        - down * ((pixels.height() - 1) / 2.0);
    vtkMatrix4x4 &axes = *m_pipeline->axes;
    setColumn(axes, 0, toVoxels.mapDirection(right));
    setColumn(axes, 1, toVoxels.mapDirection(down));
    setColumn(axes, 2, toVoxels.mapDirection(slice.normal()));
    setColumn(axes, 3, toVoxels.map(first));
    axes.Modified();
    m_pipeline->reslice->SetOutputExtent(0, pixels.width() - 1, 0, pixels.height() - 1, 0, 0);
    m_pipeline->reslice->Update();
    m_pipeline->hasCut = true;
}

QImage SliceReslicer::image(const KxVolume::Window &window, bool inverted)
{
    if (!m_pipeline->hasCut) {
        return {};
    }
    vtkImageData &cut = *m_pipeline->reslice->GetOutput();
    if (m_volume->components() == 3) {
        return paintColors(cut);
    }
    switch (m_volume->scalarType()) {
    case KxVolume::ScalarType::UInt8:
        m_table.setWindow(window, inverted);
        return paintGreys<std::uint8_t>(cut, m_table);
    case KxVolume::ScalarType::Int16:
        m_table.setWindow(window, inverted);
        return paintGreys<std::int16_t>(cut, m_table);
    case KxVolume::ScalarType::Float32:
        break;
    }
    return paintFloats(cut, window, inverted);
}
