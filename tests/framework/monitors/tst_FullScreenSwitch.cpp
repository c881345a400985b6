#include "tests/framework/monitors/Panes.h"

namespace {

/// Counts what makes images be drawn anew.
class Pane : public QWidget
{
public:
    int resizes = 0;
    int parentChanges = 0;

protected:
    bool event(QEvent *event) override
    {
        resizes += event->type() == QEvent::Resize ? 1 : 0;
        parentChanges += event->type() == QEvent::ParentChange ? 1 : 0;
        return QWidget::event(event);
    }
};

} // namespace

/// Between full screen and normal viewers are laid out once, or it flickers.
class tst_FullScreenSwitch : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void oneLayoutASwitch()
    {
        Pane area;
        auto *const grid = new QGridLayout(&area);
        std::array<Pane, 4> viewers;
        for (int i = 0; i < 4; ++i) {
            grid->addWidget(&viewers[std::size_t(i)], i / 2, i % 2);
        }
        ExMonitorWidget::SingleMonitorContent content(u"viewers"_s, &area);
        const QRect normal(60, 80, 500, 400);
        manager().setConfiguration(&content, {{0}, normal, normal, false, false});
        manager().applyConfigurations();
        manager().setAllWidgetsVisible(true);
        ExMonitorWidget *const window = manager().monitorWidget(&content);
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QTRY_COMPARE(window->geometry(), normal);
        for (Pane &viewer : viewers) {
            viewer.resizes = 0;
        }
        area.parentChanges = 0;
        viewers[2].setFocus();
        QStringList log;
        const McHandle<Recorder> recorder(new Recorder(u"bus"_s, log,
            {ExNotification::SCREEN_RECONFIGURE_PRE, ExNotification::SCREEN_RECONFIGURED}));

        // What comes late of one switch is counted with the next.
        constexpr int rounds = 5;
        for (int i = 0; i < rounds; ++i) {
            window->showFullScreen();
            QTRY_COMPARE(window->geometry(), manager().monitorRect(0));
            QVERIFY(QTest::qWaitForWindowExposed(window));
            window->restoreWidget();
            QTRY_COMPARE(window->geometry(), normal);
            QVERIFY(QTest::qWaitForWindowExposed(window));
        }
        QCOMPARE(log.size(), 4 * rounds);
        for (const Pane &viewer : viewers) {
            QTRY_COMPARE(viewer.resizes, 2 * rounds);
        }
        QCOMPARE(area.parentChanges, 0);
        QCOMPARE(window->focusWidget(), &viewers[2]);
        manager().removeContent(&content);
        area.setParent(nullptr);
        delete window;
    }
};

QTEST_MAIN(tst_FullScreenSwitch)
#include "tst_FullScreenSwitch.moc"
