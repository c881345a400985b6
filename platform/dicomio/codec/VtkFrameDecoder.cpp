#include "platform/dicomio/codec/VtkFrameDecoder.h"

#include "platform/dicomio/codec/DicomInflating.h"
#include "platform/dicomio/codec/DicomParsing.h"

#include <vtkDICOMApplyPalette.h>
#include <vtkDICOMReader.h>
#include <vtkExecutive.h>
#include <vtkNew.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <mutex>

namespace {

/// How a stored value becomes a voxel's value.
struct Conversion
{
    double slope = 1;
    double intercept = 0;
    int shift = 0; ///< bits to drop, of colours with more than 8
};

Conversion conversionOf(const DicomFileHeader &file, int frameIndex)
{
    const DicomFrame &frame = file.frames[static_cast<std::size_t>(frameIndex)];
    Conversion conversion{frame.slope, frame.intercept, std::max(file.bitsStored - 8, 0)};
    if (file.isInverted()) {
        const double sum = static_cast<double>(file.lowestStored()) + file.highestStored();
        conversion.intercept += conversion.slope * sum;
        conversion.slope = -conversion.slope;
    }
    return conversion;
}

template <typename Target>
Target rounded(double value)
{
    if constexpr (std::is_floating_point_v<Target>) {
        return static_cast<Target>(value);
    } else {
        const double low = std::numeric_limits<Target>::min();
        const double high = std::numeric_limits<Target>::max();
        return static_cast<Target>(std::lrint(std::clamp(value, low, high)));
    }
}

template <typename Target, typename Stored>
void rescale(const Stored *from, std::size_t count, const Conversion &conversion, std::byte *to)
{
    for (std::size_t i = 0; i < count; ++i) {
        const auto value = rounded<Target>(
            static_cast<double>(from[i]) * conversion.slope + conversion.intercept);
        std::memcpy(to + i * sizeof value, &value, sizeof value);
    }
}

template <typename Stored>
void toBytes(const Stored *from, std::size_t count, const Conversion &conversion, std::byte *to)
{
    for (std::size_t i = 0; i < count; ++i) {
        const auto value = static_cast<std::int64_t>(from[i]) >> conversion.shift;
        to[i] = static_cast<std::byte>(std::clamp<std::int64_t>(value, 0, 255));
    }
}

template <typename Stored>
void convert(const void *from, std::size_t count, const Conversion &conversion,
    KxVolume::ScalarType type, std::vector<std::byte> &voxels)
{
    const auto *const stored = static_cast<const Stored *>(from);
    switch (type) {
    case KxVolume::ScalarType::UInt8:
        voxels.resize(count);
        toBytes(stored, count, conversion, voxels.data());
        return;
    case KxVolume::ScalarType::Int16:
        voxels.resize(count * sizeof(std::int16_t));
        rescale<std::int16_t>(stored, count, conversion, voxels.data());
        return;
    case KxVolume::ScalarType::Float32:
        voxels.resize(count * sizeof(float));
        rescale<float>(stored, count, conversion, voxels.data());
        return;
    }
}

using Converter = void (*)(
    const void *, std::size_t, const Conversion &, KxVolume::ScalarType, std::vector<std::byte> &);

Converter converterOf(int vtkType)
{
    switch (vtkType) {
    case VTK_CHAR:
    case VTK_SIGNED_CHAR:
        return &convert<std::int8_t>;
    case VTK_UNSIGNED_CHAR:
        return &convert<std::uint8_t>;
    case VTK_SHORT:
        return &convert<std::int16_t>;
    case VTK_UNSIGNED_SHORT:
        return &convert<std::uint16_t>;
    case VTK_INT:
        return &convert<std::int32_t>;
    case VTK_UNSIGNED_INT:
        return &convert<std::uint32_t>;
    default:
        return nullptr;
    }
}

} // namespace

std::string VtkFrameDecoder::read(const DicomFileHeader &header)
{
    m_image = nullptr;
    VtkMessages messages;
    const vtkNew<vtkDICOMReader> reader;
    const vtkNew<vtkDICOMApplyPalette> palette;
    for (vtkAlgorithm *const algorithm :
        {static_cast<vtkAlgorithm *>(reader), static_cast<vtkAlgorithm *>(palette)}) {
        messages.observe(algorithm);
        messages.observe(algorithm->GetExecutive());
    }
    const std::unique_ptr<InflatedDicom> inflated(
        header.isDeflated ? new InflatedDicom(header.file) : nullptr);
    const McFilename &name = inflated ? inflated->file() : header.file;
    reader->SetFileName(name.c_str());
    reader->SortingOff();
    reader->AutoRescaleOff();
    reader->SetMemoryRowOrderToFileNative();
    // The codecs of compressed pixels keep static tables; two viewers may load at the same time.
    static std::mutex codecs;
    std::unique_lock lock(codecs, std::defer_lock);
    if (header.isCompressed) {
        lock.lock();
    }
    reader->Update();
    vtkImageData *decoded = reader->GetOutput();
    if (messages.firstError().empty() && header.photometric == "PALETTE COLOR") {
        palette->SetInputConnection(reader->GetOutputPort());
        palette->Update();
        decoded = vtkImageData::SafeDownCast(palette->GetOutputDataObject(0));
    }
    if (messages.firstError().empty() && reader->GetErrorCode() == 0) {
        m_image = decoded;
        m_file = header.file;
        return {};
    }
    return messages.firstError().empty() ? "The pixels cannot be read." : messages.firstError();
}

std::string VtkFrameDecoder::decode(const DicomFileHeader &file, int frame,
    KxVolume::ScalarType type, std::vector<std::byte> &voxels)
{
    if (!m_image || m_file != file.file) {
        std::string error = read(file);
        if (!error.empty()) {
            return error;
        }
    }
    std::array<int, 3> size{};
    m_image->GetDimensions(size.data());
    const int components = file.isColour() ? 3 : 1;
    const bool fits = size[0] == file.columns && size[1] == file.rows && frame < size[2]
        && m_image->GetNumberOfScalarComponents() == components;
    const Converter converter = fits ? converterOf(m_image->GetScalarType()) : nullptr;
    if (!converter) {
        return "The pixels do not have the form that the header tells.";
    }
    const std::size_t count = static_cast<std::size_t>(file.columns)
        * static_cast<std::size_t>(file.rows) * static_cast<std::size_t>(components);
    const Conversion conversion = conversionOf(file, frame);
    converter(m_image->GetScalarPointer(0, 0, frame), count, conversion, type, voxels);
    return {};
}
