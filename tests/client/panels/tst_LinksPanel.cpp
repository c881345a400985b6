#include "client/links/LinkType.h"
#include "client/links/LinkedActions.h"
#include "client/links/ViewerLinks.h"
#include "client/panels/LinksPanel.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExViewerDB.h"
#include "tests/client/support/ShownViewer.h"
#include "tests/support/FakeViewerManager.h"

#include <QCheckBox>
#include <QMenu>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

/// The table of links against the viewer database and what linked viewers do.
class tst_LinksPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_manager = std::make_unique<FakeViewerManager>();
        m_links = new ViewerLinks;
        const auto series = PhantomSeries::make(PhantomSeries::Grid::Axial);
        for (const PlaneKind plane : {PlaneKind::Axial, PlaneKind::Sagittal, PlaneKind::Coronal}) {
            m_shown.push_back(std::make_unique<ShownViewer>(plane, series));
            SliceViewer *const viewer = m_shown.back()->viewer;
            viewer->setDisplaySetID("place/" + std::to_string(m_shown.size()));
            m_manager->add(viewer);
            ExNotifiable::notify({ExNotification::VIEWER_CREATED, viewer});
        }
        m_panel = std::make_unique<LinksPanel>();
    }

    void cleanup()
    {
        m_panel.reset();
        for (const auto &each : m_shown) {
            ExNotifiable::notify({ExNotification::ABOUT_TO_DELETE_VIEWERS, each->viewer});
        }
        m_links.reset();
        m_manager.reset();
        m_shown.clear();
        for (const LinkType &type : LinkType::all()) {
            ExViewerDB::setGroupEnabled(type.group, true);
        }
    }

    void groupsAreShownAndChanged()
    {
        QCOMPARE(zoomRow(), u"Group 1, Group 1, Group 1"_s);
        select({2});
        m_panel->separateSelected();
        QTRY_COMPARE(zoomRow(), u"Group 1, Group 1, Group 2"_s);
        QCOMPARE(zoomedBy(0), u"++-"_s);
        select({1, 2});
        m_panel->groupSelected();
        QTRY_COMPARE(zoomRow(), u"Group 1, Group 3, Group 3"_s);
        QCOMPARE(zoomedBy(1), u"-++"_s);
        select({0});
        trigger(u"Group 3"_s);
        QTRY_COMPARE(zoomRow(), u"Group 3, Group 3, Group 3"_s);
        trigger(u"Not &linked"_s);
        QTRY_VERIFY(zoomRow().startsWith(u"not linked, "));
        QCOMPARE(zoomedBy(1), u"-++"_s);
    }

    void windowGroupsOfTheUserOutlastOtherImages()
    {
        const std::string &type = ExViewerDB::WINDOWLEVEL_GROUP;
        ViewerLinks::group(type, {m_shown[1]->viewer, m_shown[2]->viewer});
        m_shown[2]->viewer->setSeries(PhantomSeries::make(PhantomSeries::Grid::Coronal));
        QVERIFY(ExViewerDB::isSameGroup(type, m_shown[1]->viewer, m_shown[2]->viewer));
        QVERIFY(!ExViewerDB::isSameGroup(type, m_shown[0]->viewer, m_shown[2]->viewer));
    }

    void attachedAndSwitched()
    {
        select({1});
        QTest::keyClick(&table(), Qt::Key_Space);
        QCOMPARE(zoomedBy(0), u"+-+"_s);
        auto &box
            = *m_panel->findChild<QCheckBox *>(QString::fromStdString(ExViewerDB::ZOOM_GROUP));
        box.click();
        QCOMPARE(zoomedBy(0), u"+--"_s);
        // What others change is seen.
        ViewerLinks::setEnabled(ExViewerDB::ZOOM_GROUP, true);
        QTRY_VERIFY(box.isChecked());
        QTest::keyClick(&table(), Qt::Key_Space);
        QCOMPARE(zoomedBy(0), u"+++"_s);
    }

    void followersOfTheActiveViewer()
    {
        m_manager->setActiveViewer(m_shown[0]->viewer);
        select({2});
        trigger(u"&Follow the active viewer"_s);
        QTRY_VERIFY(zoomRow().endsWith(u", Active viewer"));
        select({1});
        m_panel->separateSelected();
        QCOMPARE(zoomedBy(0), u"+-+"_s);
        QCOMPARE(zoomedBy(1), u"-+-"_s);
        m_manager->setActiveViewer(m_shown[1]->viewer);
        QCOMPARE(zoomedBy(1), u"-++"_s);
        QCOMPARE(zoomedBy(2), u"--+"_s);
        // Restricted to the first one, it no longer follows the second.
        select({2});
        trigger(u"Axial"_s);
        QCOMPARE(zoomedBy(1), u"-+-"_s);
        m_manager->setActiveViewer(m_shown[0]->viewer);
        QCOMPARE(zoomedBy(0), u"+-+"_s);
    }

    void viewersThatGoAreForgotten()
    {
        select({1, 2});
        QMenu menu;
        m_panel->fillMenu(menu);
        SliceViewer *const gone = m_shown.back()->viewer;
        ExNotifiable::notify({ExNotification::ABOUT_TO_DELETE_VIEWERS, gone});
        QCOMPARE(table().columnCount(), 1);
        m_manager->removeViewer(gone);
        m_shown.pop_back();
        m_panel->toggleAttached();
        for (QAction *action : menu.actions()) {
            action->trigger();
        }
        QTRY_COMPARE(zoomRow().count(u','), 1);
    }

private:
    [[nodiscard]] QTableWidget &table() { return *m_panel->findChild<QTableWidget *>(); }
    static int zoomIndex() { return 1; }

    QString zoomRow()
    {
        QStringList cells;
        for (int column = 1; column < table().columnCount(); ++column) {
            cells += table().item(zoomIndex(), column)->text();
        }
        return cells.join(u", "_s);
    }

    void select(const QList<int> &viewers)
    {
        QCoreApplication::processEvents();
        table().clearSelection();
        for (const int viewer : viewers) {
            table().setCurrentCell(zoomIndex(), viewer + 1, QItemSelectionModel::Select);
        }
    }

    /// Triggers the entry of the menu, or of one below it, that begins so.
    void trigger(const QString &text)
    {
        QMenu menu;
        m_panel->fillMenu(menu);
        for (QAction *action : menu.findChildren<QAction *>()) {
            if (action->text().startsWith(text)) {
                action->trigger();
                return;
            }
        }
        qFatal("there is no such entry in the menu");
    }

    /// Which viewers are enlarged when the user enlarges one: "+" for those, "-" for others.
    QString zoomedBy(std::size_t index)
    {
        for (const auto &each : m_shown) {
            each->viewer->setZoom(1);
        }
        LinkedActions::zoom(*m_shown[index]->viewer, 1.25);
        QString zoomed;
        for (const auto &each : m_shown) {
            zoomed += each->viewer->zoom() > 1 ? u'+' : u'-';
        }
        return zoomed;
    }

    std::unique_ptr<FakeViewerManager> m_manager;
    McHandle<ViewerLinks> m_links;
    std::vector<std::unique_ptr<ShownViewer>> m_shown;
    std::unique_ptr<LinksPanel> m_panel;
};

QTEST_MAIN(tst_LinksPanel)
#include "tst_LinksPanel.moc"
