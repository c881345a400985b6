#include "client/desktop/PlacementRecords.h"
#include "client/editors/PanelEditors.h"
#include "client/editors/PanelPlaces.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/editors/ExSplitter.h"
#include "framework/monitors/ExMonitorManager.h"
#include "tests/endtoend/WindowFixture.h"

#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

ExTool &command(const std::string &panel)
{
    return tool(("Panel." + panel).c_str());
}

void show(std::initializer_list<const char *> panels)
{
    for (const char *panel : panels) {
        command(panel).setActive(true);
    }
}

/// As a plug-in registers a panel.
const bool hasNotes = ExEditor::addInitCallback([] {
    ExEditor::registerEditor("Notes", []() -> ExEditor * {
        auto *const editor = new ExEditor(new QPlainTextEdit);
        QObject::connect(
            editor->widgetForMonitor(0), &QObject::destroyed, editor, &QObject::deleteLater);
        return editor;
    });
});

/// What the keyboard goes to: the name of a panel, or of what else there is.
QString focused()
{
    const QWidget *const focus = QApplication::focusWidget();
    for (const ExEditor *editor : PanelEditors::living()) {
        if (editor->widgetForMonitor(0)->isAncestorOf(focus)) {
            return editor->name();
        }
    }
    return qobject_cast<const ViewerRenderWidget *>(focus) != nullptr ? u"viewer"_s
        : focus == nullptr                                            ? u"nothing"_s
                           : QString::fromLatin1(focus->parentWidget()->metaObject()->className());
}

QString textOf(const ExEditorRegion &region)
{
    QStringList all;
    for (int i = 0; i < region.subRegionCount(); ++i) {
        const ExEditorContainer &tabs = *region.editorContainer(i);
        for (const ExEditor *editor : tabs.editors()) {
            all += QString::number(i) % editor->name()
                % (tabs.currentEditor() == editor ? "*"_L1 : ""_L1);
        }
    }
    for (const ExEditor *editor : region.closedEditors()) {
        all += editor->name() % " closed"_L1;
    }
    return all.join(u' ');
}

/// Where all panels are: "page.region: sub-region and name, * for the one in front".
QString places(WindowFixture &fixture)
{
    Desktop &desktop = fixture.session().desktop();
    QStringList all;
    for (qsizetype i = 0; i < desktop.pages().size(); ++i) {
        for (int place = 0; place < ViewerPage::numPlaces; ++place) {
            const auto which = static_cast<ViewerPage::Place>(place);
            const ViewerPage &page = *desktop.pages().at(i);
            const QString text = textOf(page.region(which));
            if (!text.isEmpty()) {
                const bool isCollapsed = page.extent(which).isCollapsed;
                all += u"%1.%2%3: %4"_s.arg(i).arg(page.region(which).objectName(),
                    isCollapsed ? u" collapsed"_s : QString(), text);
            }
        }
    }
    const QString own = textOf(desktop.studiesRegion());
    return (all + (own.isEmpty() ? QStringList() : QStringList{u"own: "_s % own})).join("; "_L1);
}

} // namespace

