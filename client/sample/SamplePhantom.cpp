#include "client/sample/SamplePhantom.h"

#include "client/sample/SampleStudy.h"

#include <algorithm>
#include <cmath>

namespace {

using Form = SamplePhantom::Form;
using Shape = SamplePhantom::Shape;

/// About how far a point is outside an ellipsoid, in mm; negative inside.
double outsideEllipsoid(const McVec3d &p, const McVec3d &size)
{
    const double scaled = McVec3d{p.x / size.x, p.y / size.y, p.z / size.z}.length();
    return (scaled - 1) * std::min({size.x, size.y, size.z});
}

double outsideCylinder(const McVec3d &p, const McVec3d &size)
{
    const double round = (std::hypot(p.x / size.x, p.y / size.y) - 1) * std::min(size.x, size.y);
    return std::max(round, std::abs(p.z) - size.z);
}

double outsideBox(const McVec3d &p, const McVec3d &size)
{
    return std::max({std::abs(p.x) - size.x, std::abs(p.y) - size.y, std::abs(p.z) - size.z});
}

/// Ribs begin at the spine (y > 0), sink towards the front and end beside the breastbone.
double outsideRib(const McVec3d &p, const McVec3d &size)
{
    constexpr double drop = 45;
    const double angle = std::atan2(p.y / size.y, p.x / size.x);
    const double height = drop * (std::sin(angle) - 1) / 2;
    const McVec3d nearest{size.x * std::cos(angle), size.y * std::sin(angle), height};
    const double gap = 22 - std::abs(p.x); // the breastbone's place, at the front only
    const double outside = (p - nearest).length() - size.z;
    return p.y < 0 ? std::max(outside, gap) : outside;
}

double outside(const Shape &shape, const McVec3d &point)
{
    const McVec3d p = point - shape.center;
    switch (shape.form) {
    case Form::Ellipsoid:
        return outsideEllipsoid(p, shape.size);
    case Form::Cylinder:
        return outsideCylinder(p, shape.size);
    case Form::Box:
        return outsideBox(p, shape.size);
    case Form::Rib:
        break;
    }
    return outsideRib(p, shape.size);
}

/// Radius of a ball around the centre beyond which the shape, its edge of @p reach mm included,
/// does not show. The edge of a long ellipsoid is wider at its ends.
double ballRadius(const Shape &shape, double reach)
{
    const McVec3d &size = shape.size;
    switch (shape.form) {
    case Form::Ellipsoid:
        return std::max({size.x, size.y, size.z})
            * (1 + reach / std::min({size.x, size.y, size.z}));
    case Form::Cylinder:
        return size.length() * (1 + reach / std::min(size.x, size.y));
    case Form::Box:
        return size.length() + 2 * reach;
    case Form::Rib:
        break;
    }
    return size.length() + 50 + reach;
}

/// The share of the full enhancement at a time: rises to the peak, then washes out slowly.
double contrastAt(double time, double peakTime)
{
    if (time <= 0 || peakTime <= 0) {
        return 0;
    }
    const double t = time / peakTime;
    return t * std::exp(1 - t);
}

} // namespace

void SamplePhantom::addSpine()
{
    constexpr double height = 30;
    for (int i = -5; i <= 5; ++i) {
        const McVec3d center{0, 55, i * height};
        m_shapes.push_back({Form::Cylinder, center, {24, 18, 12}, 650});
        m_shapes.push_back({Form::Cylinder, center, {21, 15, 10}, 220});
        m_shapes.push_back({Form::Box, center + McVec3d{0, 38, -6}, {4, 16, 7}, 480});
        m_shapes.push_back({Form::Box, center + McVec3d{0, 24, -2}, {30, 5, 5}, 480});
        m_shapes.push_back({Form::Cylinder, center + McVec3d{0, 0, height / 2}, {22, 16, 3}, 90});
    }
    m_shapes.push_back({Form::Cylinder, {0, 80, 0}, {9, 8, 400}, 25});
}

void SamplePhantom::addRibs()
{
    for (int i = 0; i <= 6; ++i) {
        const McVec3d center{0, 0, -10 + i * 25.0};
        m_shapes.push_back({Form::Rib, center, {148, 98, 5}, 420});
    }
    m_shapes.push_back({Form::Box, {0, -98, 60}, {17, 5, 60}, 300});
}

void SamplePhantom::addLungVessels(double side)
{
    constexpr int branches = 14;
    constexpr int beads = 16;
    const McVec3d root{side * 34, 14, 66};
    for (int branch = 0; branch < branches; ++branch) {
        // Spread like the florets of a sunflower over the half sphere that faces outwards.
        const double turn = 2.399963 * branch;
        const double rise = 1.7 * (branch + 0.5) / branches - 0.85;
        const double wide = std::sqrt(1 - rise * rise);
        const McVec3d end = root
            + McVec3d{side * 66 * wide * (0.35 + 0.5 * std::abs(std::cos(turn))),
                62 * wide * std::sin(turn), 78 * rise};
        for (int bead = 0; bead < beads; ++bead) {
            const double share = static_cast<double>(bead) / beads;
            const double radius = 4.6 - 3.4 * share;
            const McVec3d bend{0, 0, 10 * share * (1 - share)};
            m_shapes.push_back({Form::Ellipsoid, root + (end - root) * share + bend,
                {radius, radius, radius}, 40, 160, 14});
        }
    }
}

