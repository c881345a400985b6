#include "client/geometry/PlaneGeometry.h"
#include "client/geometry/SliceStack.h"
#include "client/overlay/ScaleBar.h"
#include "tests/client/support/PhantomSeries.h"

#include <QTest>

#include <cmath>

using Grid = PhantomSeries::Grid;

Q_DECLARE_METATYPE(PlaneKind)
Q_DECLARE_METATYPE(PhantomSeries::Grid)

/// Planes, the stacks that scrolling goes through, letters of the patient's sides.
class tst_PlaneGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lettersOfStandardPlanes_data();
    void lettersOfStandardPlanes();
    void lettersOfObliqueDirections();
    void stacks_data();
    void stacks();
    void stackMovesStraight();
    void intersection();
    void rotationKeepsRightAngles();
    void scaleBars_data();
    void scaleBars();
};

namespace {

KxVolume *axialVolume()
{
    static const McHandle<KxVolume> volume = PhantomSeries::makeVolume(Grid::Axial);
    return volume;
}

} // namespace

void tst_PlaneGeometry::lettersOfStandardPlanes_data()
{
    QTest::addColumn<Grid>("grid");
    QTest::addColumn<PlaneKind>("plane");
    QTest::addColumn<QString>("right");
    QTest::addColumn<QString>("down");
    QTest::addColumn<QString>("away");
    const auto row = [](const char *name, Grid grid, PlaneKind plane, const char *right,
                         const char *down, const char *away) {
        QTest::newRow(name) << grid << plane << QString::fromLatin1(right)
                            << QString::fromLatin1(down) << QString::fromLatin1(away);
    };
    row("axial", Grid::Sagittal, PlaneKind::Axial, "L", "P", "H");
    row("sagittal", Grid::Axial, PlaneKind::Sagittal, "P", "F", "R");
    row("coronal", Grid::Axial, PlaneKind::Coronal, "L", "F", "P");
    row("original of coronal images", Grid::Coronal, PlaneKind::Original, "L", "F", "P");
    row("original of tilted images", Grid::Tilted, PlaneKind::Original, "L", "PF", "HP");
}

void tst_PlaneGeometry::lettersOfStandardPlanes()
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

void tst_PlaneGeometry::lettersOfObliqueDirections()
{
    QCOMPARE(PlaneGeometry::orientationLetters({0.1, 0.2, -0.97}), QStringLiteral("F"));
    QCOMPARE(PlaneGeometry::orientationLetters({-0.5, -0.8, 0.33}), QStringLiteral("ARH"));
    QCOMPARE(PlaneGeometry::orientationLetters({0.7071, -0.7071, 0}), QStringLiteral("LA"));
}

void tst_PlaneGeometry::stacks_data()
{
    QTest::addColumn<Grid>("grid");
    QTest::addColumn<PlaneKind>("plane");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("step");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<double>("first"); // along the direction
    const double reach = 49 * 2.5 / 2;
    QTest::newRow("axial, counted from the head")
        << Grid::Axial << PlaneKind::Axial << 50 << 2.5 << QStringLiteral("F") << -56 - reach;
    QTest::newRow("axial, stored from the head") << Grid::AxialFromHead << PlaneKind::Axial << 50
                                                 << 2.5 << QStringLiteral("F") << -56 - reach;
    QTest::newRow("sagittal, through the pixels of axial images")
        << Grid::Axial << PlaneKind::Sagittal << 96 << 1.5 << QStringLiteral("R")
        << -12 - 95 * 1.5 / 2;
    QTest::newRow("coronal, away from the observer")
        << Grid::Axial << PlaneKind::Coronal << 80 << 1.5 << QStringLiteral("P")
        << -34 - 79 * 1.5 / 2;
    QTest::newRow("original, tilted: the slices' distance, not their shift")
        << Grid::Tilted << PlaneKind::Original << 50 << 2.5 * std::cos(0.35) << QStringLiteral("FA")
        << -1e9;
}

void tst_PlaneGeometry::stacks()
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

void tst_PlaneGeometry::stackMovesStraight()
{
    const SliceStack stack(PlaneGeometry::plane(PlaneKind::Axial, *axialVolume()), *axialVolume());
    const McVec3d point{1, 2, 300};
    QCOMPARE(stack.nearestIndex(point), 0);
    QCOMPARE(stack.nearestIndex({1, 2, -300}), 49);
    const McVec3d moved = stack.moved(point, 49);
    QCOMPARE(moved.x, 1.0);
    QCOMPARE(moved.y, 2.0);
    QVERIFY(std::abs(moved.z - (56 - 49 * 2.5 / 2)) < 1e-9);
    QVERIFY(stack.moved(point, 1000) == moved); // brought into range
}

void tst_PlaneGeometry::intersection()
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

void tst_PlaneGeometry::rotationKeepsRightAngles()
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

void tst_PlaneGeometry::scaleBars_data()
{
    QTest::addColumn<double>("room");
    QTest::addColumn<double>("length");
    QTest::addColumn<QString>("label");
    QTest::newRow("just fits") << 50.0 << 50.0 << QStringLiteral("5 cm");
    QTest::newRow("next smaller") << 49.9 << 20.0 << QStringLiteral("2 cm");
    QTest::newRow("one") << 19.0 << 10.0 << QStringLiteral("1 cm");
    QTest::newRow("millimetres") << 7.0 << 5.0 << QStringLiteral("5 mm");
    QTest::newRow("fractions") << 0.3 << 0.2 << QStringLiteral("0.2 mm");
    QTest::newRow("large") << 230.0 << 200.0 << QStringLiteral("20 cm");
}

void tst_PlaneGeometry::scaleBars()
{
    QFETCH(double, room);
    const ScaleBar bar = ScaleBar::fitting(room);
    QTEST(bar.millimetres, "length");
    QTEST(bar.label, "label");
}

QTEST_GUILESS_MAIN(tst_PlaneGeometry)
#include "tst_PlaneGeometry.moc"
