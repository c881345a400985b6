#pragma once

#include <cmath>

/// Point or direction in space. Positions of patients are in millimetres in the DICOM patient
/// coordinate system: x towards the patient's left, y towards the back, z towards the head.
struct McVec3d
{
    double x = 0;
    double y = 0;
    double z = 0;

    [[nodiscard]] constexpr double dot(const McVec3d &b) const
    {
        return x * b.x + y * b.y + z * b.z;
    }
    [[nodiscard]] constexpr McVec3d cross(const McVec3d &b) const
    {
        return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
    }
    [[nodiscard]] double length() const { return std::sqrt(dot(*this)); }
    /// The vector of length 1 in this direction; the null vector stays null.
    [[nodiscard]] McVec3d normalized() const
    {
        const double size = length();
        return size > 0 ? McVec3d{x / size, y / size, z / size} : McVec3d{};
    }

    friend constexpr McVec3d operator+(const McVec3d &a, const McVec3d &b)
    {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr McVec3d operator-(const McVec3d &a, const McVec3d &b)
    {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend constexpr McVec3d operator-(const McVec3d &a) { return {-a.x, -a.y, -a.z}; }
    friend constexpr McVec3d operator*(const McVec3d &a, double factor)
    {
        return {a.x * factor, a.y * factor, a.z * factor};
    }
    friend constexpr McVec3d operator*(double factor, const McVec3d &a) { return a * factor; }
    friend constexpr bool operator==(const McVec3d &, const McVec3d &) = default;
};
