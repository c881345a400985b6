#pragma once

#include "platform/MovaraPlatformExport.h"
#include "platform/util/McVec3d.h"

/// Affine transform of space: the images of the three axes and of the origin. Shear is allowed, so
/// that the grid of a gantry-tilted CT is one transform. The default is the identity.
class MOVARA_PLATFORM_EXPORT McTransform3d
{
public:
    constexpr McTransform3d() = default;
    constexpr McTransform3d(
        const McVec3d &xAxis, const McVec3d &yAxis, const McVec3d &zAxis, const McVec3d &origin)
        : m_xAxis(xAxis)
        , m_yAxis(yAxis)
        , m_zAxis(zAxis)
        , m_origin(origin)
    { }

    [[nodiscard]] const McVec3d &xAxis() const { return m_xAxis; }
    [[nodiscard]] const McVec3d &yAxis() const { return m_yAxis; }
    [[nodiscard]] const McVec3d &zAxis() const { return m_zAxis; }
    [[nodiscard]] const McVec3d &origin() const { return m_origin; }

    /// Image of a point.
    [[nodiscard]] McVec3d map(const McVec3d &point) const { return m_origin + mapDirection(point); }
    /// Image of a direction: as map(), without the origin.
    [[nodiscard]] McVec3d mapDirection(const McVec3d &direction) const
    {
        return m_xAxis * direction.x + m_yAxis * direction.y + m_zAxis * direction.z;
    }
    /// Signed volume of the image of the unit cube; 0 when the transform cannot be inverted.
    [[nodiscard]] double determinant() const { return m_xAxis.cross(m_yAxis).dot(m_zAxis); }
    /// The transform back. Only for a determinant other than 0; otherwise the identity is given.
    [[nodiscard]] McTransform3d inverted() const;
    /// The transform that first applies @p first, then this one.
    [[nodiscard]] McTransform3d after(const McTransform3d &first) const;

    friend constexpr bool operator==(const McTransform3d &, const McTransform3d &) = default;

private:
    McVec3d m_xAxis{1, 0, 0};
    McVec3d m_yAxis{0, 1, 0};
    McVec3d m_zAxis{0, 0, 1};
    McVec3d m_origin;
};
