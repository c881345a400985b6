#include "platform/util/McTransform3d.h"

#include <QTest>

class tst_McTransform3d : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inverseOfATiltedGrid()
    {
        // Voxel grid of a CT with 20 degrees of gantry tilt: the step between slices is not normal
        // to them.
        const McTransform3d grid({0.5, 0, 0}, {0, 0.47, 0.17}, {0, 0.3, 3}, {-120, 40, -700});
        const McVec3d voxel{17, 250, 31};
        const McVec3d back = grid.inverted().map(grid.map(voxel));
        QVERIFY((back - voxel).length() < 1e-9);
        QCOMPARE(
            McTransform3d({1, 0, 0}, {2, 0, 0}, {0, 0, 1}, {5, 5, 5}).inverted(), McTransform3d());
    }

    void orderOfComposition()
    {
        const McTransform3d turn({0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {});
        const McTransform3d shift({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {10, 0, 0});
        QCOMPARE(shift.after(turn).map({1, 0, 0}), (McVec3d{10, 1, 0}));
        QCOMPARE(turn.after(shift).map({1, 0, 0}), (McVec3d{0, 11, 0}));
    }
};

QTEST_APPLESS_MAIN(tst_McTransform3d)
#include "tst_McTransform3d.moc"