/// The workstation's panels: commands, what is kept over restarts, monitors that come and go.
class tst_Panels : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        WindowFixture::forgetSettings(u"Placement"_s);
        setMonitors("1600x1200,1600x1200");
    }

    void shownAndClosedByCommands()
    {
        WindowFixture fixture;
        const ViewerPage &page = *fixture.session().desktop().pages().first();
        QCOMPARE(places(fixture), u"0.Left: 0Studies*"_s);
        QVERIFY(command("Studies").isActive() && !command("Links").isActive());
        QVERIFY(!page.region(ViewerPage::Right).isVisible());
        const int alone = page.area().width();
        show({"Measurements", "Links"});
        QCOMPARE(places(fixture), u"0.Left: 0Studies*; 0.Right: 0Measurements 0Links*"_s);
        QVERIFY(page.region(ViewerPage::Right).isVisible() && page.area().width() < alone);
        QVERIFY(!command("Measurements").isActive());
        command("Measurements").setActive(true); // It was behind the other.
        QCOMPARE(places(fixture), u"0.Left: 0Studies*; 0.Right: 0Measurements* 0Links"_s);
        command("Measurements").setActive(false);
        command("Links").setActive(false);
        QCOMPARE(page.area().width(), alone);
        command("Studies").setActive(false);
        QVERIFY(page.area().width() > alone);
        command("Measurements").setActive(true);
        QCOMPARE(
            places(fixture), u"0.Left: Studies closed; 0.Right: 0Measurements* Links closed"_s);
        command("Reset").setActive(true);
        QCOMPARE(places(fixture), u"0.Left: 0Studies*"_s);
        QCOMPARE(page.area().width(), alone);
    }

    void comeBackAfterARestart()
    {
        const QRect window(300, 200, 420, 380);
        QString before;
        int width = 0;
        {
            WindowFixture fixture;
            ViewerPage &page = *fixture.session().desktop().pages().first();
            show({"Links", "Measurements", "Log", "Properties"});
            page.region(ViewerPage::Left).addEditor(PanelEditors::editor(u"Links"_s), 1);
            page.setExtent(ViewerPage::Left, {350, false});
            page.setExtent(ViewerPage::Below, {200, true});
            fixture.session().panels().close(u"Measurements"_s);
            ExEditor *const settings = PanelEditors::editor(u"Properties"_s);
            settings->show(true);
            settings->floater()->setGeometry(window);
            before = places(fixture);
            QCOMPARE(before,
                u"0.Left: 0Studies* 1Links*; 0.Right: Measurements closed; "
                "0.Below collapsed: 0Log*"_s);
            width = page.region(ViewerPage::Left).width();
        }
        {
            WindowFixture fixture;
            const ViewerPage &page = *fixture.session().desktop().pages().first();
            QCOMPARE(places(fixture), before);
            QCOMPARE(page.region(ViewerPage::Left).width(), width);
            const ExEditor *const settings = PanelEditors::livingEditor(u"Properties"_s);
            QVERIFY(settings != nullptr && settings->isFloating());
            QCOMPARE(settings->floater()->size(), window.size());
            QVERIFY(!command("Log").isActive());
            page.findChild<ExSplitter *>(u"PanelsDown"_s)->toggle(ExSplitter::DockLast);
            QVERIFY(command("Log").isActive());
            QCOMPARE(page.region(ViewerPage::Below).height(), 200);
        }
        setMonitors("1600x1200"); // Another desk has places of its own.
        WindowFixture fixture;
        QCOMPARE(places(fixture), u"0.Left: 0Studies*"_s);
    }

    void panelsOfPlugInsAreLikeTheOthers()
    {
        WindowFixture fixture;
        PanelPlaces &panels = fixture.session().panels();
        QStringList entries;
        QAction *entry = nullptr;
        for (const QAction *menu : fixture.window().menuBar()->actions()) {
            for (QAction *each : menu->menu()->actions()) {
                entries += each->text();
                entry = each->text() == "Notes"_L1 ? each : entry;
            }
        }
        QVERIFY(entries.join(u'|').contains(u"|L&og|Notes|&Reset panels|"_s));
        QCOMPARE(entries.count(u"Notes"_s), 1);
        entry->trigger();
        QCOMPARE(places(fixture), u"0.Left: 0Studies*; 0.Right: 0Notes*"_s);
        ExEditor *const notes = PanelEditors::livingEditor(u"Notes"_s);
        notes->show(true);
        QTRY_VERIFY(entry->isChecked() && command("Notes").isActive());
        const auto isKept = [](const char *geometry) {
            return PlacementRecords::readPanels(2).contains(QLatin1String(geometry));
        };
        notes->floater()->setGeometry(310, 220, 400, 300);
        QTRY_VERIFY(isKept("310|220|400|300"));
        notes->floater()->resize(410, 310); // Nothing else happens.
        QTRY_VERIFY(isKept("310|220|410|310"));
        const QByteArray layout = panels.layout();
        panels.reset();
        QVERIFY(!notes->isFloating());
        QVERIFY(panels.setLayout(layout) && notes->isFloating());
        entry->trigger();
        QVERIFY(!panels.isSeen(u"Notes"_s));
        delete notes->widgetForMonitor(0);
    }

    void keyboardVisitsEachPanelThatIsSeen()
    {
        WindowFixture fixture(PhantomSeries::make(PhantomSeries::Grid::Axial));
        show({"Links", "Measurements", "Log", "Properties"});
        PanelEditors::editor(u"Properties"_s)->show(true);
        command("Measurements").setActive(true); // In front of the links.
        fixture.workstation().activeViewer()->widget()->setFocus();
        QStringList log;
        for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
            for (int i = 0; i < 6; ++i) {
                QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_F6, modifier);
                log += focused();
            }
        }
        const QStringList forth{u"Measurements"_s, u"Log"_s, u"Properties"_s, u"ExToolBar"_s,
            u"Studies"_s, u"viewer"_s};
        const QStringList back{u"Studies"_s, u"ExToolBar"_s, u"Properties"_s, u"Log"_s,
            u"Measurements"_s, u"viewer"_s};
        QCOMPARE(log, forth + back);
        fixture.session().desktop().pages().first()->setExtent(ViewerPage::Below, {200, true});
        PanelEditors::editor(u"Properties"_s)->floater()->close();
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(&fixture.window(), Qt::Key_F6, Qt::ShiftModifier);
        }
        QCOMPARE(focused(), u"Properties"_s); // Not the log: it is folded away.
    }

    void damagedRecordsGiveTheUsualPlaces()
    {
        // Another version, a size that cannot be, a panel twice in a region; cut off
        const std::pair<const char *, const char *> rows[]
            = {{R"("version":1})", R"("version":99})"}, {"288", "-5"},
                {R"([\"Studies\"])", R"([\"Studies\",\"Studies\"])"}, {R"("studies")", nullptr}};
        WindowFixture fixture;
        PanelPlaces &panels = fixture.session().panels();
        for (const auto &[part, instead] : rows) {
            command("Links").setActive(true);
            QByteArray layout = panels.layout();
            QVERIFY(panels.setLayout(layout));
            QCOMPARE(places(fixture), u"0.Left: 0Studies*; 0.Right: 0Links*"_s);
            QVERIFY(layout.contains(part));
            layout.truncate(instead == nullptr ? layout.indexOf(part) : layout.size());
            QVERIFY(!panels.setLayout(layout.replace(part, instead)));
            QCOMPARE(places(fixture), u"0.Left: 0Studies*"_s);
        }
    }

    void noneIsLostWithAMonitor()
    {
        WindowFixture fixture;
        Desktop &desktop = fixture.session().desktop();
        desktop.place({{0, 1}, 0});
        command("Links").setActive(true);
        const ViewerPage *const second = desktop.pages().at(1);
        second->region(ViewerPage::Below).addEditor(PanelEditors::editor(u"Links"_s), 1);
        QCOMPARE(places(fixture), u"0.Left: 0Studies*; 1.Below: 1Links*"_s);
        desktop.place({{0}, 1}); // The studies have a window of their own.
        QCOMPARE(places(fixture), u"0.Below: 1Links*; own: 0Studies*"_s);
        desktop.studiesRegion().addEditor(PanelEditors::editor(u"Links"_s), 1);
        setMonitors("1600x1200");
        ExMonitorManager::instance().applyConfigurations(); // as after the loss of a display
        ExNotifiable::notify(ExNotification::MONITOR_CONFIGURATION_CHANGED);
        QCOMPARE(places(fixture), u"0.Left: 0Studies* 1Links*"_s);
        QVERIFY(PanelEditors::editor(u"Links"_s)->widgetForMonitor(0)->isVisible());
    }
};

QTEST_MAIN(tst_Panels)
#include "tst_Panels.moc"
