#include "framework/monitors/ExMonitorManager.h"

#include "tests/support/PrivateSettings.h"

#include <QMainWindow>
#include <QTest>
#include <QToolBar>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using Configuration = ExMonitorWidget::Configuration;

/// Content with a widget for each of its monitors.
class Panes : public ExMonitorWidget::Content
{
public:
    explicit Panes(const char *name) { setShortName(QLatin1String(name)); }
    ~Panes() override { ExMonitorManager::instance().removeContent(this); }

    QWidget *widgetForMonitor(const Configuration &configuration, int monitor) override
    {
        if (monitor < 0 || !configuration.monitors.contains(monitor)) {
            return nullptr;
        }
        std::unique_ptr<QWidget> &widget = m_widgets[static_cast<std::size_t>(monitor)];
        if (widget == nullptr) {
            widget = std::make_unique<QWidget>();
        }
        return widget.get();
    }
    void configurationChanged(const Configuration &configuration) override
    {
        told.append(configuration.monitors);
    }

    QList<QList<int>> told;

private:
    std::vector<std::unique_ptr<QWidget>> m_widgets{4};
};

ExMonitorManager &manager()
{
    return ExMonitorManager::instance();
}

void place(Panes &content, const QList<int> &monitors, bool ownWindow = false)
{
    manager().setConfiguration(&content, {monitors, {}, {}, false, ownWindow});
}

} // namespace

/// Contents and the windows that they get.
class tst_MonitorContents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("MOVARA_MONITORS", "800x600,640x480,640x480,640x480");
        manager().readMonitorConfiguration();
    }

    void registry()
    {
        static int made = 0;
        const auto factory = []() -> ExMonitorWidget::Content * {
            ++made;
            return new ExMonitorWidget::Content;
        };
        ExMonitorManager::registerContent("viewers", factory);
        ExMonitorManager::registerContent("nothing", nullptr);
        ExMonitorManager::registerContent("", factory);
        ExMonitorWidget::Content *const first = ExMonitorManager::getContent("viewers");
        QVERIFY(first);
        QCOMPARE(ExMonitorManager::getContent("viewers"), first);
        QCOMPARE(made, 1);
        for (const char *const name :
            {"nothing", "", "unknown", static_cast<const char *>(nullptr)}) {
            QCOMPARE(ExMonitorManager::getContent(name), nullptr);
        }
        ExMonitorManager::registerContent("viewers", factory);
        QVERIFY(ExMonitorManager::getContent("viewers") != first);
        delete ExMonitorManager::getContent("viewers");
        ExMonitorManager::registerContent("viewers", nullptr);
        delete first;
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

        qputenv("MOVARA_MONITORS", "");
        manager().readMonitorConfiguration();
        manager().applyConfigurations();
        QVERIFY(manager().fullScreenRect(widget).isValid());
        QVERIFY(manager().normalWindowRect(widget).isValid());
        widget->showFullScreen();
        QVERIFY(widget->geometry().isValid());
        widget->hide();
        initTestCase();
    }

    void activation()
    {
        Panes first("first");
        Panes second("second");
        place(first, {0, 1});
        place(second, {1});
        manager().applyConfigurations();
        ExMonitorWidget *const widget = manager().monitorWidget(&first);
        QVERIFY(widget->isContentActive(&first, 0));
        QVERIFY(widget->isContentActive(&first, 1));
        QVERIFY(!widget->isContentActivatable(&second, 0));

        const QList<QAction *> actions = manager().createContentActions(widget);
        QCOMPARE(actions.size(), 2);
        actions.at(1)->trigger();
        QVERIFY(widget->isContentActive(&second, 1));
        QVERIFY(widget->isContentActive(&second, widget->mainWindows().at(1)));
        QVERIFY(widget->isContentActive(&first, 0));
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
        QVERIFY(!one.isHidden());
        QVERIFY(two->isHidden());
        manager().activate(&second);
        QVERIFY(one.isHidden());
        QVERIFY(!two->isHidden());

        widget->toggleToolBars();
        QVERIFY(manager().areToolBarsHidden(widget));
        QVERIFY(two->isHidden());
        two.reset();
        widget->toggleToolBars();
        QVERIFY(!manager().areToolBarsHidden(widget));
        manager().setToolBars(&first, {});
        one.setParent(nullptr);
    }

private:
    PrivateSettings m_settings;
};

QTEST_MAIN(tst_MonitorContents)
#include "tst_MonitorContents.moc"
