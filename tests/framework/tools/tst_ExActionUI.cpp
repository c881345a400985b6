#include "framework/dispatch/ClientCall.h"
#include "framework/tools/ExToolLogger.h"
#include "platform/backend/KxServerPeer.h"
#include "tests/framework/tools/FakeTool.h"

namespace {

/// Sends the tool usage log to the log of the fakes.
class UsageLog : public KxServerPeer
{
public:
    UsageLog() { KxServerPeer::install(this); }
    void printSessionLog(const std::string & /*prefix*/, const std::string &text) override
    {
        fakeLog.append(QString::fromStdString(text));
    }
};

void showActive(QWidget &window)
{
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
}

} // namespace

class tst_ExActionUI : public TestOfTools
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        // Any warning, but for the one with which the offscreen platform greets each window.
        QTest::failOnWarning(
            QRegularExpression(u"^(?!This plugin does not support propagateSize)"_s));
        KxPropertyPool &pool = KxPropertyPool::instance();
        pool.property("Hidden.ToolLog", LogEnableType::LET_ALWAYS, pool.defaultSerializer());
        setUp();
    }
    void cleanup() { tearDown(); }

    void decorating()
    {
        m_app->decorations.entries[u"Zoom"_s]
            = {u"Z"_s, u"Stop zooming"_s, u"Zoom"_s, u"Changes the zoom"_s, {}};
        auto *const tool = new FakeTool("Zoom");
        const ExActionUI *const action = ExActionUI::cloneAction(*tool);
        QCOMPARE(m_app->decorations.log.join(u','),
            u"known Zoom,shortCut Zoom,icon Zoom,onText Zoom,offText Zoom,toolTip Zoom"_s);
        QCOMPARE(QStringList(
                     {action->text(), action->iconText(), action->toolTip(), action->objectName()}),
            QStringList({u"Zoom"_s, u"Zoom"_s, u"Changes the zoom"_s, u"Zoom"_s}));
        tool->setActive(true);
        QCOMPARE(action->text(), u"Stop zooming"_s);
    }

    void actionsAndMenusByKey()
    {
        QWidget parent;
        m_settings.setPolicy(R"({"deniedTools": ["Denied"]})");
        const McHandle<FakeTool> denied = makeTool("Denied");
        m_app->decorations.entries[u"Pan"_s] = {};
        ExTool::registerTool(
            "Pan", [](int) -> ExTool * { return new FakeTool("Pan"); }, 0, true);
        const QStringList keys = u"SEPARATOR Pan Denied Separator Unheard Pan"_s.split(u' ');
        const QList<QAction *> actions = ExActionUI::createActions(keys, &parent);
        QCOMPARE(names(actions), u"- Pan - Pan"_s);
        QVERIFY(actions.at(0)->parent() == &parent && actions.at(1) == actions.at(3));
        const QMenu *const menu
            = ExActionUI::createMenu(u"Tools"_s, {u"Pan"_s, u"separator"_s}, &parent);
        QCOMPARE(QString(menu->title() % u": " % names(menu->actions())), u"Tools: Pan -"_s);
        const auto before = parent.children();
        QCOMPARE(ExActionUI::createMenu({}, {u"separator"_s, u"Unheard"_s}, &parent), nullptr);
        QCOMPARE(parent.children(), before);
        m_settings.setPolicy("{}");
    }

    void buttonsFollow()
    {
        FakeTool *const tool = makeTool("Zoom");
        QWidget parent;
        QToolButton byKey(&parent);
        QToolButton unknown(&parent);
        QPushButton push(&parent);
        const ExActionUI *const action = ExActionUI::bind(&push, *tool);
        QVERIFY(ExActionUI::bind(&byKey, "Zoom") == action);
        QVERIFY(ExActionUI::bind(&unknown, "Unheard") == nullptr && unknown.isHidden());
        push.click();
        QVERIFY(tool->isActive() && byKey.isChecked());
        tool->enabled = false;
        tool->updateUI(nullptr);
        QVERIFY(!byKey.isEnabled());
    }

    void toolThatThrowsIsLeftOut()
    {
        const McHandle<FakeTool> thrower = makeTool("Thrower");
        thrower->act = [] { throw 1; };
        const int before = ClientCall::numFailed();
        ExActionUI::createAction(*thrower)->trigger();
        QCOMPARE(ClientCall::numFailed(), before + 1);
    }

    void usersToggleAndTrigger()
    {
        FakeTool *const zoom = makeTool("Zoom");
        FakeTool *const print = makeTool("Print");
        print->activatable = false;
        ExActionUI *const action = ExActionUI::createAction(*zoom);
        action->trigger();
        action->trigger();
        QVERIFY(!action->isActive());
        zoom->standard = true;
        action->trigger();
        action->trigger(); // Can only be left for another.
        QVERIFY(action->isActive() && zoom->isActive());
        ExActionUI::createAction(*print)->trigger();
        QCOMPARE(takeLog(),
            u"Zoom toggled,Zoom on,Zoom untoggled,Zoom off,Zoom toggled,Zoom on,Zoom untoggled,"
            "Print triggered,Print on"_s);
    }

    void anotherTool()
    {
        const McHandle<FakeTool> zoom = makeTool("Zoom", "Z");
        const McHandle<FakeTool> print = makeTool("Print", "P");
        print->activatable = false;
        ExActionUI *const action = ExActionUI::createAction(*zoom);
        action->setTool(print);
        action->trigger();
        QCOMPARE(takeLog(), u"Print triggered,Print on"_s);
        QVERIFY(zoom->getUI() == nullptr && print->getUIs().size() == 1 && !action->isCheckable());
        QCOMPARE(action->shortcut(), QKeySequence(u"P"_s));
        action->slot_editProperties();
        print->addPropertyKey(QRegularExpression(u"^Print"_s));
        action->slot_editProperties();
        QCOMPARE(m_app->log.join(u'|'), u"browse [] []|edit ^Print"_s);
        const McHandle<FakeTool> pan = makeTool("Pan");
        ExHotKeys::setHotKey(pan, m_keyA);
        action->setTool(pan); // It has none by itself; what users gave it stays.
        QVERIFY(action->shortcut().isEmpty() && ExHotKeys::findHotKey(m_keyA) == pan.get());
        action->setTool(nullptr);
        action->trigger();
        action->update(nullptr);
        QCOMPARE(takeLog(), QString());
    }

    void statesFollowTheActiveViewer()
    {
        FakeTool *const tool = makeTool("Zoom");
        tool->enabled = false;
        const QAction *const action = ExActionUI::createAction(*tool);
        const McHandle<FakeViewer> viewer = addActiveViewer();
        const McHandle<FakeViewer> other = viewerWithVolume();
        for (const auto type : {ExNotification::VIEWER_TYPE_CHANGED,
                 ExNotification::PROTOCOL_LOADED, ExNotification::VIEWER_GROUP_DISABLED}) {
            viewer->imageSets[0].reset();
            tool->updateUI(nullptr);
            viewer->imageSets[0] = other->imageSets[0];
            ExNotifiable::notify(ExNotification(type, other));
            QVERIFY(!action->isEnabled());
            ExNotifiable::notify(ExNotification(type, viewer));
            QVERIFY2(action->isEnabled(), ExNotification::Type2String(type));
        }
    }

    void shortCuts()
    {
        const std::pair<const char *, QString> rows[] = {{"Ctrl+K, Ctrl+L", u"Ctrl+K, Ctrl+L"_s},
            {"Ctrl+NUM+5, Ctrl+L", u"Ctrl+5"_s}, {"NUM+", QString()}, {"", QString()}};
        FakeTool *const tool = makeTool("Zoom", "Z");
        ExActionUI *const action = ExActionUI::createAction(*tool);
        QCOMPARE(ExActionUI::createAction(*tool), action);
        ExActionUI *const clone = ExActionUI::cloneAction(*tool);
        QCOMPARE(clone->shortcut(), QKeySequence(u"Z"_s));
        QCOMPARE(clone->shortcutContext(), Qt::WidgetShortcut);
        for (const auto &[text, shown] : rows) {
            action->setShortCut("Z");
            action->setShortCut(text);
            QCOMPARE(action->shortcut().toString(), shown);
            QCOMPARE(ExHotKeys::findHotKey(QKeySequence(u"Z"_s)), nullptr);
            QCOMPARE(ExHotKeys::findHotKey(QKeySequence(shown)), shown.isEmpty() ? nullptr : tool);
            clone->setShortCut("Ctrl+X"); // Stays with the clone.
            QCOMPARE(action->shortcut().toString(), shown);
            QCOMPARE(ExHotKeys::findHotKey(QKeySequence(u"Ctrl+X"_s)), nullptr);
        }
    }

    void keyPressActsOnce()
    {
        // How many clones; whether the short cut is set later, and so in the context of the window
        const std::pair<int, bool> cases[] = {{1, false}, {1, true}, {2, true}};
        for (const auto &[clones, shortCutSetLater] : cases) {
            for (const bool activatable : {true, false}) {
                QToolBar window;
                FakeTool *const tool = makeTool("Zoom", "Ctrl+K");
                tool->activatable = activatable;
                window.addAction(ExActionUI::createAction(*tool));
                for (int i = 0; i < clones; ++i) {
                    window.addAction(ExActionUI::cloneAction(*tool));
                }
                if (shortCutSetLater) {
                    ExHotKeys::setHotKey(tool, QKeySequence(u"Ctrl+K"_s));
                }
                showActive(window);
                for (int i = 0; i < 4; ++i) {
                    QTest::keyClick(window.windowHandle(), Qt::Key_K, Qt::ControlModifier);
                    for (const QAction *action : window.actions()) {
                        QCOMPARE(action->isChecked(), tool->isActive());
                    }
                }
                const QStringList twice = activatable
                    ? QStringList{u"Zoom toggled,Zoom on,Zoom untoggled,Zoom off"_s}
                    : QStringList{u"Zoom triggered,Zoom on,Zoom triggered,Zoom on"_s};
                QCOMPARE(takeLog(), (twice + twice).join(u','));
                qDeleteAll(std::exchange(m_app->actions, {}));
                takeLog();
            }
        }
    }

    void keyPressOfSeveralTools()
    {
        addActiveViewer();
        QToolBar window;
        FakeTool *const first = makeTool("First", "K");
        for (FakeTool *tool : {first, makeTool("Second", "K")}) {
            tool->global = tool->activatable = false;
            window.addAction(ExActionUI::createAction(*tool));
        }
        showActive(window);
        for (int i = 0; i < 3; ++i) {
            first->takesHotKey = i < 2;
            QTest::keyClick(window.windowHandle(), Qt::Key_K);
        }
        const QString byFirst = u"First hot key,First triggered,First on,"_s;
        QCOMPARE(takeLog(),
            QString(
                byFirst % byFirst % u"First hot key,Second hot key,Second triggered,Second on"));
    }

    void sequencesOfTools()
    {
        const McHandle<FakeTool> first = new FakeTool("First");
        auto second = std::make_unique<FakeTool>("Second");
        FakeTool local("Local");
        local.global = false;
        m_app->decorations.entries[u"First"_s] = {};
        const ExActionUI *const action = ExActionUI::createAction(*first);
        const ExActionUI *const clone = ExActionUI::cloneAction(*first);
        ExHotKeys::setHotKey(nullptr, m_keyA);
        ExHotKeys::setHotKey(&local, m_keyA);
        ExHotKeys::setHotKey(first, QKeySequence(u"Ctrl+P, A"_s));
        QCOMPARE(shownList(), u"A\tLocal\nCtrl+P, A\tFirst"_s);
        ExHotKeys::setHotKey(first, m_keyA);
        ExHotKeys::setHotKey(first, m_keyA);
        QCOMPARE(shownList(), u"A\tLocal, First"_s);
        QCOMPARE(ExHotKeys::findHotKey(m_keyA), first.get());
        for (const ExActionUI *shown : {action, clone}) {
            QCOMPARE(shown->shortcut(), m_keyA);
            QCOMPARE(shown->shortcutContext(), Qt::WindowShortcut);
        }
        ExHotKeys::setHotKey(second.get(), m_keyA); // Taken over.
        QVERIFY(action->shortcut().isEmpty() && clone->shortcut().isEmpty());
        QCOMPARE(shownList(), u"A\tLocal, Second"_s);
        ExHotKeys::setHotKey(&local, QKeySequence());
        QCOMPARE(ExHotKeys::hotKeyTools(), std::vector<ExTool *>{second.get()});
        second.reset(); // Leaves by itself.
        QCOMPARE(ExHotKeys::hotKeyTools(), std::vector<ExTool *>());
    }

    void toolsThatShareAreAskedInTurn()
    {
        auto victim = std::make_unique<FakeTool>("victim");
        FakeTool killer("killer");
        FakeTool last("last");
        killer.takesHotKey = false;
        killer.act = [&] { victim.reset(); };
        for (FakeTool *tool : {&killer, victim.get(), &last}) {
            tool->global = false;
            ExHotKeys::setHotKey(tool, m_keyA);
        }
        takeLog();
        const McHandle<FakeViewer> viewer = viewerWithVolume();
        QVERIFY(!ExHotKeys::triggerHotKey(QKeySequence(Qt::Key_B), viewer));
        QVERIFY(!ExHotKeys::triggerHotKey(m_keyA, nullptr));
        QVERIFY(ExHotKeys::triggerHotKey(m_keyA, viewer));
        last.activatable = false;
        QVERIFY(ExHotKeys::triggerHotKey(m_keyA, viewer));
        killer.takesHotKey = true;
        killer.setActive(true);
        QVERIFY(ExHotKeys::triggerHotKey(m_keyA, viewer));
        QCOMPARE(takeLog(),
            u"killer hot key,victim gone,last hot key,killer hot key,last hot key,last toggled,"
            "last on,killer hot key,last hot key,last triggered,last on,killer on,killer hot key,"
            "killer untoggled,killer off"_s);
    }

private:
    /// What the list of short cuts shows.
    QString shownList()
    {
        QWidget mainWidget;
        m_app->mainWidget = &mainWidget;
        ExActionUI::showShortCutList();
        return mainWidget.findChild<QTextEdit *>(u"wShortCutList"_s)->toPlainText();
    }

    UsageLog m_usage;
    const QKeySequence m_keyA{Qt::Key_A};
};

QTEST_MAIN(tst_ExActionUI)
#include "tst_ExActionUI.moc"
