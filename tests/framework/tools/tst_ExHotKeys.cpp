#include "framework/tools/ExActionUI.h"
#include "framework/tools/ExHotKeys.h"
#include "tests/framework/tools/FakeTool.h"

class tst_ExHotKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sequencesOfTools()
    {
        const McHandle<FakeTool> first = new FakeTool("First");
        auto second = std::make_unique<FakeTool>("Second");
        FakeTool local("Local");
        local.global = false;
        m_app.decorations.entries[u"First"_s] = {};
        const std::unique_ptr<ExActionUI> action(ExActionUI::createAction(*first));
        const std::unique_ptr<ExActionUI> clone(ExActionUI::cloneAction(*first));
        ExHotKeys::setHotKey(nullptr, m_a);
        ExHotKeys::setHotKey(&local, m_a);
        ExHotKeys::setHotKey(first, QKeySequence(u"Ctrl+P, A"_s));
        QCOMPARE(shownList(), u"A\tLocal\nCtrl+P, A\tFirst"_s);
        ExHotKeys::setHotKey(first, m_a);
        ExHotKeys::setHotKey(first, m_a);
        QCOMPARE(shownList(), u"A\tLocal, First"_s);
        QCOMPARE(ExHotKeys::findHotKey(m_a), first.get());
        for (const QAction *shown : {action.get(), clone.get()}) {
            QCOMPARE(shown->shortcut(), m_a);
            QCOMPARE(shown->shortcutContext(), Qt::WindowShortcut);
        }
        ExHotKeys::setHotKey(second.get(), m_a); // Taken over.
        QVERIFY(action->shortcut().isEmpty() && clone->shortcut().isEmpty());
        QCOMPARE(shownList(), u"A\tLocal, Second"_s);
        ExHotKeys::setHotKey(&local, QKeySequence());
        QCOMPARE(ExHotKeys::hotKeyTools(), std::vector<ExTool *>{second.get()});
        second.reset(); // Leaves by itself.
        QCOMPARE(ExHotKeys::hotKeyTools(), std::vector<ExTool *>());
    }

    void toolsThatShareAreAskedInTurn()
    {
        class Killer : public FakeTool
        {
        public:
            using FakeTool::FakeTool;
            bool onHotKey(const ExHotKeyEvent &event) override
            {
                victim.reset();
                return FakeTool::onHotKey(event);
            }
            std::unique_ptr<FakeTool> victim = std::make_unique<FakeTool>("victim");
        };
        Killer killer("killer");
        FakeTool last("last");
        killer.takesHotKey = false;
        for (FakeTool *tool : {static_cast<FakeTool *>(&killer), killer.victim.get(), &last}) {
            tool->global = false;
            ExHotKeys::setHotKey(tool, m_a);
        }
        takeLog();
        const McHandle<FakeViewer> viewer = viewerWithVolume();
        QVERIFY(!ExHotKeys::triggerHotKey(QKeySequence(Qt::Key_B), viewer));
        QVERIFY(!ExHotKeys::triggerHotKey(m_a, nullptr));
        QVERIFY(ExHotKeys::triggerHotKey(m_a, viewer));
        last.activatable = false;
        QVERIFY(ExHotKeys::triggerHotKey(m_a, viewer));
        killer.takesHotKey = true;
        killer.setActive(true);
        QVERIFY(ExHotKeys::triggerHotKey(m_a, viewer));
        QCOMPARE(takeLog(),
            u"victim gone,killer hot key,last hot key,killer hot key,last hot key,"
            "last on,killer hot key,last hot key,last on,killer on,killer hot key,"
            "killer off"_s);
    }

private:
    /// What the list shows.
    QString shownList()
    {
        QWidget mainWidget;
        m_app.mainWidget = &mainWidget;
        ExActionUI::showShortCutList();
        return mainWidget.findChild<QTextEdit *>(u"wShortCutList"_s)->toPlainText();
    }

    PrivateSettings m_settings;
    FakeApplication m_app;
    const QKeySequence m_a{Qt::Key_A};
};

QTEST_MAIN(tst_ExHotKeys)
#include "tst_ExHotKeys.moc"
