#include "platform/util/McTransform3d.h"

McTransform3d McTransform3d::inverted() const
{
    const double volume = determinant();
    if (volume == 0) {
        return {};
    }
    const McVec3d rowX = m_yAxis.cross(m_zAxis) * (1 / volume);
    const McVec3d rowY = m_zAxis.cross(m_xAxis) * (1 / volume);
    const McVec3d rowZ = m_xAxis.cross(m_yAxis) * (1 / volume);
    const McTransform3d linear(
        {rowX.x, rowY.x, rowZ.x}, {rowX.y, rowY.y, rowZ.y}, {rowX.z, rowY.z, rowZ.z}, {});
    return {linear.xAxis(), linear.yAxis(), linear.zAxis(), -linear.mapDirection(m_origin)};
}

McTransform3d McTransform3d::after(const McTransform3d &first) const
{
    return {mapDirection(first.xAxis()), mapDirection(first.yAxis()), mapDirection(first.zAxis()),
        map(first.origin())};
}
