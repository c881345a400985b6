#include "platform/util/McBox2f.h"
#include "platform/util/McDArray.h"
#include "platform/util/McStringTokenizer.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_McDArray : public QObject
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
    }

    void sortingByBothKindsOfComparison()
    {
        McDArray<int> array{3, 1, 2};
        array.sort([](int a, int b) { return a > b; });
        QCOMPARE(array, (McDArray<int>{3, 2, 1}));
        array.sort([](int a, int b) { return a - b; });
        QCOMPARE(array, (McDArray<int>{1, 2, 3}));
    }

    void boxUnion()
    {
        const McBox2f empty;
        const McBox2f left(0, 0, 0.25F, 1);
        const McBox2f right(0.5F, -1, 1, 0.5F);
        QVERIFY(empty.united(left) == left && left.united(empty) == left);
        QVERIFY(left.united(right) == McBox2f(0, -1, 1, 1));
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
};

QTEST_APPLESS_MAIN(tst_McDArray)
#include "tst_McDArray.moc"
