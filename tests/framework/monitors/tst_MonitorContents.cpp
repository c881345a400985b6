#include "tests/framework/monitors/Panes.h"

namespace {

using Configuration = ExMonitorWidget::Configuration;

void place(Panes &content, const QList<int> &monitors, bool ownWindow = false)
{
    manager().setConfiguration(&content, {monitors, {}, {}, false, ownWindow});
}

} // namespace

/// Contents and the windows that they get.
class tst_MonitorContents : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { setMonitors("800x600,640x480,640x480,640x480"); }

    void registry()
    {
        const auto factory
            = []() -> ExMonitorWidget::Content * { return new ExMonitorWidget::Content; };
        ExMonitorManager::registerContent("viewers", factory);
        ExMonitorManager::registerContent("nothing", nullptr);
        ExMonitorManager::registerContent("", factory);
        const std::unique_ptr<ExMonitorWidget::Content> first(
            ExMonitorManager::getContent("viewers"));
        QVERIFY(first && ExMonitorManager::getContent("viewers") == first.get());
        for (const char *const name :
            {"nothing", "", "unknown", static_cast<const char *>(nullptr)}) {
            QCOMPARE(ExMonitorManager::getContent(name), nullptr);
        }
        ExMonitorManager::registerContent("viewers", factory);
        const std::unique_ptr<ExMonitorWidget::Content> second(
            ExMonitorManager::getContent("viewers"));
        QVERIFY(second != first);
        manager().removeContent(second.get());
        const std::unique_ptr<ExMonitorWidget::Content> third(
            ExMonitorManager::getContent("viewers"));
        QVERIFY(third != second);
        ExMonitorManager::registerContent("viewers", nullptr);
    }

    void recordAsText()
    {
        const Configuration record{{0, 2}, {1, 2, 3, 4}, {-5, 6, 7, 8}, true, false};
        QCOMPARE(record.toString(), u"0,2;1|2|3|4;-5|6|7|8;true;false"_s);
        QCOMPARE(Configuration::fromString(record.toString()), record);
        QCOMPARE(Configuration::fromString(Configuration().toString()), Configuration());
        for (const char *const text :
            {"", ";;;;", "0;1|2|3|4;1|2|3|4;true", "0;1|2|3;1|2|3|4;true;true",
                "0;1|2|3|4;2147483647|0|2147483647|1;true;false", "a;1|2|3|4;1|2|3|4;true;false"}) {
            QVERIFY2(!Configuration::fromString(QLatin1String(text)), text);
        }
    }

    void assignment()
    {
        Panes narrow("narrow");
        Panes wide("wide");
        Panes beside("beside");
        Panes alone("alone");
        place(narrow, {1});
        place(wide, {0, 1});
        place(beside, {2});
        place(alone, {1}, true);
        manager().applyConfigurations();

        ExMonitorWidget *const shared = manager().monitorWidget(&wide);
        QCOMPARE(manager().monitorWidget(&narrow), shared);
        QCOMPARE(manager().contents(shared), (QList<ExMonitorWidget::Content *>{&narrow, &wide}));
        QCOMPARE(shared->monitors(), (QList<int>{0, 1}));
        QCOMPARE(shared->mainWindows().size(), 2);
        QCOMPARE(manager().fullScreenRect(shared), QRect(0, 0, 1440, 600));
        QCOMPARE(manager().monitorWidgets().size(), 3);
        ExMonitorWidget *const own = manager().monitorWidget(&alone);
        QVERIFY(own != shared);

        // What moves takes a window that is there; what is empty is kept for later.
        place(narrow, {2});
        place(alone, {2});
        manager().applyConfigurations();
        QCOMPARE(manager().monitorWidgets().size(), 3);
        QCOMPARE(manager().contents(manager().monitorWidget(&beside)),
            (QList<ExMonitorWidget::Content *>{&narrow, &beside, &alone}));
        place(narrow, {3});
        manager().applyConfigurations();
        QCOMPARE(manager().monitorWidgets().size(), 3);
        QCOMPARE(manager().monitors(manager().monitorWidget(&narrow)), QList<int>{3});

        // One that another has just left is used, too.
        Panes late("late");
        place(narrow, {2});
        place(late, {3});
        manager().applyConfigurations();
        QCOMPARE(manager().monitorWidgets().size(), 3);
    }

    void oneWidgetStandsOnTheFirstMonitor()
    {
        QWidget page;
        ExMonitorWidget::SingleMonitorContent content(u"single"_s, &page);
        manager().setConfiguration(&content, {{1, 2}, {}, {}, false, false});
        manager().applyConfigurations();
        ExMonitorWidget *const widget = manager().monitorWidget(&content);
        QVERIFY(widget->mainWindowForMonitor(1)->isAncestorOf(&page));
        QVERIFY(!widget->isContentActivatable(&content, 2));
        manager().removeContent(&content);
    }

    void monitorsThatAreNotThere()
    {
        Panes content("content");
        place(content, {7, -1});
        manager().applyConfigurations();
        ExMonitorWidget *const widget = manager().monitorWidget(&content);
        QCOMPARE(manager().monitors(widget), QList<int>{0});
        QVERIFY(widget->isContentActive(&content, 0));
    }

    void activation()
    {
        Panes first("first");
        Panes second("second");
        place(first, {0, 1});
        place(second, {1});
        manager().applyConfigurations();
        ExMonitorWidget *const widget = manager().monitorWidget(&first);
        QVERIFY(widget->isContentActive(&first, 0) && widget->isContentActive(&first, 1));
        QVERIFY(!widget->isContentActivatable(&second, 0));

        const QList<QAction *> actions = manager().createContentActions(widget);
        QCOMPARE(actions.size(), 2);
        actions.at(1)->trigger();
        QVERIFY(widget->isContentActive(&second, 1) && widget->isContentActive(&first, 0));
        QVERIFY(widget->isContentActive(&second, widget->mainWindows().at(1)));
        QVERIFY(!widget->activateContent(&second, 0));

        widget->showFullScreen(false);
        QVERIFY(widget->isContentActive(&first, 0));
        QVERIFY(widget->isContentActive(&second, 1));
        widget->hide();
    }

    void tracking()
    {
        Panes content("content");
        place(content, {0});
        manager().applyConfigurations();
        ExMonitorWidget *const widget = manager().monitorWidget(&content);
        widget->showNormal(true);
        QVERIFY(QTest::qWaitForWindowExposed(widget));
        const auto record = [&content] { return manager().configuration(&content); };
        widget->setGeometry(20, 40, 300, 200);
        QTRY_COMPARE(record().normalGeometry, QRect(20, 40, 300, 200));
        widget->move(60, 80);
        QTRY_VERIFY(record().normalGeometry != QRect(20, 40, 300, 200));
        QCOMPARE(record().normalGeometry, widget->geometry());
        QCOMPARE(record().previousGeometry.topLeft(), QPoint(20, 40));

        manager().trackDefaultGeometry(widget, ExMonitorManager::TrackMaximized);
        QCOMPARE(record().normalGeometry, record().previousGeometry);
        const QRect normal = record().normalGeometry;
        widget->showFullScreen();
        manager().trackDefaultGeometry(widget, ExMonitorManager::TrackMoved);
        QVERIFY(record().fullScreen);
        QCOMPARE(record().normalGeometry, normal);
        widget->restoreWidget();
        QCOMPARE(widget->geometry(), normal);
        widget->hide();
    }

    void toolBars()
    {
        Panes first("first");
        Panes second("second");
        place(first, {0});
        place(second, {0});
        QToolBar one;
        one.setObjectName(u"one"_s);
        auto two = std::make_unique<QToolBar>();
        two->setObjectName(u"two"_s);
        using ToolBar = ExMonitorWidget::ToolBar;
        manager().setToolBars(&first, {ToolBar(&one, true, Qt::TopToolBarArea)});
        manager().setToolBars(&second,
            {ExMonitorWidget::ToolBarBreak(Qt::LeftToolBarArea),
                ToolBar(two.get(), true, Qt::LeftToolBarArea)});
        manager().applyConfigurations();
        ExMonitorWidget *const widget = manager().monitorWidget(&first);
        QCOMPARE(one.parentWidget(), widget->mainWindow());
        QVERIFY(!one.isHidden() && two->isHidden());
        manager().activate(&second);
        QVERIFY(one.isHidden() && !two->isHidden());

        widget->toggleToolBars();
        QVERIFY(manager().areToolBarsHidden(widget) && two->isHidden());
        manager().activate(&first); // What is shown again are the bars of the active content.
        QVERIFY(one.isHidden());
        widget->toggleToolBars();
        QVERIFY(!manager().areToolBarsHidden(widget) && !one.isHidden() && two->isHidden());

        manager().activate(&second);
        widget->toggleToolBars();
        two.reset();
        manager().removeContent(&second);
        QToolBar three;
        manager().setToolBars(&first, {ToolBar(&three, true, Qt::TopToolBarArea)});
        QVERIFY(three.isHidden());
        widget->toggleToolBars(); // Neither what is gone nor what stands there no more.
        QVERIFY(!three.isHidden() && one.isHidden());
        manager().setToolBars(&first, {});
        one.setParent(nullptr);
    }
};

QTEST_MAIN(tst_MonitorContents)
#include "tst_MonitorContents.moc"
