#include "client/desktop/PlacementDialog.h"
#include "client/panels/ProgressLine.h"
#include "client/panels/StudyTree.h"
#include "framework/monitors/ExMonitorManager.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/endtoend/WindowFixture.h"

#include <QTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

ExMonitorManager &manager()
{
    return ExMonitorManager::instance();
}

} // namespace

/// Contents on one and several monitors: where they are, that nothing gets lost, what is kept.
class tst_Desktop : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowFixture::forgetSettings(u"Placement|ToolBarState"_s);
        setMonitors("1600x1200,1600x1200");
    }

    void recordsSurviveARestart()
    {
        const QRect place(1700, 100, 900, 700);
        {
            WindowFixture fixture;
            QCOMPARE(desktop(fixture).placement(), Placement::standard(0));
            QVERIFY(!fixture.window().isFullScreen());
            desktop(fixture).place({{1}, 0});
            QVERIFY(manager().monitorRect(1).contains(fixture.window().geometry()));
            fixture.window().setGeometry(place);
            fixture.window().mainWindow()->addToolBar(Qt::LeftToolBarArea, bar(u"Mouse"_s));
            tool("View.ShowToolBars").setActive(false);
            QVERIFY(!bar(u"Mouse"_s)->isVisible());
        }
        using Record = KxProperty<ExMonitorWidget::Configuration>;
        const auto stored = Record::stored(
            "UI.Placement.2.viewers", KxPropertyPool::instance().registrySerializer());
        QVERIFY(stored && stored->normalGeometry == place);
        {
            WindowFixture fixture;
            const Placement expected{{1}, 0};
            QCOMPARE(desktop(fixture).placement(), expected);
            QCOMPARE(fixture.window().geometry().topLeft(), place.topLeft());
            QCOMPARE(
                fixture.window().mainWindow()->toolBarArea(bar(u"Mouse"_s)), Qt::LeftToolBarArea);
            QVERIFY(bar(u"Mouse"_s)->isVisible()); // Hidden ones could not be brought back.
        }
        setMonitors("1600x1200"); // Another desk has other places.
        const WindowFixture fixture;
        QCOMPARE(manager().monitors(manager().monitorWidgets().first()), QList<int>{0});
    }

    void viewersOnTwoMonitors()
    {
        WindowFixture fixture;
        const auto viewers = [&] { return fixture.workstation().viewers(); };
        fixture.show(PhantomSeries::make(PhantomSeries::Grid::Axial));
        desktop(fixture).place({{0, 1}, 0});
        QCOMPARE(viewers().size(), 8U);
        QVERIFY(fixture.window().isFullScreen());
        QCOMPARE(fixture.window().geometry(), manager().totalRect());
        // Both axial ones show the series, and are linked.
        SliceViewer &other = fixture.slice(3);
        QVERIFY(other.series() != nullptr && other.series() == fixture.slice(0).series());
        fixture.wheel(other, -3);
        QCOMPARE(fixture.slice(0).sliceIndex(), other.sliceIndex());
        QVERIFY(fixture.slice(0).widget()->parentWidget() != other.widget()->parentWidget());
        // Full screen and layouts are a matter of one monitor.
        QTest::mouseClick(other.widget(), Qt::LeftButton);
        QTest::mouseDClick(other.widget(), Qt::LeftButton);
        QVERIFY(fixture.slice(0).widget()->isVisible() && fixture.slice(1).widget()->isVisible());
        QVERIFY(!fixture.slice(4).widget()->isVisible());
        QCOMPARE(other.widget()->size(), other.widget()->parentWidget()->size());
        fixture.session().setLayoutByName(u"1x1"_s);
        QCOMPARE(viewers().size(), 5U);
        QCOMPARE(viewers().back(), &other);

        QStringList log;
        const auto watching = watch(
            log, {ExNotification::ABOUT_TO_DELETE_VIEWERS, ExNotification::ACTIVE_VIEWER_CHANGED});
        fixture.slice(1).setSliceIndex(7);
        const QPointer<QWidget> lost = other.widget();
        setMonitors("1600x1200");
        manager().applyConfigurations(); // as after the loss of a display
        QCOMPARE(log.join(u','), u"ACTIVE_VIEWER_CHANGED 2x2/1,ABOUT_TO_DELETE_VIEWERS 2:1x1/1"_s);
        QCOMPARE(viewers().size(), 4U);
        QCOMPARE(fixture.slice(1).sliceIndex(), 7);
        QTRY_VERIFY(lost.isNull());
        fixture.wheel(fixture.slice(0), 1); // Links go on without it.
        fixture.settle();
    }

    void keptWithTheMonitor()
    {
        WindowFixture fixture(PhantomSeries::make(PhantomSeries::Grid::Axial));
        fixture.slice(0).setSliceIndex(9);
        const WorkstationViewer *const before = &fixture.slice(0);
        desktop(fixture).place({{1}, 1}); // The area moves along.
        QCOMPARE(&fixture.slice(0), before);
        desktop(fixture).place({{0, 1}, 1}); // It stays on its monitor, and a new one comes before.
        QCOMPARE(&fixture.slice(3), before);
        desktop(fixture).place({{1}, 1});
        QCOMPARE(fixture.workstation().viewers().size(), 4U);
        QCOMPARE(&fixture.slice(0), before);
        QCOMPARE(fixture.slice(0).sliceIndex(), 9);
        QVERIFY(!fixture.window().isFullScreen());
        fixture.settle();
    }

    void studiesOnAMonitorOfTheirOwn()
    {
        WindowFixture fixture;
        const QPointer<StudyTree> tree = fixture.window().findChild<StudyTree *>();
        const auto isBeside = [&] {
            return tree->isVisible() && tree->window() == &fixture.window() && tree->width() >= 100
                && desktop(fixture).windows().size() == 1;
        };
        QVERIFY(isBeside());
        for (const Placement &apart : {Placement{{0}, 1}, Placement{{1}, 0}}) {
            desktop(fixture).place(apart);
            QVERIFY(tree->isVisible() && tree->window() != &fixture.window());
            QCOMPARE(desktop(fixture).windows().size(), 2);
            auto *const own = qobject_cast<ExMonitorWidget *>(tree->window());
            QCOMPARE(own->windowTitle(), u"Studies – Movara"_s);
            QVERIFY(manager().monitorRect(unsigned(apart.studies)).contains(own->geometry()));
            QCOMPARE(
                own->menuBar()->actions().size(), fixture.window().menuBar()->actions().size());
            // What belongs to the viewers stays with them.
            QCOMPARE(bar(u"View"_s)->window(), &fixture.window());
            QVERIFY(fixture.window().findChild<ProgressLine *>() != nullptr);
        }
        desktop(fixture).place({{0, 1}, 1}); // beside the viewers of the second monitor
        QVERIFY(isBeside());
        QVERIFY(tree->mapToGlobal(QPoint()).x() >= 1600);
        desktop(fixture).place({{0}, 0});
        QVERIFY(isBeside());
        // Full screen arranges the window anew.
        for (const bool on : {true, false}) {
            tool("Window.FullScreen").setActive(on);
            QVERIFY(fixture.window().isFullScreen() == on && isBeside());
        }
    }

    void toolBarsThatDoNotFit()
    {
        const auto areBeside = [] { return bar(u"View"_s)->y() == bar(u"Mouse"_s)->y(); };
        {
            WindowFixture fixture;
            fixture.window().resize(1500, 900);
            QTRY_VERIFY(areBeside());
            fixture.window().resize(1000, 900);
            QTRY_VERIFY(!areBeside());
            QTRY_VERIFY(bar(u"Mouse"_s)->width() >= bar(u"Mouse"_s)->sizeHint().width());
        }
        WindowFixture fixture; // The line was not the user's.
        fixture.window().resize(1500, 900);
        QTRY_VERIFY(areBeside());
        fixture.window().mainWindow()->insertToolBarBreak(bar(u"Mouse"_s));
        fixture.window().resize(1000, 900);
        fixture.window().resize(1500, 900);
        QCoreApplication::processEvents();
        QVERIFY(!areBeside());
    }

    void keyboardIsWithTheViewers()
    {
        WindowFixture fixture;
        const QWidget *const viewer = fixture.workstation().activeViewer()->widget();
        QTRY_COMPARE(fixture.window().focusWidget(), viewer);
        for (const bool on : {true, false}) {
            fixture.window().findChild<QToolButton *>()->setFocus();
            tool("Window.FullScreen").setActive(on);
            QTRY_COMPARE(fixture.window().focusWidget(), viewer);
        }
        // Not taken from where the user types.
        QLineEdit field(fixture.window().mainWindow());
        field.show();
        field.setFocus();
        tool("Window.FullScreen").setActive(true);
        QCoreApplication::processEvents();
        QTRY_COMPARE(fixture.window().focusWidget(), &field);
    }

    void chosenInTheDialog()
    {
        setMonitors("1600x1200,1600x1200,1600x1200");
        WindowFixture fixture;
        PlacementDialog dialog(desktop(fixture), nullptr);
        dialog.show();
        const QList<QCheckBox *> boxes = dialog.findChildren<QCheckBox *>(); // 2 a monitor
        QCOMPARE(boxes.size(), 6);
        const auto *const buttons = dialog.findChild<QDialogButtonBox *>();
        const QPushButton *const ok = buttons->button(QDialogButtonBox::Ok);
        const auto *const explanation = dialog.findChild<QLabel *>(u"Explanation"_s);
        const auto click = [&](int box) {
            QVERIFY(boxes[box]->height() >= 24);
            QTest::mouseClick(boxes[box], Qt::LeftButton, {}, QPoint(12, 12));
        };
        click(0);
        QVERIFY(!ok->isEnabled());
        QCOMPARE(explanation->text(), u"Choose a monitor for the viewers."_s);
        click(0);
        click(4); // the first and the third
        QVERIFY(!ok->isEnabled() && explanation->text().contains(u"side by side"_s));
        click(0);
        click(2);
        QVERIFY(ok->isEnabled());
        click(3); // The list of studies leaves the first monitor.
        QVERIFY(!boxes[1]->isChecked());
        buttons->button(QDialogButtonBox::Apply)->click();
        const Placement expected{{1, 2}, 1};
        QCOMPARE(desktop(fixture).placement(), expected);
        QCOMPARE(fixture.window().geometry(), QRect(1600, 0, 3200, 1200));
    }

private:
    static Desktop &desktop(WindowFixture &fixture) { return fixture.session().desktop(); }

    static QToolBar *bar(const QString &name)
    {
        for (const ExMonitorWidget *window : manager().monitorWidgets()) {
            if (auto *const found = window->findChild<QToolBar *>(name)) {
                return found;
            }
        }
        return nullptr;
    }
};

QTEST_MAIN(tst_Desktop)
#include "tst_Desktop.moc"
