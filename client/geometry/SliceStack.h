#pragma once

#include "platform/util/McVec3d.h"

class KxSlice;
class KxVolume;

/// The parallel planes through a volume that scrolling goes through, in scrolling order: from head
/// to feet for axial planes, away from the observer for all others. A plain value.
class SliceStack
{
public:
    /// One plane at position 0.
    SliceStack() = default;
    /// The planes parallel to @p slice. They lie on the volume's own grid where the slice is
    /// parallel to it, so that unaltered images are seen, and are one grid step apart in any case.
    SliceStack(const KxSlice &slice, const KxVolume &volume);

    /// At least 1.
    [[nodiscard]] int count() const { return m_count; }
    /// Distance of neighbouring planes, mm.
    [[nodiscard]] double step() const { return m_step; }
    /// Unit vector in which the planes are counted.
    [[nodiscard]] const McVec3d &direction() const { return m_direction; }
    /// Distance from the origin of the patient coordinates, along direction(), of plane @p index.
    [[nodiscard]] double position(int index) const { return m_first + m_step * index; }
    /// The plane next to a point, 0 to count() - 1.
    [[nodiscard]] int nearestIndex(const McVec3d &point) const;
    /// The point moved straight onto plane @p index, which is brought into range.
    [[nodiscard]] McVec3d moved(const McVec3d &point, int index) const;

private:
    McVec3d m_direction{0, 0, 1};
    double m_first = 0;
    double m_step = 1;
    int m_count = 1;
};
