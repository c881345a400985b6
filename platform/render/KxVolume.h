#pragma once

#include "platform/render/KxObject.h"
#include "platform/util/HxParamBundle.h"
#include "platform/util/McHandableThreaded.h"
#include "platform/util/McHandle.h"
#include "platform/util/McTransform3d.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Voxels on a grid, x fastest, then y, then z, and where the grid lies in the patient. Held by
/// McHandle. Filled by its maker, slice by slice; while it is being filled only one thread may
/// touch it.
class MOVARA_PLATFORM_EXPORT KxVolume : public KxObject, public virtual McHandableThreaded
{
public:
    enum class ScalarType { UInt8, Int16, Float32 };

    /// What is known of where the grid lies.
    enum class Placement {
        Patient, ///< in patient coordinates, in mm
        Millimetres, ///< only lengths: position and axes are made up
        Pixels ///< nothing: lengths are in pixels too
    };

    struct Window
    {
        double center = 0;
        double width = 1;
    };

    /// All voxels 0. @param dimensions voxels in x, y and z, each at least 1.
    /// @param components 1 for values, 3 for red, green and blue.
    KxVolume(const std::array<int, 3> &dimensions, ScalarType type, int components = 1);

    [[nodiscard]] const std::array<int, 3> &dimensions() const { return m_dimensions; }
    [[nodiscard]] ScalarType scalarType() const { return m_type; }
    [[nodiscard]] int components() const { return m_components; }
    [[nodiscard]] std::size_t bytesPerSlice() const;
    /// The first byte of slice z, 0 to dimensions()[2] - 1.
    [[nodiscard]] std::byte *slice(int z);
    [[nodiscard]] const std::byte *slice(int z) const;
    /// One voxel's value in unit(); NaN outside the grid.
    [[nodiscard]] double value(int x, int y, int z, int component = 0) const;

    /// From voxel indices (voxel centres at whole numbers) to patient coordinates in mm. May shear
    /// (gantry tilt).
    [[nodiscard]] const McTransform3d &voxelToPatient() const { return m_voxelToPatient; }
    void setVoxelToPatient(const McTransform3d &transform) { m_voxelToPatient = transform; }
    /// Whether voxelToPatient() really leads into the patient; where it does not, sides of the
    /// patient and, as the case may be, lengths must not be shown. Placement::Patient at first.
    [[nodiscard]] Placement placement() const { return m_placement; }
    void setPlacement(Placement placement) { m_placement = placement; }
    /// Lengths of the grid's steps in mm.
    [[nodiscard]] std::array<double, 3> spacing() const;
    /// The point in the middle of the grid, in patient coordinates.
    [[nodiscard]] McVec3d center() const;

    /// Unit of the values, e.g. "HU"; empty when the values have none.
    [[nodiscard]] const std::string &unit() const { return m_unit; }
    void setUnit(const std::string &unit) { m_unit = unit; }
    /// Window to start with.
    [[nodiscard]] const Window &defaultWindow() const { return m_defaultWindow; }
    void setDefaultWindow(const Window &window) { m_defaultWindow = window; }
    /// Header attributes of the volume's first file; null when there is none.
    [[nodiscard]] const McHandle<HxParamBundle> &attributes() const { return m_attributes; }
    void setAttributes(const McHandle<HxParamBundle> &attributes) { m_attributes = attributes; }

protected:
    ~KxVolume() override;

private:
    std::array<int, 3> m_dimensions;
    ScalarType m_type;
    int m_components;
    std::vector<std::byte> m_voxels;
    McTransform3d m_voxelToPatient;
    Placement m_placement = Placement::Patient;
    std::string m_unit;
    Window m_defaultWindow;
    McHandle<HxParamBundle> m_attributes;
};
