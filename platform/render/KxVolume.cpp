#include "platform/render/KxVolume.h"

#include <cstring>
#include <limits>

namespace {

std::size_t bytesPerScalar(KxVolume::ScalarType type)
{
    switch (type) {
    case KxVolume::ScalarType::UInt8:
        return sizeof(std::uint8_t);
    case KxVolume::ScalarType::Int16:
        return sizeof(std::int16_t);
    case KxVolume::ScalarType::Float32:
        break;
    }
    return sizeof(float);
}

template <typename Scalar>
double scalarAt(const std::byte *position)
{
    Scalar scalar{};
    std::memcpy(&scalar, position, sizeof scalar);
    return static_cast<double>(scalar);
}

} // namespace

KxVolume::KxVolume(const std::array<int, 3> &dimensions, ScalarType type, int components)
    : m_dimensions(dimensions)
    , m_type(type)
    , m_components(components)
    , m_voxels(bytesPerSlice() * static_cast<std::size_t>(dimensions[2]))
{ }

KxVolume::~KxVolume() = default;

std::size_t KxVolume::bytesPerSlice() const
{
    return static_cast<std::size_t>(m_dimensions[0]) * static_cast<std::size_t>(m_dimensions[1])
        * static_cast<std::size_t>(m_components) * bytesPerScalar(m_type);
}

std::byte *KxVolume::slice(int z)
{
    return m_voxels.data() + bytesPerSlice() * static_cast<std::size_t>(z);
}

const std::byte *KxVolume::slice(int z) const
{
    return m_voxels.data() + bytesPerSlice() * static_cast<std::size_t>(z);
}

double KxVolume::value(int x, int y, int z, int component) const
{
    const bool inside = x >= 0 && x < m_dimensions[0] && y >= 0 && y < m_dimensions[1] && z >= 0
        && z < m_dimensions[2] && component >= 0 && component < m_components;
    if (!inside) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    const auto pixel = static_cast<std::size_t>(y) * static_cast<std::size_t>(m_dimensions[0])
        + static_cast<std::size_t>(x);
    const std::size_t index
        = pixel * static_cast<std::size_t>(m_components) + static_cast<std::size_t>(component);
    const std::byte *const position = slice(z) + index * bytesPerScalar(m_type);
    switch (m_type) {
    case ScalarType::UInt8:
        return scalarAt<std::uint8_t>(position);
    case ScalarType::Int16:
        return scalarAt<std::int16_t>(position);
    case ScalarType::Float32:
        break;
    }
    return scalarAt<float>(position);
}

std::array<double, 3> KxVolume::spacing() const
{
    return {m_voxelToPatient.xAxis().length(), m_voxelToPatient.yAxis().length(),
        m_voxelToPatient.zAxis().length()};
}

McVec3d KxVolume::center() const
{
    return m_voxelToPatient.map(
        {(m_dimensions[0] - 1) / 2.0, (m_dimensions[1] - 1) / 2.0, (m_dimensions[2] - 1) / 2.0});
}
