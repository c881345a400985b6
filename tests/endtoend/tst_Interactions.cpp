#include "client/links/LinkedActions.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/viewers/ExViewerDB.h"
#include "tests/endtoend/WindowFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

using Grid = PhantomSeries::Grid;

namespace {

ViewerLayout fourSlices()
{
    return {u"test"_s,
        {{{0, 0, 0.5F, 0.5F}, false, PlaneKind::Axial},
            {{0.5F, 0, 1, 0.5F}, false, PlaneKind::Axial},
            {{0, 0.5F, 0.5F, 1}, false, PlaneKind::Axial},
            {{0.5F, 0.5F, 1, 1}, false, PlaneKind::Sagittal}}};
}

QAction *findAction(const QWidget &menu, const QString &text)
{
    for (QAction *action : menu.actions()) {
        if (action->text().remove(u'&') == text) {
            return action;
        }
        if (QAction *const inner = action->menu() ? findAction(*action->menu(), text) : nullptr) {
            return inner;
        }
    }
    return nullptr;
}

} // namespace

/// What the user does in the viewers, and what follows it.
class tst_Interactions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_fixture = std::make_unique<WindowFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void wheelScrollsLinkedViewers()
    {
        showFour();
        slice(2).setSliceIndex(10);
        const double before = height(0);
        const double otherFrame = height(2);
        const McVec3d sagittal = slice(3).shownSlice().center();
        m_fixture->wheel(slice(0), -4); // towards the user: to the feet
        QVERIFY(isNear(height(0), before - 10));
        QVERIFY(isNear(height(1), before - 10)); // same place of the patient
        QVERIFY(isNear(height(2), otherFrame - 10)); // same distance
        QVERIFY(slice(3).shownSlice().center() == sagittal);
        m_fixture->wheel(slice(1), 2);
        QVERIFY(isNear(height(0), before - 5));
        m_fixture->wheel(slice(0), 1000);
        QCOMPARE(slice(0).sliceIndex(), 0);
        QCOMPARE(slice(1).sliceIndex(), 0);
    }

    void detachedViewerStays()
    {
        showFour();
        const double before = height(0);
        m_fixture->clickBadge(slice(1));
        QCOMPARE(slice(1).widget()->overlay().link, OverlayContent::Link::Detached);
        m_fixture->wheel(slice(0), -3);
        QVERIFY(isNear(height(1), before));
        m_fixture->wheel(slice(1), 2); // Nor do the others follow it.
        QVERIFY(isNear(height(0), before - 7.5));
        m_fixture->clickBadge(slice(1));
        QCOMPARE(slice(1).widget()->overlay().link, OverlayContent::Link::Attached);
        m_fixture->wheel(slice(0), -1);
        QVERIFY(isNear(height(1), before - 10)); // It catches up.
        m_fixture->clickBadge(slice(0));
        m_fixture->session().setLayoutByName(u"1x1"_s);
        // Nobody is left to be linked with: no badge.
        QCOMPARE(slice(0).widget()->overlay().link, OverlayContent::Link::None);
    }

    void disabledLinkLeavesOthersAlone()
    {
        showFour();
        QAction *const scrolling = findAction(*m_fixture->window().menuBar(), u"Scrolling"_s);
        QVERIFY(scrolling != nullptr && scrolling->isChecked());
        const double before = height(1);
        scrolling->trigger();
        m_fixture->wheel(slice(0), -3);
        QVERIFY(isNear(height(1), before));
        scrolling->trigger();
        m_fixture->wheel(slice(0), -1);
        QVERIFY(isNear(height(1), before - 10));
    }

    void referenceLinesFollow()
    {
        showFour();
        const auto lines = [this] { return slice(3).widget()->overlay().referenceLines; };
        // Of the two axial viewers of its frame of reference; the third is of another one.
        QCOMPARE(lines().size(), 2);
        const double before = lines()[0].line.y1();
        QCOMPARE(lines()[0].line.y2(), before);
        m_fixture->wheel(slice(0), -4);
        QVERIFY(isNear(lines()[0].line.y1(), before + 10 * slice(3).zoom())); // feet are below
        QCOMPARE(slice(2).widget()->overlay().referenceLines.size(), 0);
        slice(1).widget()->hide();
        ExNotifiable::notify(ExNotification::SCREEN_RECONFIGURED);
        QCOMPARE(lines().size(), 1);
    }

    void windowDragChangesLinkedOnly()
    {
        showFour();
        m_fixture->clickBadge(slice(2));
        m_fixture->drag(slice(0), Qt::LeftButton, {90, -60});
        // 300 pixels make the window's own width; each step builds on the one before.
        const double width = 2000 * std::pow(1 + 30 / 300.0, 3);
        QVERIFY2(isNear(slice(0).window().width, width),
            qPrintable(QString::number(slice(0).window().width)));
        QVERIFY(slice(0).window().center < -350); // darker tissue becomes visible
        for (const int linked : {1, 3}) {
            QCOMPARE(slice(linked).window().width, slice(0).window().width);
            QCOMPARE(slice(linked).window().center, slice(0).window().center);
        }
        QCOMPARE(slice(2).window().width, 2000.0);
        m_fixture->settle();
        const double expected = 255 * (0.5 - slice(0).window().center / slice(0).window().width);
        QVERIFY(std::abs(greyInTheMiddle(1) - expected) <= 1);
    }

    void windowsOfOtherModalitiesStay()
    {
        showFour();
        slice(1).setSeries(PhantomSeries::make(Grid::Axial, "mr", 1, "frame", u"MR"_s));
        m_fixture->drag(slice(0), Qt::LeftButton, {90, 0});
        QVERIFY(slice(3).window().width > 2000);
        QCOMPARE(slice(1).window().width, 2000.0);
        m_fixture->wheel(slice(0), -2); // All else stays linked.
        QVERIFY(isNear(height(1), height(0)));
    }

    void clickChangesNothing()
    {
        showFour();
        const KxSlice before = slice(0).shownSlice();
        for (const auto button : {Qt::LeftButton, Qt::MiddleButton}) {
            m_fixture->drag(slice(0), button, {3, 3}); // a hand that trembles
        }
        QCOMPARE(slice(0).window().width, 2000.0);
        QVERIFY(slice(0).shownSlice().center() == before.center());
    }

    void zoomAndPanAreLinked()
    {
        showFour();
        const double zoom = slice(0).zoom();
        const double sagittalZoom = slice(3).zoom();
        m_fixture->drag(slice(0), Qt::RightButton, {0, -90});
        QVERIFY(isNear(slice(0).zoom(), zoom * std::exp(90 / 200.0)));
        QVERIFY(isNear(slice(3).zoom(), sagittalZoom * std::exp(90 / 200.0)));
        const McVec3d under = slice(0).patientAt({100, 100});
        const McVec3d sagittalBefore = slice(3).shownSlice().center();
        m_fixture->drag(slice(0), Qt::MiddleButton, {60, 30});
        QVERIFY((slice(0).patientAt({160, 130}) - under).length() < 1e-6); // follows the pointer
        const McVec3d moved = slice(3).shownSlice().center() - sagittalBefore;
        QVERIFY(isNear(moved.y, -30 / slice(0).zoom())); // by what lies in its plane
        QVERIFY(isNear(moved.x, 0));
        findAction(*m_fixture->window().menuBar(), u"Reset view"_s)->trigger();
        QVERIFY(isNear(slice(0).zoom(), zoom));
        QVERIFY(isNear(slice(3).zoom(), sagittalZoom));
    }

    void phasesAreLinked()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial, "phases", 3));
        m_fixture->wheel(slice(0), -1, Qt::AltModifier);
        for (const WorkstationViewer *viewer : workstation().viewers()) {
            QCOMPARE(viewer->phase(), 1);
        }
        m_fixture->settle();
        QCOMPARE(greyInTheMiddle(1), 140); // 100 HU in a window of 2000
        QVERIFY(slice(1).widget()->overlay().corners[OverlayContent::BottomRight].contains(
            u"Phase 2/3  t 1"_s));
        m_fixture->clickBadge(slice(2));
        m_fixture->wheel(slice(0), 2, Qt::AltModifier); // from the first one on to the last
        QCOMPARE(slice(0).phase(), 2);
        QCOMPARE(slice(2).phase(), 1);
    }

    void keysScrollAndDragTurnsThePlane()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial));
        const int index = slice(0).sliceIndex();
        QTest::keyClick(slice(0).widget(), Qt::Key_Down);
        QCOMPARE(slice(0).sliceIndex(), index + 1);
        QTest::keyClick(slice(0).widget(), Qt::Key_PageUp);
        QCOMPARE(slice(0).sliceIndex(), index - 9);
        slice(0).setSliceIndex(index);
        m_fixture->drag(slice(0), Qt::LeftButton, {0, 120}, Qt::ControlModifier);
        QCOMPARE(slice(0).plane(), PlaneKind::Oblique);
        const KxSlice &shown = slice(0).shownSlice();
        QVERIFY((shown.center() - PhantomSeries::middle).length() < 1.5);
        QVERIFY(isNear(shown.right().x, 1)); // about the line from right to left
        QVERIFY(isNear(std::abs(shown.down().z), std::sin(0.6)));
        QCOMPARE(slice(0).widget()->overlay().letters[OverlayContent::Top].size(), 2);
        QCOMPARE(slice(0).window().width, 2000.0);
        m_fixture->settle();
        slice(0).setPlane(PlaneKind::Axial);
        QVERIFY(isNear(slice(0).shownSlice().down().y, 1));
    }

    void pressActivates()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial));
        QStringList log;
        const auto watching = watch(log, {ExNotification::ACTIVE_VIEWER_CHANGED});
        for (WorkstationViewer *viewer : workstation().viewers()) {
            QTest::mouseClick(viewer->widget(), Qt::LeftButton);
            QCOMPARE(workstation().activeViewer(), viewer);
            QVERIFY(viewer->widget()->overlay().isActive);
        }
        QVERIFY(!slice(0).widget()->overlay().isActive);
        // The first one was active from the start.
        const QString changed = u"ACTIVE_VIEWER_CHANGED 2x2/"_s;
        QCOMPARE(log, QStringList({changed + u'2', changed + u'3', changed + u'4'}));
    }

    void doubleClickShowsOnFullScreen()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial));
        const QRect normal = slice(1).widget()->geometry();
        const KxSlice before = slice(1).shownSlice();
        QTest::mouseDClick(slice(1).widget(), Qt::LeftButton);
        QCOMPARE(slice(1).widget()->geometry(), slice(1).widget()->parentWidget()->rect());
        for (const WorkstationViewer *viewer : workstation().viewers()) {
            QCOMPARE(viewer->widget()->isVisible(), viewer == &slice(1));
        }
        m_fixture->settle();
        QCOMPARE(slice(1).widget()->frame().size(), slice(1).widget()->pixelSize());
        QTest::mouseDClick(slice(1).widget(), Qt::LeftButton);
        QCOMPARE(slice(1).widget()->geometry(), normal);
        QVERIFY(slice(0).widget()->isVisible());
        QVERIFY(slice(1).shownSlice().center() == before.center());
        QCOMPARE(slice(1).window().width, 2000.0);
        QTest::mouseDClick(slice(1).widget(), Qt::LeftButton);
        QTest::keyClick(slice(1).widget(), Qt::Key_Escape);
        QCOMPARE(slice(1).widget()->geometry(), normal);
    }

    void layoutsKeepWhatIsShown()
    {
        const auto series = PhantomSeries::make(Grid::Axial);
        m_fixture->show(series);
        slice(0).setSliceIndex(7);
        for (const QString &name : LayoutTable::names()) {
            QVERIFY(m_fixture->session().setLayoutByName(name));
            const auto viewers = workstation().viewers();
            QCOMPARE(viewers.size(), LayoutTable::find(name)->places.size());
            QRegion covered;
            for (const WorkstationViewer *viewer : viewers) {
                QCOMPARE(viewer->series(), series.get());
                QVERIFY(!covered.intersects(viewer->widget()->geometry()));
                covered += viewer->widget()->geometry();
            }
            QVERIFY(covered.boundingRect() == viewers[0]->widget()->parentWidget()->rect());
            QVERIFY(workstation().activeViewer() != nullptr);
            m_fixture->settle();
        }
        m_fixture->session().setLayoutByName(u"2x2"_s);
        slice(0).setSliceIndex(7);
        m_fixture->session().setLayoutByName(u"1+3"_s);
        QCOMPARE(slice(0).sliceIndex(), 7); // The axial viewer has only moved.
        QVERIFY(!m_fixture->session().setLayoutByName(u"7x7"_s));
    }

    void oneViewerIsTheActiveOne()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial, "phases", 2));
        SliceViewer &sagittal = slice(1);
        sagittal.setPhase(1);
        sagittal.setSliceIndex(5);
        sagittal.rotate(sagittal.shownSlice().down(), 0.25);
        sagittal.setWindow({20, 300});
        const McVec3d normal = sagittal.shownSlice().normal();
        ExViewerManager::instancePointer()->setActiveViewer(&sagittal);
        m_fixture->session().setLayoutByName(QStringLiteral("1x1"));
        QCOMPARE(workstation().viewers(), std::vector<WorkstationViewer *>{&sagittal});
        QCOMPARE(workstation().activeViewer(), &sagittal);
        QCOMPARE(sagittal.widget()->size(), sagittal.widget()->parentWidget()->size());
        QVERIFY(sagittal.phase() == 1 && sagittal.window().width == 300
            && sagittal.shownSlice().normal() == normal);
        m_fixture->settle();
    }

    void resetTurnsThePlaneBack()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial));
        slice(1).setSliceIndex(5);
        slice(1).rotate(slice(1).shownSlice().down(), 0.25);
        slice(0).rotate(slice(0).shownSlice().down(), 0.25);
        ExViewerManager::instancePointer()->setActiveViewer(&slice(1));
        QTest::keyClick(slice(1).widget(), Qt::Key_R);
        QCOMPARE(slice(1).plane(), PlaneKind::Sagittal);
        QCOMPARE(slice(1).sliceIndex(), 5);
        QCOMPARE(slice(0).plane(), PlaneKind::Oblique); // Planes are not linked.
    }

    void menuOfViewer()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial, "phases", 2));
        QTest::mouseClick(slice(0).widget(), Qt::RightButton);
        const QPointer<QMenu> menu
            = slice(0).widget()->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(menu != nullptr && menu->isVisible());
        findAction(*menu, u"Coronal"_s)->trigger();
        QCOMPARE(slice(0).plane(), PlaneKind::Coronal);
        findAction(*menu, u"2  t 1"_s)->trigger();
        QCOMPARE(slice(2).phase(), 1);
        findAction(*menu, u"Zoom"_s)->trigger();
        QVERIFY(!ViewerLinks::isAttached(ExViewerDB::ZOOM_GROUP, slice(0)));
        QVERIFY(ViewerLinks::isAttached(ExViewerDB::CAMERA_GROUP, slice(0)));
        menu->close();
        QTRY_VERIFY(menu.isNull());
    }

    void volumeViewerTurns()
    {
        m_fixture->show(PhantomSeries::make(Grid::Axial));
        auto *const viewer = dynamic_cast<VolumeViewer *>(workstation().viewers()[3]);
        m_fixture->drag(*viewer, Qt::LeftButton, {50, 20});
        QVERIFY(!isNear(viewer->viewDirection().x, 0)); // With or without a display.
        m_fixture->settle();
    }

    void notificationsOfAWheelStep()
    {
        showFour();
        QStringList log;
        const auto watching = watch(log, {ExNotification::UNSPECIFIC});
        m_fixture->wheel(slice(1), -1);
        QCOMPARE(
            log.join(u','), u"SLICE_CHANGED test/2,SLICE_CHANGED test/1,SLICE_CHANGED test/3"_s);
        log.clear();
        slice(1).setSliceIndex(slice(1).sliceIndex());
        QVERIFY(log.isEmpty());
    }

private:
    SliceViewer &slice(int i) { return m_fixture->slice(i); }
    Workstation &workstation() { return m_fixture->workstation(); }
    int greyInTheMiddle(int i)
    {
        const QImage &frame = slice(i).widget()->frame();
        return qGray(frame.pixel(frame.rect().center()));
    }
    /// Two axial viewers with series of one frame of reference, one of another, and a sagittal one.
    void showFour()
    {
        workstation().layouts().apply(fourSlices());
        const auto series = PhantomSeries::make(Grid::Axial, "one");
        slice(0).setSeries(series);
        slice(1).setSeries(PhantomSeries::make(Grid::AxialFromHead, "two"));
        slice(2).setSeries(PhantomSeries::make(Grid::Axial, "three", 1, "other frame"));
        slice(3).setSeries(series);
        for (const int axial : {0, 1, 2}) {
            slice(axial).setSliceIndex(24);
        }
        m_fixture->settle();
    }

    [[nodiscard]] double height(int i) { return slice(i).shownSlice().center().z; }

    std::unique_ptr<WindowFixture> m_fixture;
};

QTEST_MAIN(tst_Interactions)
#include "tst_Interactions.moc"
