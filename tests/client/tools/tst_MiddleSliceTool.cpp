#include "framework/tools/ExTool.h"
#include "tests/endtoend/WindowFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTextBrowser>

using namespace Qt::StringLiterals;

/// The tool of docs/write-a-tool.md: that its source is all it takes.
class tst_MiddleSliceTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isThereAndWorks()
    {
        WindowFixture fixture;
        const QList<QAction *> menus = fixture.window().menuBar()->actions();
        const auto tools = std::find_if(menus.begin(), menus.end(),
            [](const QAction *menu) { return menu->text() == u"&Tools"_s; });
        QVERIFY(tools != menus.end());
        const QList<QAction *> actions = (*tools)->menu()->actions();
        const auto action = std::find_if(actions.begin(), actions.end(),
            [](const QAction *each) { return each->objectName() == u"View.MiddleSlice"_s; });
        QVERIFY(action != actions.end());
        QCOMPARE((*action)->toolTip(), u"Scroll to the middle of the images (M)"_s);
        QTRY_VERIFY(!(*action)->isEnabled()); // There are no images.
        fixture.show(PhantomSeries::make(PhantomSeries::Grid::Axial));
        QTRY_VERIFY((*action)->isEnabled());
        fixture.slice(0).setSliceIndex(3);
        QTest::keyClick(fixture.slice(0).widget(), Qt::Key_M);
        QCOMPARE(fixture.slice(0).sliceIndex(), fixture.slice(0).stack().count() / 2);
        WorkstationApplication::instance().showHelp(u"Tool.View.MiddleSlice"_s);
        QVERIFY(fixture.window().findChild<QTextBrowser *>()->toPlainText().contains(
            u"Scroll to the middle of the images (M). Linked viewers follow."_s));
    }
};

QTEST_MAIN(tst_MiddleSliceTool)
#include "tst_MiddleSliceTool.moc"
