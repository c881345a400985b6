#include "client/geometry/PlaneGeometry.h"
#include "client/geometry/SliceStack.h"
#include "client/overlay/ScaleBar.h"
#include "tests/client/support/PhantomSeries.h"
#include "tests/support/Rows.h"

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

namespace {

KxVolume *axialVolume()
{
    static const McHandle<KxVolume> volume = PhantomSeries::makeVolume(Grid::Axial);
    return volume;
}

} // namespace

/// Planes, the stacks that scrolling goes through, letters of the patient's sides.
class tst_PlaneGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lettersOfStandardPlanes_data()
    {
        const Rows<Grid, PlaneKind, QString, QString, QString> row(
            "grid", "plane", "right", "down", "away");
        row("axial", Grid::Sagittal, PlaneKind::Axial, "L", "P", "H");
        row("sagittal", Grid::Axial, PlaneKind::Sagittal, "P", "F", "R");
        row("coronal", Grid::Axial, PlaneKind::Coronal, "L", "F", "P");
        row("original of coronal images", Grid::Coronal, PlaneKind::Original, "L", "F", "P");
        row("original of tilted images", Grid::Tilted, PlaneKind::Original, "L", "PF", "HP");
    }

    void lettersOfStandardPlanes()
    {
        QFETCH(Grid, grid);
        QFETCH(PlaneKind, plane);
        const McHandle<KxVolume> volume = PhantomSeries::makeVolume(grid);
        const KxSlice slice = PlaneGeometry::plane(plane, *volume);
        QTEST(PlaneGeometry::orientationLetters(slice.right()), "right");
        QTEST(PlaneGeometry::orientationLetters(slice.down()), "down");
        QTEST(PlaneGeometry::orientationLetters(slice.normal()), "away");
        QVERIFY((slice.center() - PhantomSeries::middle).length() < 1e-9);
    }

    void lettersOfObliqueDirections()
    {
        QCOMPARE(PlaneGeometry::orientationLetters({0.1, 0.2, -0.97}), u"F"_s);
        QCOMPARE(PlaneGeometry::orientationLetters({-0.5, -0.8, 0.33}), u"ARH"_s);
        QCOMPARE(PlaneGeometry::orientationLetters({0.7071, -0.7071, 0}), u"LA"_s);
    }

    void stacks_data()
    {
        // first: along the direction
        const Rows<Grid, PlaneKind, int, double, QString, double> row(
            "grid", "plane", "count", "step", "direction", "first");
        const double reach = 49 * 2.5 / 2;
        row("axial, counted from the head", Grid::Axial, PlaneKind::Axial, 50, 2.5, "F",
            -56 - reach);
        row("axial, stored from the head", Grid::AxialFromHead, PlaneKind::Axial, 50, 2.5, "F",
            -56 - reach);
        row("sagittal, through the pixels of axial images", Grid::Axial, PlaneKind::Sagittal, 96,
            1.5, "R", -12 - 95 * 1.5 / 2);
        row("coronal, away from the observer", Grid::Axial, PlaneKind::Coronal, 80, 1.5, "P",
            -34 - 79 * 1.5 / 2);
        row("original, tilted: the slices' distance, not their shift", Grid::Tilted,
            PlaneKind::Original, 50, 2.5 * std::cos(0.35), "FA", -1e9);
    }

    void stacks()
    {
        QFETCH(Grid, grid);
        QFETCH(PlaneKind, plane);
        QFETCH(double, step);
        QFETCH(double, first);
        const McHandle<KxVolume> volume = PhantomSeries::makeVolume(grid);
        const SliceStack stack(PlaneGeometry::plane(plane, *volume), *volume);
        QTEST(stack.count(), "count");
        QVERIFY2(std::abs(stack.step() - step) < 1e-9, qPrintable(QString::number(stack.step())));
        QTEST(PlaneGeometry::orientationLetters(stack.direction()), "direction");
        if (first > -1e8) {
            QVERIFY2(std::abs(stack.position(0) - first) < 1e-9,
                qPrintable(QString::number(stack.position(0))));
        }
    }

    void stackMovesStraight()
    {
        const SliceStack stack(
            PlaneGeometry::plane(PlaneKind::Axial, *axialVolume()), *axialVolume());
        const McVec3d point{1, 2, 300};
        QCOMPARE(stack.nearestIndex(point), 0);
        QCOMPARE(stack.nearestIndex({1, 2, -300}), 49);
        const McVec3d moved = stack.moved(point, 49);
        QCOMPARE(moved.x, 1.0);
        QCOMPARE(moved.y, 2.0);
        QVERIFY(std::abs(moved.z - (56 - 49 * 2.5 / 2)) < 1e-9);
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
        QVERIFY(std::abs(slice.right().dot(slice.down())) < 1e-12);
        QVERIFY(std::abs(slice.right().length() - 1) < 1e-12);
        QVERIFY(std::abs(slice.down().length() - 1) < 1e-12);
        QVERIFY(slice.center() == (McVec3d{1, 2, 3}));
        const KxSlice quarter
            = PlaneGeometry::rotated({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {0, 0, 1}, std::acos(0.0));
        QVERIFY((quarter.right() - McVec3d{0, 1, 0}).length() < 1e-12);
    }

    void scaleBars_data()
    {
        const Rows<double, double, QString> row("room", "length", "label");
        row("just fits", 50.0, 50.0, "5 cm");
        row("next smaller", 49.9, 20.0, "2 cm");
        row("millimetres", 7.0, 5.0, "5 mm");
        row("fractions", 0.3, 0.2, "0.2 mm");
        row("large", 230.0, 200.0, "20 cm");
    }

    void scaleBars()
    {
        QFETCH(double, room);
        const ScaleBar bar = ScaleBar::fitting(room);
        QTEST(bar.millimetres, "length");
        QTEST(bar.label, "label");
    }
};

QTEST_GUILESS_MAIN(tst_PlaneGeometry)
#include "tst_PlaneGeometry.moc"
