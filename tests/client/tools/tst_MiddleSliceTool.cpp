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
        const QString key = u"View.MiddleSlice"_s;
        WindowFixture fixture;
        const QAction *action = nullptr;
        for (const QAction *menu : fixture.window().menuBar()->actions()) {
            for (const QAction *each : menu->menu()->actions()) {
                const bool isIt = menu->text() == u"&Tools" && each->objectName() == key;
                action = isIt ? each : action;
            }
        }
        QVERIFY(action != nullptr);
        QCOMPARE(action->toolTip(), u"Scroll to the middle of the images (M)"_s);
        QTRY_VERIFY(!action->isEnabled()); // There are no images.
        fixture.show(PhantomSeries::make(PhantomSeries::Grid::Axial));
        QTRY_VERIFY(action->isEnabled());
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
