#include "client/loading/StudySession.h"
#include "client/measurements/MeasurementView.h"
#include "client/panels/MeasurementsPanel.h"
#include "tests/client/support/Drawn.h"
#include "tests/client/support/ShownViewer.h"
#include "tests/support/FakeViewerManager.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

/// The list of measurements beside the viewers that show them.
class tst_MeasurementsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_manager = std::make_unique<FakeViewerManager>();
        m_list = std::make_unique<MeasurementList>();
        const auto series = PhantomSeries::make(PhantomSeries::Grid::Axial, "phantom", 2);
        m_axial = std::make_unique<ShownViewer>(PlaneKind::Axial, series);
        m_sagittal = std::make_unique<ShownViewer>(PlaneKind::Sagittal, series);
        m_manager->add(m_axial->viewer);
        m_manager->add(m_sagittal->viewer);
        m_panel = std::make_unique<MeasurementsPanel>(*m_list, m_session);
    }

    void cleanup()
    {
        m_panel.reset();
        m_list.reset();
        m_manager.reset();
    }

    void rowsFollowTheList()
    {
        QCOMPARE(rows(), QStringList());
        addDistance(*m_axial->viewer, 20);
        const int second = addDistance(*m_sagittal->viewer, 30);
        QTRY_COMPARE(rows().join(u", "_s),
            u"Distance 1|20.0 mm|Axial 25/50, Distance 2|30.0 mm|Sagittal 49/96"_s);
        Measurement longer = *m_list->find(second);
        longer.points[1] = longer.points[0] + longer.plane.right() * 40;
        m_list->update(longer);
        QTRY_COMPARE(rows().last(), u"Distance 2|40.0 mm|Sagittal 49/96"_s);
        tree().setCurrentItem(tree().topLevelItem(0));
        QCOMPARE(m_list->picked(), 1);
        QTest::keyClick(&tree(), Qt::Key_Delete);
        QTRY_COMPARE(rows(), QStringList{u"Distance 2|40.0 mm|Sagittal 49/96"_s});
        m_list->undo();
        QTRY_COMPARE(rows().size(), 2);
        m_list->setPicked(second);
        QTRY_COMPARE(tree().selectedItems(), QList{tree().topLevelItem(1)});
        m_panel->deleteAll();
        QTRY_COMPARE(rows(), QStringList());
    }

    void jumpMovesTheViewerThatShowsIt()
    {
        m_axial->viewer->setSliceIndex(10);
        const int onAxial = addDistance(*m_axial->viewer, 20);
        const int onSagittal = addDistance(*m_sagittal->viewer, 20);
        m_axial->viewer->setSliceIndex(40);
        m_manager->setActiveViewer(m_sagittal->viewer);
        m_panel->jumpTo(onAxial);
        QCOMPARE(m_axial->viewer->sliceIndex(), 10);
        QCOMPARE(m_manager->activeViewer(), static_cast<ExBaseViewer *>(m_axial->viewer));
        QCOMPARE(m_list->picked(), onAxial);
        // With its own viewer on another plane, one is turned to it.
        m_sagittal->viewer->setPlane(PlaneKind::Coronal);
        m_panel->jumpTo(onSagittal);
        QCOMPARE(activeSlice().plane(), PlaneKind::Sagittal);
        QVERIFY(MeasurementView::isShown(*m_list->find(onSagittal), activeSlice()));
        // An oblique plane has no name: the viewer is turned.
        m_axial->viewer->setPlane(PlaneKind::Axial);
        m_axial->viewer->rotate({1, 0, 0}, 0.4);
        const int onOblique = addDistance(*m_axial->viewer, 20);
        m_axial->viewer->setPlane(PlaneKind::Axial);
        m_panel->jumpTo(onOblique);
        QVERIFY(MeasurementView::isShown(*m_list->find(onOblique), activeSlice()));
    }

    void closedSeriesIsAskedFor()
    {
        SliceViewer &viewer = *m_axial->viewer;
        const McHandle<LoadedSeries> series(viewer.series());
        const int id = addDistance(viewer, 20);
        viewer.setSeries(nullptr);
        m_sagittal->viewer->setSeries(nullptr);
        m_manager->setActiveViewer(&viewer);
        const QSignalSpy wanted(m_panel.get(), &MeasurementsPanel::seriesWanted);
        m_panel->jumpTo(id); // Refused.
        QVERIFY(wanted.size() == 1 && viewer.series() == nullptr && m_list->picked() == 0);
        QObject::connect(m_panel.get(), &MeasurementsPanel::seriesWanted, m_panel.get(),
            [&series](const QString &uid, SliceViewer *shown) {
                shown->setSeries(uid == u"phantom"_s ? series : nullptr);
            });
        m_panel->jumpTo(id);
        QCOMPARE(m_list->picked(), id);
    }

    void selectedIsCopied()
    {
        addDistance(*m_axial->viewer, 20);
        addDistance(*m_axial->viewer, 30);
        QTRY_COMPARE(rows().size(), 2);
        tree().setCurrentItem(tree().topLevelItem(1));
        m_panel->copy();
        const QString header = u"Name\tSeries\tSlice\tValue\n"_s;
        const QString first = u"Distance 1\tCT\tAxial 25/50\t20.0 mm\n"_s;
        const QString second = u"Distance 2\tCT\tAxial 25/50\t30.0 mm\n"_s;
        QCOMPARE(QApplication::clipboard()->text(), QString(header % second));
        tree().clearSelection();
        QCOMPARE(m_panel->text(), QString(header % first % second));
    }

private:
    int addDistance(const SliceViewer &viewer, double length)
    {
        const McVec3d from = viewer.shownSlice().center();
        const McVec3d to = from + viewer.shownSlice().right() * length;
        return m_list->add(drawn(Measurement::Kind::Distance, viewer, {from, to}));
    }

    SliceViewer &activeSlice() { return dynamic_cast<SliceViewer &>(*m_manager->activeViewer()); }

    [[nodiscard]] QTreeWidget &tree() { return *m_panel->findChild<QTreeWidget *>(); }
    QStringList rows()
    {
        QStringList found;
        for (int i = 0; i < tree().topLevelItemCount(); ++i) {
            const QTreeWidgetItem &item = *tree().topLevelItem(i);
            found += item.text(MeasurementsPanel::Name) % u'|' % item.text(MeasurementsPanel::Value)
                % u'|' % item.text(MeasurementsPanel::Slice);
        }
        return found;
    }

    std::unique_ptr<FakeViewerManager> m_manager;
    std::unique_ptr<MeasurementList> m_list;
    StudySession m_session;
    std::unique_ptr<ShownViewer> m_axial;
    std::unique_ptr<ShownViewer> m_sagittal;
    std::unique_ptr<MeasurementsPanel> m_panel;
};

QTEST_MAIN(tst_MeasurementsPanel)
#include "tst_MeasurementsPanel.moc"
