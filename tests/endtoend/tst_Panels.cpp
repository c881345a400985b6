#include "client/editors/PanelEditors.h"
#include "client/editors/PanelPlaces.h"
#include "framework/editors/ExEditor.h"
#include "framework/editors/ExEditorContainer.h"
#include "framework/editors/ExEditorRegion.h"
#include "framework/monitors/ExMonitorManager.h"
#include "framework/tools/ExTool.h"
#include "platform/properties/KxPropertyPool.h"
#include "tests/endtoend/WindowFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void setMonitors(const char *monitors)
{
    qputenv("MOVARA_MONITORS", monitors);
    ExMonitorManager::instance().readMonitorConfiguration();
}

ExTool &command(const char *panel)
{
    return *ExTool::getToolByDecorationKey((std::string("Panel.") + panel).c_str(), true);
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
        WindowFixture::settings();
        for (KxVariant *setting : KxPropertyPool::instance().properties()) {
            if (setting->key().contains("Placement"_L1)) {
                setting->resetToDefault();
                setting->serialize();
            }
        }
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
        command("Measurements").setActive(true);
        command("Links").setActive(true);
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
            for (const char *name : {"Links", "Measurements", "Log", "Properties"}) {
                command(name).setActive(true);
            }
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
            command("Log").setActive(true);
            QVERIFY(page.region(ViewerPage::Below).height() >= 150);
        }
        setMonitors("1600x1200"); // Another desk has places of its own.
        WindowFixture fixture;
        QCOMPARE(places(fixture), u"0.Left: 0Studies*"_s);
    }

    void damagedRecordsGiveTheUsualPlaces_data()
    {
        QTest::addColumn<QByteArray>("part");
        QTest::addColumn<QByteArray>("instead");
        QTest::newRow("cut off") << QByteArray("\"studies\"") << QByteArray();
        QTest::newRow("another version")
            << QByteArray("\"version\":1}") << QByteArray("\"version\":99}");
        QTest::newRow("a size that cannot be") << QByteArray("288") << QByteArray("-5");
        QTest::newRow("a panel twice in a region")
            << QByteArray("[\\\"Studies\\\"]") << QByteArray("[\\\"Studies\\\",\\\"Studies\\\"]");
    }

    void damagedRecordsGiveTheUsualPlaces()
    {
        QFETCH(QByteArray, part);
        QFETCH(QByteArray, instead);
        WindowFixture fixture;
        PanelPlaces &panels = fixture.session().panels();
        command("Links").setActive(true);
        QByteArray layout = panels.layout();
        QVERIFY(panels.setLayout(layout));
        QCOMPARE(places(fixture), u"0.Left: 0Studies*; 0.Right: 0Links*"_s);
        QVERIFY(layout.contains(part));
        if (instead.isEmpty()) {
            layout.truncate(layout.indexOf(part));
        }
        QVERIFY(!panels.setLayout(layout.replace(part, instead)));
        QCOMPARE(places(fixture), u"0.Left: 0Studies*"_s);
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
