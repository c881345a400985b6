#include "platform/util/McBox2f.h"
#include "platform/util/McDArray.h"
#include "platform/util/McStringTokenizer.h"

#include <QTest>

class tst_McDArray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void searching();
    void changing();
    void sortingByBothKindsOfComparison();
    void boxUnion();
    void tokens();
};

void tst_McDArray::searching()
{
    const McDArray<int> array{7, 8, 7};
    QCOMPARE(array.indexOf(7), 0);
    QCOMPARE(array.indexOf(7, 1), 2);
    QCOMPARE(array.indexOf(7, 3), -1);
    QCOMPARE(array.indexOf(7, 99), -1);
    QCOMPARE(array.lastIndexOf(7), 2);
    QCOMPARE(array.lastIndexOf(9), -1);
}

void tst_McDArray::changing()
{
    McDArray<int> array{1, 2, 3};
    array.append(array);
    array.insert(99, 4);
    array.insert(0, 0);
    array.remove(1, 2);
    QCOMPARE(array, (McDArray<int>{0, 3, 1, 2, 3, 4}));
}

void tst_McDArray::sortingByBothKindsOfComparison()
{
    McDArray<int> array{3, 1, 2};
    array.sort([](int a, int b) { return a > b; });
    QCOMPARE(array, (McDArray<int>{3, 2, 1}));
    array.sort([](int a, int b) { return a - b; });
    QCOMPARE(array, (McDArray<int>{1, 2, 3}));
}

void tst_McDArray::boxUnion()
{
    const McBox2f empty;
    const McBox2f left(0, 0, 0.25F, 1);
    const McBox2f right(0.5F, -1, 1, 0.5F);
    QVERIFY(empty.isEmpty());
    QVERIFY(empty.united(left) == left);
    QVERIFY(left.united(empty) == left);
    QVERIFY(left.united(right) == McBox2f(0, -1, 1, 1));
}

void tst_McDArray::tokens()
{
    McStringTokenizer tokens("  a, b ,,c", " ,");
    QStringList found;
    while (tokens.hasMoreTokens()) {
        found << QString::fromStdString(tokens.nextToken());
    }
    QCOMPARE(found.join(QLatin1Char('|')), QStringLiteral("a|b|c"));
    QVERIFY(tokens.nextToken().empty());
    QVERIFY(!McStringTokenizer(" \t").hasMoreTokens());
}

QTEST_APPLESS_MAIN(tst_McDArray)
#include "tst_McDArray.moc"
