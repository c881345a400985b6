#include "tests/framework/monitors/Panes.h"

namespace {

bool xrandr(const char *arguments)
{
    return QProcess::execute(u"xrandr"_s, QString::fromLatin1(arguments).split(u' ')) == 0;
}

QRect monitorOf(const ExMonitorWidget &widget)
{
    for (const QRect &monitor : manager().monitors()) {
        if (monitor.contains(widget.geometry().center())) {
            return monitor;
        }
    }
    return {};
}

} // namespace

/// Displays that come and go on a real X server under a window manager.
class tst_HotPlug : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QGuiApplication::platformName() != QLatin1String("xcb")) {
            QSKIP("Needs an X server with displays to plug in and out (run-with-displays)");
        }
        QVERIFY(xrandr("--addmode DUMMY1 1600x1200"));
        QVERIFY(xrandr("--output DUMMY1 --mode 1600x1200 --right-of DUMMY0"));
        QVERIFY(xrandr("--output DUMMY0 --primary"));
        QTRY_COMPARE(QGuiApplication::screens().size(), 2);
        manager().readMonitorConfiguration();
        QCOMPARE(manager().numMonitors(), 2);
        m_recorder = new Recorder(u"bus"_s, m_log, {ExNotification::MONITOR_CONFIGURATION_CHANGED});
    }

    void lostDisplay()
    {
        for (const bool fullScreen : {false, true}) {
            const QRect home(1400, 100, 700, 500);
            manager().setConfiguration(&m_studyContent, {{0}, {}, {}, false, false});
            manager().setConfiguration(&m_viewerContent, {{1}, home, home, fullScreen, false});
            manager().applyConfigurations();
            manager().setAllWidgetsVisible(true);
            ExMonitorWidget *const window = manager().monitorWidget(&m_viewerContent);
            QVERIFY(QTest::qWaitForWindowExposed(window));
            const QRect before = fullScreen ? QRect(1280, 0, 1600, 1200) : home;
            QTRY_COMPARE(window->geometry(), before);
            m_log.clear();

            QVERIFY(xrandr("--output DUMMY1 --off"));
            QTRY_COMPARE(m_log.size(), 1);
            QCOMPARE(manager().numMonitors(), 1);
            QCOMPARE(manager().configuration(&m_viewerContent).monitors, QList<int>{0});
            QCOMPARE(m_viewers.window(), manager().monitorWidget(&m_viewerContent));
            QTRY_COMPARE(
                monitorOf(*manager().monitorWidget(&m_viewerContent)), QRect(0, 0, 1280, 1024));
            QVERIFY(m_viewers.window()->isVisible());

            QVERIFY(xrandr("--output DUMMY1 --mode 1600x1200 --right-of DUMMY0"));
            QTRY_COMPARE(m_log.size(), 2);
            QCOMPARE(manager().configuration(&m_viewerContent).monitors, QList<int>{1});
            ExMonitorWidget *const back = manager().monitorWidget(&m_viewerContent);
            QVERIFY(back != manager().monitorWidget(&m_studyContent));
            QTRY_COMPARE(back->geometry(), before);
            QCOMPARE(back->isFullScreen(), fullScreen);
            // Nothing more comes of the moves that the window manager makes afterwards.
            QTest::qWait(1000);
            QCOMPARE(m_log.size(), 2);
            QCOMPARE(back->geometry(), before);
        }
    }

    void primaryDisplay()
    {
        m_log.clear();
        QVERIFY(xrandr("--output DUMMY1 --primary"));
        QTRY_COMPARE(m_log.size(), 1);
        QCOMPARE(manager().primaryMonitor(), 1);
        QVERIFY(xrandr("--output DUMMY0 --primary"));
        QTRY_COMPARE(m_log.size(), 2);
        QCOMPARE(manager().primaryMonitor(), 0);

        QVERIFY(xrandr("--output DUMMY1 --mode 1600x1200 --left-of DUMMY0"));
        QTRY_COMPARE(m_log.size(), 3);
        QCOMPARE(manager().primaryMonitor(), 1);
        // The content follows its display to the left.
        QCOMPARE(manager().configuration(&m_viewerContent).monitors, QList<int>{0});
        QVERIFY(xrandr("--output DUMMY1 --mode 1600x1200 --right-of DUMMY0"));
        QTRY_COMPARE(m_log.size(), 4);
    }

    void windowStates()
    {
        const QRect home(200, 150, 600, 400);
        manager().setConfiguration(&m_viewerContent, {{0}, home, home, false, true});
        manager().applyConfigurations();
        ExMonitorWidget *const window = manager().monitorWidget(&m_viewerContent);
        window->showNormal(true);
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTRY_COMPARE(window->geometry(), home);
        // The window manager maximises: that is full screen here, and back is where it was.
        window->QWidget::showMaximized();
        QTRY_VERIFY(window->isFullScreen());
        QTRY_COMPARE(window->geometry(), QRect(0, 0, 1280, 1024));
        QVERIFY(window->windowFlags().testFlag(Qt::FramelessWindowHint));
        window->restoreWidget();
        QTRY_COMPARE(window->geometry(), home);
        window->showFullScreen();
        QTRY_COMPARE(window->geometry(), QRect(0, 0, 1280, 1024));
        window->minimizeWidget();
        QTRY_VERIFY(!window->isFullScreen());
        // The task bar restores it.
        window->setWindowState(Qt::WindowNoState);
        QTRY_VERIFY(window->isFullScreen());
        QTRY_COMPARE(window->geometry(), QRect(0, 0, 1280, 1024));
    }

    void cleanupTestCase()
    {
        manager().removeContent(&m_viewerContent);
        manager().removeContent(&m_studyContent);
        qDeleteAll(manager().monitorWidgets());
    }

private:
    QStringList m_log;
    McHandle<Recorder> m_recorder;
    QWidget m_viewers;
    QWidget m_studies;
    ExMonitorWidget::SingleMonitorContent m_viewerContent{u"viewers"_s, &m_viewers};
    ExMonitorWidget::SingleMonitorContent m_studyContent{u"studies"_s, &m_studies};
};

QTEST_MAIN(tst_HotPlug)
#include "tst_HotPlug.moc"
