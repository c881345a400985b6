#include "client/panels/StudyTree.h"
#include "framework/monitors/ExMonitorManager.h"
#include "tests/endtoend/WindowFixture.h"

#include <QMenuBar>
#include <QProcess>
#include <QTest>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

bool xrandr(const char *arguments)
{
    return QProcess::execute(u"xrandr"_s, QString::fromLatin1(arguments).split(u' ')) == 0;
}

} // namespace

/// The workstation on displays that are unplugged and plugged in again while it runs.
class tst_DesktopHotPlug : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != "xcb"_L1) {
            QSKIP("Needs an X server with displays to plug in and out (run-with-displays)");
        }
        WindowFixture::settings();
        QVERIFY(xrandr("--addmode DUMMY1 1600x1200"));
        QVERIFY(xrandr("--output DUMMY1 --mode 1600x1200 --right-of DUMMY0"));
        QVERIFY(xrandr("--output DUMMY0 --primary"));
        QTRY_COMPARE(QGuiApplication::screens().size(), 2);
        ExMonitorManager::instance().readMonitorConfiguration();
    }

    void viewersOnTheDisplayThatGoes()
    {
        const QRect first(0, 0, 1280, 1024);
        const QRect both(0, 0, 2880, 1200);
        WindowFixture fixture;
        Desktop &desktop = fixture.session().desktop();
        const auto numViewers = [&] { return fixture.workstation().viewers().size(); };
        const auto *const tree = fixture.window().findChild<StudyTree *>();
        // Menus, tool bars and the list are in the window and can be reached.
        const auto isAlive = [&] {
            const auto *const bar = fixture.window().findChild<QToolBar *>(u"View"_s);
            return bar != nullptr && bar->isVisible() && tree->isVisible()
                && tree->window() == &fixture.window() && fixture.window().menuBar()->isVisible()
                && fixture.window().menuBar()->actions().size() > 3
                && fixture.window().focusWidget() == fixture.workstation().activeViewer()->widget();
        };
        fixture.session().setLayoutByName(u"1x1"_s);
        fixture.show(PhantomSeries::make(PhantomSeries::Grid::Axial));
        const Placement spread{{0, 1}, 1};
        desktop.place(spread);
        QCOMPARE(numViewers(), 2U);
        QTRY_COMPARE(fixture.window().geometry(), both);
        QTRY_VERIFY(isAlive());
        const WorkstationViewer *const stays = &fixture.slice(0);
        fixture.slice(0).setSliceIndex(7);

        QVERIFY(xrandr("--output DUMMY1 --off"));
        QTRY_COMPARE(numViewers(), 1U);
        QTRY_VERIFY(first.contains(fixture.window().geometry()));
        QCOMPARE(desktop.placement(), Placement::standard(0));
        QCOMPARE(&fixture.slice(0), stays);
        QCOMPARE(fixture.slice(0).sliceIndex(), 7);
        QTRY_VERIFY(isAlive());

        QVERIFY(xrandr("--output DUMMY1 --mode 1600x1200 --right-of DUMMY0"));
        QTRY_COMPARE(numViewers(), 2U);
        QTRY_COMPARE(fixture.window().geometry(), both);
        QCOMPARE(desktop.placement(), spread);
        QCOMPARE(&fixture.slice(0), stays);
        QVERIFY(tree->mapToGlobal(QPoint()).x() >= first.width());
        QTRY_VERIFY(isAlive());
        fixture.wheel(fixture.slice(0), 1);
        fixture.settle();
    }
};

QTEST_MAIN(tst_DesktopHotPlug)
#include "tst_DesktopHotPlug.moc"