SamplePhantom SamplePhantom::trunk()
{
    SamplePhantom body(-1000);
    body.m_shapes = {
        {Form::Cylinder, {0, 0, 0}, {170, 118, 400}, -105}, // fat
        {Form::Cylinder, {0, 0, 0}, {156, 104, 400}, 52, 15, 60}, // muscle
        {Form::Ellipsoid, {78, 4, 78}, {58, 74, 96}, -860},
        {Form::Ellipsoid, {-78, 4, 78}, {62, 74, 100}, -860},
        {Form::Ellipsoid, {-86, 22, 104}, {7, 7, 7}, 35, 40, 40}, // a nodule
        {Form::Ellipsoid, {18, -34, 30}, {52, 42, 46}, 42, 70, 25}, // heart
        {Form::Ellipsoid, {26, -32, 26}, {24, 20, 26}, 45, 260, 18},
        {Form::Ellipsoid, {-70, -14, -52}, {74, 68, 56}, 58, 60, 65}, // liver
        {Form::Ellipsoid, {-92, -30, -44}, {15, 15, 15}, 22, 5, 60}, // lesions of the liver
        {Form::Ellipsoid, {-56, 16, -62}, {8, 8, 8}, 30, 120, 22},
        {Form::Ellipsoid, {92, 26, -40}, {30, 42, 38}, 48, 90, 40}, // spleen
        {Form::Ellipsoid, {72, 46, -98}, {24, 26, 38}, 32, 170, 35}, // kidneys
        {Form::Ellipsoid, {-72, 46, -104}, {24, 26, 38}, 32, 170, 35},
        {Form::Cylinder, {16, 24, 0}, {13, 13, 400}, 44, 300, 16}, // aorta
        {Form::Cylinder, {-18, 20, -60}, {12, 10, 120}, 42, 150, 50}, // vena cava
    };
    body.addLungVessels(1);
    body.addLungVessels(-1);
    body.addSpine();
    body.addRibs();
    const double radius = SampleStudy::sphereDiameter / 2;
    const double half = SampleStudy::cubeEdge / 2;
    body.m_shapes.push_back(
        {Form::Ellipsoid, SampleStudy::sphereCenter, {radius, radius, radius}, 200});
    body.m_shapes.push_back({Form::Box, SampleStudy::cubeCenter, {half, half, half}, 300});
    return body;
}

SamplePhantom SamplePhantom::head(bool isWaterBright)
{
    const auto either
        = [isWaterBright](double dark, double bright) { return isWaterBright ? bright : dark; };
    SamplePhantom head(4);
    head.m_shapes = {
        {Form::Ellipsoid, {0, 0, 0}, {78, 98, 96}, either(720, 420)}, // scalp
        {Form::Cylinder, {0, 22, -110}, {56, 60, 60}, either(330, 240)}, // neck
        {Form::Ellipsoid, {0, 0, 0}, {73, 93, 91}, 30}, // bone
        {Form::Ellipsoid, {0, 0, 0}, {68, 88, 86}, either(110, 900)}, // fluid around the brain
        {Form::Ellipsoid, {26, 0, 6}, {37, 84, 77}, either(430, 520)}, // grey matter, two halves
        {Form::Ellipsoid, {-26, 0, 6}, {37, 84, 77}, either(430, 520)},
        {Form::Ellipsoid, {29, 0, 8}, {26, 74, 64}, either(620, 330)}, // white matter
        {Form::Ellipsoid, {-29, 0, 8}, {26, 74, 64}, either(620, 330)},
        {Form::Box, {0, 0, 46}, {1.6, 78, 30}, either(110, 900)}, // the cleft between
        {Form::Ellipsoid, {0, 6, 14}, {16, 34, 10}, either(640, 320)}, // the bridge between
        {Form::Ellipsoid, {13, 0, 8}, {7, 36, 13}, either(110, 900)}, // ventricles
        {Form::Ellipsoid, {-13, 0, 8}, {7, 36, 13}, either(110, 900)},
        {Form::Ellipsoid, {0, 52, -48}, {44, 28, 22}, either(460, 480)}, // cerebellum
        {Form::Cylinder, {0, 24, -64}, {14, 13, 46}, either(600, 350)}, // brain stem
        {Form::Ellipsoid, {-38, -30, 26}, {11, 11, 11}, either(330, 780)}, // a lesion
        {Form::Ellipsoid, {26, -90, -20}, {14, 13, 13}, either(120, 880)}, // eyes
        {Form::Ellipsoid, {-26, -90, -20}, {14, 13, 13}, either(120, 880)},
    };
    return head;
}

SamplePhantom SamplePhantom::near(const McVec3d &point, const McVec3d &normal, double reach) const
{
    SamplePhantom result(m_air);
    std::copy_if(m_shapes.begin(), m_shapes.end(), std::back_inserter(result.m_shapes),
        [&](const Shape &shape) {
            return std::abs((shape.center - point).dot(normal)) <= ballRadius(shape, reach);
        });
    return result;
}

double SamplePhantom::value(const McVec3d &point, double blur, double time) const
{
    double value = m_air;
    for (const Shape &shape : m_shapes) {
        const double share = std::clamp(0.5 - outside(shape, point) / blur, 0.0, 1.0);
        if (share > 0) {
            const double own = shape.value + shape.enhancement * contrastAt(time, shape.peakTime);
            value += share * (own - value);
        }
    }
    return value;
}
