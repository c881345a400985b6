#include "framework/tools/ExMenuTrigger.h"
#include "framework/tools/ExToolGroup.h"
#include "tests/framework/tools/FakeTool.h"

namespace {

class Command : public ExTrigger
{
public:
    using ExTrigger::ExTrigger;
    bool process(ExBaseViewer *viewer, bool on) override
    {
        fakeLog.append(QLatin1String(on ? "run" : "run off")
            + QLatin1String(viewer == nullptr ? "" : " on viewer"));
        ExViewerManager::getInstance().setActiveViewer(nextActive);
        return succeeds;
    }

    ExBaseViewer *nextActive = nullptr;
    bool succeeds = true;
};

/// What menu triggers are connected to.
class Receiver : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    bool run(bool on)
    {
        fakeLog.append(QLatin1String(on ? "run" : "run off"));
        return on;
    }
    bool fits(const ExBaseViewer *viewer) { return viewer != nullptr; }
};

} // namespace

class tst_ExTrigger : public TestOfTools
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void commands()
    {
        // Whether it is a state, and whether the command succeeds
        const std::tuple<bool, bool, QString> rows[]
            = {{false, true,
                   u"1: run,shows c,update viewer|1: run on viewer,shows c,update viewer|1: "_s},
                {false, false, u"0: run|0: run on viewer|1: "_s},
                {true, true,
                    u"1: shows c,update,run,shows c,update viewer|1: update|"
                    "1: update,run off on viewer,update viewer"_s},
                {true, false, u"0: shows c,update,run|1: update|0: update,run off on viewer"_s}};
        const McHandle<FakeViewer> viewer = new FakeViewer;
        m_manager->add(viewer);
        for (const auto &[activatable, succeeds, events] : rows) {
            m_manager->setActiveViewer(nullptr);
            const McHandle<Command> command = new Command("c");
            command->setActivatable(activatable);
            command->nextActive = viewer; // The command may change it.
            command->succeeds = succeeds;
            FakeUI button;
            button.setTool(command);
            ExToolGroup group;
            group.setBringUp(true);
            group.setGroupUI(&button);
            group.appendTool(command, false);
            QStringList results;
            for (const bool on : {true, true, false}) {
                takeLog();
                const bool result = command->setActive(on);
                results.append(QString::number(int(result)) % u": " % takeLog());
            }
            QCOMPARE(results.join(u'|'), events);
        }
    }

    void menuTriggers()
    {
        Receiver receiver;
        const McHandle<FakeViewer> viewer = new FakeViewer; // Without an image: not asked for here.
        const McHandle<ExMenuTrigger> trigger = new ExMenuTrigger(
            "Menu", &receiver, SLOT(run(bool)), &receiver, SLOT(fits(const ExBaseViewer *)));
        QVERIFY(!trigger->isActivatable());
        QVERIFY(trigger->supportsViewer(viewer) && !trigger->supportsViewer(nullptr));
        QVERIFY(trigger->process(viewer, true) && !trigger->process(nullptr, true));
        QVERIFY(!trigger->process(viewer, false));
        QCOMPARE(takeLog(), u"run,run off"_s);

        const McHandle<ExMenuTrigger> alone
            = new ExMenuTrigger("Alone", nullptr, nullptr, nullptr, nullptr);
        FakeUI ui;
        ui.setTool(alone);
        QVERIFY(alone->supportsViewer(nullptr) && !alone->setActive(true));
        QCOMPARE(takeLog(), u"shows Alone"_s);
    }

    void subMenus()
    {
        const McHandle<FakeTool> tool = new FakeTool("Zoom");
        m_app->decorations.entries = {{u"Zoom"_s, {}}, {u"Menu"_s, {}}};
        const McHandle<ExMenuTrigger> trigger
            = new ExMenuTrigger("Menu", {u"Zoom"_s, u"separator"_s}, nullptr, nullptr);
        const QPointer<QMenu> menu = trigger->action()->menu();
        const QList<QAction *> actions = menu->actions();
        QVERIFY(actions.size() == 2 && !actions.at(0)->isEnabled() && actions.at(1)->isSeparator());
        tool->enabled = true;
        Q_EMIT menu->aboutToShow();
        QVERIFY(actions.at(0)->isEnabled());

        trigger->createSubMenu(nullptr, nullptr);
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
        tool->enabled = false;
        const QPointer<QMenu> second = trigger->action()->menu();
        Q_EMIT second->aboutToShow();
        QVERIFY(actions.at(0)->isEnabled()); // Nobody refreshes this menu.
        qDeleteAll(std::exchange(m_app->actions, {}));
        QVERIFY(menu.isNull() && second.isNull());
    }
};

QTEST_MAIN(tst_ExTrigger)
#include "tst_ExTrigger.moc"
