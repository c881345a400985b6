#include "client/geometry/PlaneGeometry.h"
#include "client/geometry/SliceStack.h"
#include "client/overlay/ScaleBar.h"
#include "tests/client/support/PhantomSeries.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

/// Planes, the stacks that scrolling goes through, letters of the patient's sides.
class tst_PlaneGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lettersOfObliqueDirections()
    {
        QCOMPARE(PlaneGeometry::orientationLetters({0.1, 0.2, -0.97}), u"F"_s);
        QCOMPARE(PlaneGeometry::orientationLetters({-0.5, -0.8, 0.33}), u"ARH"_s);
        QCOMPARE(PlaneGeometry::orientationLetters({0.7071, -0.7071, 0}), u"LA"_s);
    }

    void stacks()
    {
        struct Case
        {
            Grid grid;
            PlaneKind plane;
            int count;
            double step;
            QString direction;
            double first; ///< along the direction
        };
        const double reach = 49 * 2.5 / 2;
        const double tilt = 0.35;
        const Case cases[] = {
            {Grid::Axial, PlaneKind::Axial, 50, 2.5, u"F"_s, -56 - reach}, // counted from the head,
            {Grid::AxialFromHead, PlaneKind::Axial, 50, 2.5, u"F"_s, -56 - reach}, // in any order
            {Grid::Axial, PlaneKind::Sagittal, 96, 1.5, u"R"_s, -12 - 95 * 1.5 / 2},
            {Grid::Axial, PlaneKind::Coronal, 80, 1.5, u"P"_s, -34 - 79 * 1.5 / 2},
            // The distance of the slices, not their shift
            {Grid::Tilted, PlaneKind::Original, 50, 2.5 * std::cos(tilt), u"FA"_s,
                34 * std::sin(tilt) - (56 + reach) * std::cos(tilt)}};
        for (const Case &c : cases) {
            const McHandle<KxVolume> volume = PhantomSeries::makeVolume(c.grid);
            const SliceStack stack(PlaneGeometry::plane(c.plane, *volume), *volume);
            QCOMPARE(stack.count(), c.count);
            QVERIFY2(isNear(stack.step(), c.step), qPrintable(QString::number(stack.step())));
            QCOMPARE(PlaneGeometry::orientationLetters(stack.direction()), c.direction);
            QVERIFY2(
                isNear(stack.position(0), c.first), qPrintable(QString::number(stack.position(0))));
        }
    }

    void stackMovesStraight()
    {
        const McHandle<KxVolume> volume = PhantomSeries::makeVolume(Grid::Axial);
        const SliceStack stack(PlaneGeometry::plane(PlaneKind::Axial, *volume), *volume);
        const McVec3d point{1, 2, 300};
        QCOMPARE(stack.nearestIndex(point), 0);
        QCOMPARE(stack.nearestIndex({1, 2, -300}), 49);
        const McVec3d moved = stack.moved(point, 49);
        QVERIFY((moved - McVec3d{1, 2, 56 - 49 * 2.5 / 2}).length() < 1e-9);
        QVERIFY(stack.moved(point, 1000) == moved); // brought into range
    }

    void intersection()
    {
        const KxSlice axial({0, 0, 10}, {1, 0, 0}, {0, 1, 0});
        const KxSlice sagittal({7, 0, 0}, {0, 1, 0}, {0, 0, -1});
        const auto inAxial = PlaneGeometry::intersection(axial, sagittal, 100);
        QVERIFY(inAxial.has_value());
        QCOMPARE(inAxial->x1(), 7.0);
        QCOMPARE(inAxial->x2(), 7.0);
        QCOMPARE(std::abs(inAxial->y2() - inAxial->y1()), 200.0);
        const auto inSagittal = PlaneGeometry::intersection(sagittal, axial, 100);
        QCOMPARE(inSagittal->y1(), -10.0); // 10 mm towards the head is up
        QVERIFY(!PlaneGeometry::intersection(axial, {{0, 0, 20}, {1, 0, 0}, {0, 1, 0}}, 100));
        QVERIFY(!PlaneGeometry::intersection(axial, {{0, 0, 20}, {1, 0, 0}, {0, -1, 0}}, 100));
    }

    void rotationKeepsRightAngles()
    {
        KxSlice slice({1, 2, 3}, {1, 0, 0}, {0, 1, 0});
        for (int i = 0; i < 1000; ++i) {
            slice = PlaneGeometry::rotated(slice, slice.down(), 0.01);
            slice = PlaneGeometry::rotated(slice, McVec3d{1, 0, 0}, 0.003);
        }
        QVERIFY(isNear(slice.right().dot(slice.down()), 0, 1e-12));
        QVERIFY(isNear(slice.right().length(), 1, 1e-12));
        QVERIFY(isNear(slice.down().length(), 1, 1e-12));
        QVERIFY(slice.center() == (McVec3d{1, 2, 3}));
        const KxSlice quarter
            = PlaneGeometry::rotated({{}, {1, 0, 0}, {0, 1, 0}}, {0, 0, 1}, std::acos(0.0));
        QVERIFY((quarter.right() - McVec3d{0, 1, 0}).length() < 1e-12);
    }

    void scaleBars()
    {
        const std::tuple<double, double, const char *> rows[] = {{50, 50, "5 cm"},
            {49.9, 20, "2 cm"}, {7, 5, "5 mm"}, {0.3, 0.2, "0.2 mm"}, {230, 200, "20 cm"}};
        for (const auto &[room, length, label] : rows) {
            const ScaleBar bar = ScaleBar::fitting(room);
            QCOMPARE(bar.millimetres, length);
            QCOMPARE(bar.label, QLatin1String(label));
        }
    }
};

QTEST_GUILESS_MAIN(tst_PlaneGeometry)
#include "tst_PlaneGeometry.moc"
