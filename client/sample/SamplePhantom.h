#pragma once

#include "platform/util/McVec3d.h"

#include <vector>

/// A body made of simple shapes, for sample images. Shapes that come later lie upon earlier ones.
/// Positions are patient coordinates in mm.
class SamplePhantom
{
public:
    enum class Form { Ellipsoid, Cylinder, Box, Rib };

    struct Shape
    {
        Form form = Form::Ellipsoid;
        McVec3d center;
        /// Half lengths. Of a cylinder, which stands along z: the radii and half the height. Of a
        /// rib, an arch around the body: radii across and front to back, and radius of the bone.
        McVec3d size;
        double value = 0;
        /// What contrast agent adds at its peak.
        double enhancement = 0;
        /// Seconds until that peak.
        double peakTime = 0;
    };

    /// A trunk in Hounsfield units, with lungs, ribs, spine, vessels, organs, lesions, and a sphere
    /// and a cube to measure.
    static SamplePhantom trunk();
    /// A head in arbitrary magnetic resonance units.
    /// @param isWaterBright whether fluid is bright (T2) or dark (T1).
    static SamplePhantom head(bool isWaterBright);

    /// Makes ready for values near the plane through @p point with the normal @p normal: only
    /// shapes that reach it count. @param reach half the distance covered, in mm.
    [[nodiscard]] SamplePhantom near(
        const McVec3d &point, const McVec3d &normal, double reach) const;
    /// The value at a point. @param blur width of the shapes' edges, in mm.
    /// @param time seconds since contrast agent was given; below 0: none was.
    [[nodiscard]] double value(const McVec3d &point, double blur, double time) const;

private:
    explicit SamplePhantom(double air)
        : m_air(air)
    { }
    /// @param side 1 for the left lung, -1 for the right one.
    void addLungVessels(double side);
    void addSpine();
    void addRibs();

    double m_air;
    std::vector<Shape> m_shapes;
};
