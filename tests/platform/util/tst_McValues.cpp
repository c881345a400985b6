#include "platform/util/McDArray.h"
#include "platform/util/McStringTokenizer.h"
#include "platform/util/McTickClock.h"
#include "platform/util/McTransform3d.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_McValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positionsOutsideTheArray()
    {
        McDArray<int> array{7, 8, 7};
        QCOMPARE(array.indexOf(7, 1) * 10 + array.indexOf(7, 99), 19);
        array.append(array); // Itself.
        array.insert(99, 4);
        array.remove(1, 2);
        QCOMPARE(array, (McDArray<int>{7, 7, 8, 7, 4}));
        array.sort([](int a, int b) { return a > b; }); // Both kinds of comparison
        QCOMPARE(array, (McDArray<int>{8, 7, 7, 7, 4}));
        array.sort([](int a, int b) { return a - b; });
        QCOMPARE(array, (McDArray<int>{4, 7, 7, 7, 8}));
    }

    void tokens()
    {
        McStringTokenizer tokens("  a, b ,,c", " ,");
        QStringList found;
        while (tokens.hasMoreTokens()) {
            found << QString::fromStdString(tokens.nextToken());
        }
        QCOMPARE(found.join(u'|'), u"a|b|c"_s);
        QVERIFY(tokens.nextToken().empty());
        QVERIFY(!McStringTokenizer(" \t").hasMoreTokens());
    }

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

    void microsecondsSurviveDaysOfUptime()
    {
        const double ticksPerSecond = 1e15 / McTickClock::seconds(1'000'000'000'000'000);
        const auto tenDays = static_cast<std::int64_t>(10 * 86400 * ticksPerSecond);
        const auto fiveMicroseconds = static_cast<std::int64_t>(5e-6 * ticksPerSecond) + 1;
        const std::int64_t difference = McTickClock::microseconds(tenDays + fiveMicroseconds)
            - McTickClock::microseconds(tenDays);
        QVERIFY(difference >= 4 && difference <= 6);
    }
};

QTEST_APPLESS_MAIN(tst_McValues)
#include "tst_McValues.moc"
