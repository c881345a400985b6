#include "framework/application/ExUIRegistry.h"
#include "framework/monitors/ExMainWindow.h"
#include "framework/monitors/ExMenuBarAddOn.h"
#include "platform/backend/KxBackendPeer.h"
#include "tests/framework/monitors/Panes.h"

/// States of a monitor window, and what it tells.
class tst_ExMonitorWidget : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setMonitors("800x600");
        manager().setConfiguration(&m_content, {{0}, {}, {100, 100, 400, 300}, false, false});
        manager().applyConfigurations();
        m_widget = manager().monitorWidget(&m_content);
        QPixmap picture(16, 16);
        picture.fill(Qt::red);
        m_widget->setWindowIcon(QIcon(picture));
        m_widget->showNormal(true);
        QVERIFY(QTest::qWaitForWindowExposed(m_widget));
        m_recorder = new Recorder(u"bus"_s, m_log,
            {ExNotification::SCREEN_RECONFIGURE_PRE, ExNotification::SCREEN_RECONFIGURED});
        m_log.clear();
        m_application.log.clear();
    }

    void cleanup()
    {
        m_recorder = nullptr;
        delete m_widget;
        QCOMPARE(manager().monitorWidget(&m_content), nullptr);
        manager().removeContent(&m_content);
    }

    void fullScreenAndBack()
    {
        const QStringList switched{u"bus:SCREEN_RECONFIGURE_PRE"_s, u"bus:SCREEN_RECONFIGURED"_s};
        m_widget->restoreWidget();
        QCOMPARE(m_log, QStringList());

        m_widget->showFullScreen();
        QCOMPARE(m_log, switched);
        QCOMPARE(m_widget->geometry(), QRect(0, 0, 800, 600));
        QVERIFY(m_widget->isFullScreen() && m_widget->menuBarAddOn()->isVisible());
        QCOMPARE(m_widget->windowIcon().availableSizes().value(0), QSize(16, 16));

        m_log.clear();
        m_widget->menuBarAddOn()->mNormal->click();
        QCOMPARE(m_log, switched);
        QCOMPARE(m_widget->geometry(), QRect(100, 100, 400, 300));
        QVERIFY(!m_widget->isFullScreen() && !m_widget->menuBarAddOn()->isVisible());
        QCOMPARE(m_widget->windowIcon().availableSizes().value(0), QSize(16, 16));
    }

    void namedMonitorLargerThanTheScreen()
    {
        setMonitors("1280x1024");
        manager().setConfiguration(&m_content, {{0}, {}, {700, 600, 500, 400}, false, false});
        m_widget->showNormal(true);
        QCOMPARE(m_widget->geometry(), QRect(700, 600, 500, 400));
    }

    void minimizeAndComeBack()
    {
        for (const bool fullScreen : {false, true}) {
            if (fullScreen) {
                m_widget->showFullScreen(false);
            }
            m_widget->minimizeWidget();
            QVERIFY(m_widget->isMinimized() && !m_widget->isFullScreen());
            m_widget->minimizeWidget();
            m_widget->showStored();
            QCOMPARE(m_widget->isFullScreen(), fullScreen);
            QCOMPARE(m_widget->windowFlags().testFlag(Qt::FramelessWindowHint), fullScreen);
            QVERIFY(!m_widget->isMinimized());
        }
        QCOMPARE(m_log, QStringList());
    }

    void commandsOfTheWindowSystem()
    {
        QStringList told;
        connect(
            m_widget, &ExMonitorWidget::widgetMoved, this, [&told] { told.append(u"moved"_s); });
        connect(m_widget, &ExMonitorWidget::widgetMaximized, this,
            [&told] { told.append(u"maximized"_s); });
        // The window system maximises the window by itself, and tells so.
        m_widget->setWindowState(Qt::WindowMaximized);
        QTRY_VERIFY(m_widget->isFullScreen() && !m_widget->isMaximized());
        QCOMPARE(told.mid(0, 2), (QStringList{u"moved"_s, u"maximized"_s}));
        QCOMPARE(m_log.size(), 2);
        m_widget->setWindowState(Qt::WindowMinimized);
        QTRY_VERIFY(!m_widget->isFullScreen());
        m_widget->setWindowState(Qt::WindowNoState);
        QTRY_VERIFY(m_widget->isFullScreen());
        QVERIFY(m_widget->windowFlags().testFlag(Qt::FramelessWindowHint));
        m_widget->restoreWidget();
        QCOMPARE(m_widget->geometry(), QRect(100, 100, 400, 300));
    }

    void closingEndsTheSession()
    {
        KxBackendPeer::instance()->setReasonToQuit("");
        m_widget->menuBarAddOn()->mClose->click();
        QCOMPARE(m_application.log, QStringList{u"quit"_s});
        QCOMPARE(KxBackendPeer::instance()->reasonToQuit(), std::string("userlogout"));
        QVERIFY(m_widget->isVisible());

        class DeadPeer final : public KxBackendPeer
        {
            void setReasonToQuit(const std::string & /*reason*/) override
            {
                throw std::runtime_error("no connection");
            }
        };
        DeadPeer dead;
        KxBackendPeer::install(&dead);
        m_widget->menuBarAddOn()->mClose->click();
        QCOMPARE(m_application.log, (QStringList{u"quit"_s, u"quit"_s}));
    }

    void theApplicationKnowsTheMinimiseButton()
    {
        struct Names final : ExUIRegistry
        {
            void registerWidget(QWidget *widget, const QString &name) override
            {
                widgets.insert(name, widget);
            }
            void registerAction(QAction * /*action*/, const QString & /*name*/) override { }
            QHash<QString, QWidget *> widgets;
        };
        Names names;
        m_application.registry = &names;
        const ExMonitorWidget *const made = manager().createMonitorWidget();
        m_application.registry = nullptr;
        QCOMPARE(names.widgets,
            (QHash<QString, QWidget *>{{u"Minimize"_s, made->menuBarAddOn()->mMinimize}}));
        delete made;
    }

    void menuOfTheMainWindow()
    {
        const auto texts = [this] {
            const std::unique_ptr<QMenu> menu(m_widget->mainWindow()->createPopupMenu());
            QStringList names;
            for (const QAction *const action : menu->actions()) {
                names.append(action->text() + (action->isChecked() ? u"*" : u""));
            }
            return names;
        };
        QCOMPARE(texts(), (QStringList{u"Show All*"_s, u"Synchronize with other monitors"_s}));
        m_widget->toggleToolBars();
        QCOMPARE(texts().value(0), u"Show All"_s);
        m_widget->toggleToolBars();
        m_settings.setPolicy(R"({"deniedTools": ["View.ShowToolBars"]})");
        QCOMPARE(texts(), QStringList());
        m_settings.setPolicy("{}");
    }

private:
    FakeApplication m_application;
    ExMonitorWidget::Content m_content;
    ExMonitorWidget *m_widget = nullptr;
    QStringList m_log;
    McHandle<Recorder> m_recorder;
};

QTEST_MAIN(tst_ExMonitorWidget)
#include "tst_ExMonitorWidget.moc"
