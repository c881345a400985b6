#pragma once

#include "platform/util/McVec3d.h"

/// The plane that a 2D viewer shows, in patient coordinates (mm). A plain value.
class KxSlice
{
public:
    constexpr KxSlice() = default;
    /// @param center the point in the middle of the image.
    /// @param right,down unit vectors along the image's rows (to the right) and columns
    /// (downwards); orthogonal.
    /// @param thickness of the slab shown, in mm; 0 for a plane.
    constexpr KxSlice(
        const McVec3d &center, const McVec3d &right, const McVec3d &down, double thickness = 0)
        : m_center(center)
        , m_right(right)
        , m_down(down)
        , m_thickness(thickness)
    { }

    [[nodiscard]] constexpr const McVec3d &center() const { return m_center; }
    [[nodiscard]] constexpr const McVec3d &right() const { return m_right; }
    [[nodiscard]] constexpr const McVec3d &down() const { return m_down; }
    /// Unit vector away from the observer.
    [[nodiscard]] constexpr McVec3d normal() const { return m_right.cross(m_down); }
    [[nodiscard]] constexpr double thickness() const { return m_thickness; }
    /// Signed distance of a point from the plane, along the normal.
    [[nodiscard]] constexpr double distance(const McVec3d &point) const
    {
        return (point - m_center).dot(normal());
    }

private:
    McVec3d m_center;
    McVec3d m_right{1, 0, 0};
    McVec3d m_down{0, 1, 0};
    double m_thickness = 0;
};
