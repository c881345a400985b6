#include "framework/notification/ExNotification.h"

#include <QTest>

class tst_ExNotification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names_data();
    void names();
    void isValid_data();
    void isValid();
    void equality();
};

void tst_ExNotification::names_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    const auto row = [](int number, const char *name) {
        QTest::addRow("%d", number) << number << QByteArray(name);
    };
    row(-2, "NONE");
    row(-1, "UNSPECIFIC");
    row(0, "NONE");
    row(1, "CLEANUP");
    row(18, "ACTIVE_VIEWER_CHANGED");
    row(51, "_3D_QUALITY_CHANGED");
    row(99, "_3DCONTOUR_EXITED");
    row(121, "ABOUT_TO_SHOW_CONTEXTMENU");
    row(122, "NONE");
}

void tst_ExNotification::names()
{
    QFETCH(const int, number);
    QTEST(
        QByteArray(ExNotification::Type2String(static_cast<ExNotification::Type>(number))), "name");
}

void tst_ExNotification::isValid_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("needsViewer");
    QTest::addColumn<bool>("inRange");
    for (int number = -3; number <= 125; ++number) {
        const bool needsViewer = (number >= 8 && number <= 15) || number == 18;
        QTest::addRow("%d", number) << number << needsViewer << (number >= -1 && number <= 121);
    }
}

void tst_ExNotification::isValid()
{
    QFETCH(const int, number);
    QFETCH(const bool, needsViewer);
    QFETCH(const bool, inRange);
    const auto type = static_cast<ExNotification::Type>(number);
    int anything = 0;
    auto *const viewer = reinterpret_cast<ExBaseViewer *>(&anything);
    QCOMPARE(ExNotification(type).isValid(), inRange && !needsViewer);
    QCOMPARE(ExNotification(type, viewer).isValid(), inRange);
}

void tst_ExNotification::equality()
{
    int a = 0;
    int b = 0;
    auto *const viewer = reinterpret_cast<ExBaseViewer *>(&a);
    const auto *const sender = reinterpret_cast<const ExNotifiable *>(&b);
    const ExNotification whole(ExNotification::ZOOM_CHANGED, viewer, sender, &a);
    ExNotification copy = whole;
    QVERIFY(copy == whole);
    copy.dataSet(&b);
    QVERIFY(!(copy == whole));
    QVERIFY(!(ExNotification(ExNotification::ZOOM_CHANGED, nullptr, sender, &a) == whole));
    QVERIFY(!(ExNotification(ExNotification::ZOOM_CHANGED, viewer, nullptr, &a) == whole));
    QVERIFY(!(ExNotification(ExNotification::SLICE_CHANGED, viewer, sender, &a) == whole));

    const ExNotification none;
    QCOMPARE(none.type(), ExNotification::NONE);
    QVERIFY(!none.viewer() && !none.tool() && !none.data());
}

QTEST_APPLESS_MAIN(tst_ExNotification)
#include "tst_ExNotification.moc"
