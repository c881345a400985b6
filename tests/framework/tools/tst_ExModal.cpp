#include "framework/input/ExEventHandler.h"
#include "framework/tools/ExContextToolBar.h"
#include "framework/tools/ExModal.h"
#include "framework/tools/ExToolBar.h"
#include "framework/tools/ExToolGroup.h"
#include "tests/framework/tools/FakeTool.h"

namespace {

QString numbers(std::initializer_list<int> values)
{
    QStringList texts;
    for (const int value : values) {
        texts.append(QString::number(value));
    }
    return texts.join(u' ');
}

/// Notes what it handles as "name kind numbers", and does what the test wants.
class FakeModal : public ExModal
{
public:
    explicit FakeModal(const char *name, int state = 1, bool exclusive = true)
        : ExModal(name, state, exclusive)
    { }
    ~FakeModal() override
    {
        if (isActive()) {
            fakeLog.append(name() + u" gone");
        }
    }

    [[nodiscard]] bool supportsViewer(const ExBaseViewer *viewer) const override
    {
        return ExModal::supportsViewer(viewer) && viewer != unsupported;
    }
    [[nodiscard]] bool needsExclusiveClickForActivation() const override { return ownClick; }
    [[nodiscard]] ExModal *realTool(const ExBaseViewer *viewer) const override
    {
        return real != nullptr ? real->realTool(viewer) : ExModal::realTool(viewer);
    }
    bool processMouseEvent(ExBaseViewer * /*viewer*/, Kx::MouseEvent event, int x, int y,
        Kx::ButtonState state, Kx::KxCursorShape &cursorShape) override
    {
        if (shape != Kx::DefaultCursor && testCursorState(state)) {
            cursorShape = shape;
        }
        return handled(u" mouse " % numbers({event, x, y, static_cast<int>(state)}));
    }
    bool processKeyEvent(
        ExBaseViewer * /*viewer*/, Kx::KeyEvent event, Kx::Key key, Kx::ButtonState state) override
    {
        return handled(u" key " % numbers({event, key, static_cast<int>(state)}));
    }
    bool processWheelEvent(
        ExBaseViewer * /*viewer*/, int x, int y, int delta, Kx::ButtonState state) override
    {
        return handled(u" wheel " % numbers({x, y, delta, static_cast<int>(state)}));
    }
    [[nodiscard]] QString displayHint(const ExBaseViewer * /*viewer*/) const override
    {
        return hint;
    }
    [[nodiscard]] QString name() const { return QLatin1String(decorationKey()); }

    const ExBaseViewer *unsupported = nullptr;
    bool ownClick = false;
    ExModal *real = nullptr;
    Kx::KxCursorShape shape = Kx::DefaultCursor;
    bool uses = true;
    QString hint;
    std::function<void()> act;

private:
    bool handled(const QString &event)
    {
        fakeLog.append(name() + event);
        const bool isUsed = uses;
        if (const auto action = act) {
            action(); // May destroy the tool.
        }
        return isUsed;
    }
};

/// One with sub-tools.
class FakeModalGroup : public FakeModal, public ExToolGroup
{
public:
    using FakeModal::FakeModal;
    using FakeModal::updateDisplayHint;
};

/// What the context tool bar shows in a viewer: its hint, if any, and how many sub-tools; empty for
/// nothing.
QString barIn(const ExBaseViewer &viewer)
{
    const auto *const bar = viewer.renderWidget()->findChild<ExToolBar *>();
    const auto *const hint = viewer.renderWidget()->findChild<QLabel *>();
    if (bar == nullptr || !bar->isVisible()) {
        return {};
    }
    return (hint->isVisible() ? hint->text() : u"-"_s)
        % u", %1 actions"_s.arg(bar->actions().size());
}

/// An action of the viewer's handler, which comes before all tools.
class Consumer : public ExActionHandler
{
public:
    explicit Consumer(ExEventHandler &handler)
    {
        handler.addAction(ExEventHandler::Action(
            ExSignal(ExSignal::PRESS, Qt::LeftButton, 0, 0), this, &Consumer::pressed));
    }
    bool pressed(const ExEvent &event)
    {
        event.setActivating(activates);
        return consumes;
    }

    bool consumes = false;
    bool activates = false;
};

QString toolsOf(const ExBaseViewer &viewer)
{
    QStringList names;
    for (const ExModal *tool : viewer.modalTools()) {
        names.append(QLatin1String(tool->decorationKey()));
    }
    return names.join(u' ');
}

ExEvent eventOf(ExSignal::Type type, int code, unsigned state)
{
    ExEvent event;
    static_cast<ExSignal &>(event) = ExSignal(type, code, static_cast<int>(state), 0);
    return event;
}

constexpr unsigned shift = Qt::ShiftModifier;
constexpr unsigned control = Qt::ControlModifier;
constexpr unsigned alt = Qt::AltModifier;

/// A viewer with a render widget that its handler watches.
struct WatchedViewer
{
    explicit WatchedViewer(const McHandle<FakeViewer> &shown)
        : viewer(shown)
        , widget(&viewer->makeWidget())
    {
        viewer->handler = &handler;
        handler.connect(widget);
        ExViewerManager::getInstance().setActiveViewer(viewer);
    }
    void press() const { QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(1, 1)); }

    McHandle<FakeViewer> viewer;
    ExEventHandler handler;
    QPointer<QWidget> widget;
};

} // namespace

class tst_ExModal : public TestOfTools
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u"."_s));
        setUp();
    }

    void cleanup()
    {
        m_whenTold = {};
        tearDown();
    }

    void mouseCodes()
    {
        using S = ExSignal;
        const std::pair<ExEvent, const char *> rows[]
            = {{eventOf(S::PRESS, Qt::LeftButton, 1 | shift), "3 9"},
                {eventOf(S::PRESS, Qt::LeftButton, shift), "3 9"}, // The state lacks the button.
                {eventOf(S::PRESS, Qt::MiddleButton, 4 | shift | control | alt), "5 58"},
                {eventOf(S::PRESS, Qt::MiddleButton, 4 | 2), "7 6"}, // beside the right one
                {eventOf(S::PRESS, Qt::LeftButton, 4 | 1), "5 3"}, // beside the middle one
                {eventOf(S::RELEASE, Qt::RightButton, 0), "6 0"},
                {eventOf(S::RELEASE, Qt::LeftButton, 2), "6 4"}, // The right one is held.
                {eventOf(S::CLICK, Qt::MiddleButton, control), "4 16"},
                {eventOf(S::DOUBLE_CLICK, Qt::LeftButton, 1), "3 65"},
                {eventOf(S::DOUBLE_CLICK, Qt::BackButton, 8), "0 0"},
                {eventOf(S::MOVE, 0, alt), "0 32"}, {eventOf(S::MOVE, 0, 1 | 2), "0 5"}};
        for (const auto &[event, expected] : rows) {
            Kx::MouseEvent code{};
            Kx::ButtonState state{};
            QVERIFY(ExModal::mapToKxMouseEvent(event, code, state));
            QCOMPARE(numbers({code, static_cast<int>(state)}), QLatin1String(expected));
        }
    }

    void states()
    {
        const std::tuple<int, int, int, const char *> rows[] = {
            // The tool's state, what it ignores of it, what is held
            {1, 0, 1, "press cursor start"},
            {1, 0, 0, "cursor stop"},
            {4, 0, 0, "stop"},
            {1, 0, 65, ""}, // a double click
            {1, 0, 5, ""}, // another button, too
            {1, 8, 9, "cursor start"}, // Shift is ignored,
            {1, 8, 8, "cursor stop"}, // alone as well,
            {9, 8, 9, "press cursor"}, // but is the tool's.
            {18, 0, 18, "press cursor start"},
            {18, 0, 2, "stop"},
            {0, 0, 0, "press cursor start"},
        };
        for (const auto &[own, ignored, state, expected] : rows) {
            const McHandle<FakeModal> tool = new FakeModal("t", own);
            tool->setStateIgnoreMask(ignored);
            const auto held = static_cast<Kx::ButtonState>(state);
            const std::pair<const char *, bool> tests[] = {
                {"press", tool->buttonPressed(Kx::MiddlePressed, held)},
                {"cursor", tool->testCursorState(held)}, {"start", tool->testActivationState(held)},
                {"stop", tool->testDeactivationState(held)}};
            QStringList holds;
            for (const auto &[test, isTrue] : tests) {
                holds += isTrue ? QStringList(QLatin1String(test)) : QStringList();
            }
            QCOMPARE(holds.join(u' '), QLatin1String(expected));
            QVERIFY(tool->buttonReleased(Kx::RightReleased, held));
            QVERIFY(!tool->buttonReleased(Kx::RightPressed, held));
        }
    }

    void activation()
    {
        const McHandle<FakeViewer> a = addViewer();
        const McHandle<FakeViewer> b = addViewer();
        const McHandle<FakeViewer> empty = new FakeViewer;
        m_manager->add(empty);
        m_manager->setActiveViewer(a);
        const McHandle<FakeModal> scroll = new FakeModal("scroll", 4, false);
        const McHandle<FakeModal> zoom = new FakeModal("zoom");
        const McHandle<FakeModal> pan = new FakeModal("pan");
        const McHandle<FakeModal> line = new FakeModal("line");
        const McHandle<FakeModal> roll = new FakeModal("roll", 4);
        pan->unsupported = b;
        const auto lists = [&]() -> QString {
            return toolsOf(*a) % u'|' % toolsOf(*b) % u'|' % toolsOf(*empty);
        };
        QStringList events;
        const auto set = [&](ExModal &tool, bool on) {
            const bool isDone = tool.setActive(on);
            events.append(takeLog() % (isDone ? u": " : u" failed: ") % lists());
        };
        set(*zoom, false);
        set(*scroll, true);
        set(*zoom, true);
        set(*zoom, true);
        set(*pan, true); // Leaves zoom the other viewer.
        set(*line, true);
        set(*roll, true);
        set(*line, false);
        QCOMPARE(events,
            QStringList({
                u": ||"_s,
                u"scroll ACTIVE_TOOL_CHANGED,scroll TOOL_ACTIVATED: scroll|scroll|"_s,
                u"zoom ACTIVE_TOOL_CHANGED,zoom TOOL_ACTIVATED: scroll zoom|scroll zoom|"_s,
                u": scroll zoom|scroll zoom|"_s,
                u"pan ACTIVE_TOOL_CHANGED,pan TOOL_ACTIVATED: scroll pan|scroll zoom|"_s,
                u"zoom TOOL_DEACTIVATED,pan TOOL_DEACTIVATED,line ACTIVE_TOOL_CHANGED,"
                "line TOOL_ACTIVATED: scroll line|scroll line|"_s,
                u"roll ACTIVE_TOOL_CHANGED,roll TOOL_ACTIVATED: scroll line "
                "roll|scroll line roll|"_s,
                u"line TOOL_DEACTIVATED: scroll roll|scroll roll|"_s,
            }));
        QVERIFY(!pan->isActive() && !zoom->isActive() && scroll->isActive());
        QVERIFY(zoom->isEnabled(nullptr) && zoom->stateForUse() == 1);
    }

    void noActiveViewer()
    {
        const McHandle<FakeViewer> viewer = addViewer();
        const McHandle<FakeModal> zoom = new FakeModal("zoom");
        QVERIFY(zoom->setActive(true) && zoom->isActive());
        QCOMPARE(toolsOf(*viewer) % takeLog(), QString());
        m_manager->setActiveViewer(viewer);
        QCOMPARE(toolsOf(*viewer) % u':' % takeLog(),
            u"zoom:zoom ACTIVE_TOOL_CHANGED,zoom TOOL_ACTIVATED"_s);
        m_manager->setActiveViewer(nullptr);
        m_manager->removeViewer(viewer);
        QVERIFY(zoom->setActive(false));
        QCOMPARE(toolsOf(*viewer) % takeLog(), QString());
        QVERIFY(zoom->setActive(true) && zoom->setActive(false));
        m_manager->setActiveViewer(viewer);
        QCOMPARE(toolsOf(*viewer) % takeLog(), QString());
    }

    void viewersThatChange()
    {
        addActiveViewer();
        const McHandle<FakeModal> zoom = new FakeModal("zoom");
        const McHandle<FakeModal> pan = new FakeModal("pan");
        zoom->setActive(true);
        const McHandle<FakeViewer> added = addViewer();
        QCOMPARE(toolsOf(*added), u"zoom"_s);

        pan->unsupported = m_manager->viewer(0);
        pan->setActive(true); // The later one has the viewers that both support.
        const McHandle<FakeViewer> late = new FakeViewer;
        m_manager->add(late);
        QCOMPARE(toolsOf(*added) % u'|' % toolsOf(*late), u"pan|"_s);
        late->imageSets[0] = added->imageSets[0];
        takeLog();
        ExNotifiable::notify(ExNotification(ExNotification::VIEWER_VOLUME_CHANGED, late));
        QCOMPARE(toolsOf(*late) % takeLog(), u"pan"_s);
        late->imageSets[0].reset();
        ExNotifiable::notify(ExNotification(ExNotification::VIEWER_VOLUME_CHANGED, late));
        QCOMPARE(toolsOf(*late), QString());

        const McHandle<FakeViewer> elsewhere = viewerWithVolume();
        ExNotifiable::notify(ExNotification(ExNotification::VIEWER_VOLUME_CHANGED, elsewhere));
        QCOMPARE(toolsOf(*elsewhere), QString());
    }

    void switchedWhileTold()
    {
        const McHandle<FakeViewer> viewer = addActiveViewer();
        const McHandle<FakeModal> zoom = new FakeModal("zoom");
        m_whenTold = [&](ExNotification::Type type) {
            if (type == ExNotification::ACTIVE_TOOL_CHANGED) {
                zoom->setActive(false);
            }
        };
        QVERIFY(zoom->setActive(true) && !zoom->isActive());
        QCOMPARE(toolsOf(*viewer) % takeLog(), u"zoom ACTIVE_TOOL_CHANGED,zoom TOOL_DEACTIVATED"_s);

        m_whenTold = {};
        const McHandle<FakeViewer> aside = addViewer();
        McHandle<FakeModal> pan = new FakeModal("pan");
        pan->setActive(true);
        m_manager->removeViewer(aside);
        takeLog();
        pan.reset();
        QCOMPARE(toolsOf(*viewer) % toolsOf(*aside) % takeLog(), u"pan gone"_s);
    }

    void contextToolBar()
    {
        const McHandle<FakeViewer> a = addViewer();
        a->makeWidget().resize(200, 200);
        a->renderWidget()->show();
        m_manager->setActiveViewer(a);
        const McHandle<FakeModal> line = new FakeModal("line");
        const McHandle<FakeModalGroup> angle = new FakeModalGroup("angle", 4);
        const McHandle<FakeTool> sub = new FakeTool("sub");
        m_app->decorations.entries = {{u"sub"_s, {}}};
        angle->appendTool(sub, false);
        line->hint = u"Two points"_s;
        line->setActive(true);
        QTRY_COMPARE(barIn(*a), u"Two points, 0 actions"_s);
        angle->setActive(true);
        QTRY_COMPARE(barIn(*a), u"-, 1 actions"_s);
        angle->setActive(false);
        QTRY_COMPARE(barIn(*a), u"Two points, 0 actions"_s);
        line->setActive(false);
        QCOMPARE(barIn(*a), QString());

        // A hint that goes leaves the sub-tools; a tool that is switched on and off, or has nothing
        // to show, leaves no empty bar; one that is destroyed at work takes its sub-tools along.
        angle->hint = u"Three points"_s;
        angle->setActive(true);
        QTRY_COMPARE(barIn(*a), u"Three points, 1 actions"_s);
        angle->removeTool(sub);
        ExNotifiable::notify(ExNotification(ExNotification::VIEWER_TYPE_CHANGED, a));
        QTRY_COMPARE(barIn(*a), u"Three points, 0 actions"_s);
        angle->appendTool(sub, false);
        ExNotifiable::notify(ExNotification(ExNotification::VIEWER_TYPE_CHANGED, a));
        QTRY_COMPARE(barIn(*a), u"Three points, 1 actions"_s);
        angle->hint.clear();
        angle->updateDisplayHint();
        QTRY_COMPARE(barIn(*a), u"-, 1 actions"_s);
        angle->setActive(false);
        angle->setActive(true);
        angle->setActive(false);
        const McHandle<FakeModalGroup> empty = new FakeModalGroup("empty", 2);
        empty->setActive(true);
        QCoreApplication::processEvents();
        QCOMPARE(barIn(*a), QString());
        McHandle<FakeModalGroup> going = new FakeModalGroup("going", 1);
        going->appendTool(sub, false);
        going->setActive(true);
        QTRY_COMPARE(barIn(*a), u"-, 1 actions"_s);
        going = nullptr;
        QCOMPARE(barIn(*a), QString());
    }

    void offered()
    {
        WatchedViewer watched(addViewer());
        QWidget &widget = *watched.widget;
        const McHandle<FakeModal> zoom = new FakeModal("zoom");
        zoom->setActive(true);
        takeLog();
        watched.handler.disconnect(&widget);
        watched.press();
        watched.handler.connect(&widget);
        const auto wheel = [&](Qt::KeyboardModifiers modifiers) {
            QWheelEvent event(QPointF(8, 9), QPointF(), {}, QPoint(0, 120), {}, modifiers,
                Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&widget, &event);
            return event.isAccepted();
        };
        QTest::mousePress(&widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(2, 3));
        QTest::mouseMove(&widget, QPoint(30, 4));
        QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(30, 4));
        QTest::mouseClick(&widget, Qt::RightButton, Qt::NoModifier, QPoint(5, 6));
        QTest::keyClick(&widget, Qt::Key_Delete);
        QVERIFY(wheel({}));
        wheel(Qt::ControlModifier); // Not the tool's.
        widget.setEnabled(false);
        QTest::mouseMove(&widget, QPoint(7, 7));
        widget.setEnabled(true);
        zoom->setActive(false);
        QTest::mouseMove(&widget, QPoint(8, 8));
        QCOMPARE(takeLog(),
            u"zoom mouse 3 2 3 9,zoom mouse 0 30 4 1,zoom mouse 2 30 4 0,"
            "zoom mouse 7 5 6 4,zoom mouse 6 5 6 0,zoom key 1 1114119 0,"
            "zoom key 0 1114119 0,zoom wheel 8 9 120 0,zoom TOOL_DEACTIVATED"_s);
    }

    void whoIsAsked()
    {
        WatchedViewer watched(addViewer());
        const McHandle<FakeModal> zoom = new FakeModal("zoom", 1, false);
        const McHandle<FakeModal> pan = new FakeModal("pan", 1, false);
        const McHandle<FakeModal> worker = new FakeModal("worker", 1, false);
        zoom->setActive(true);
        pan->setActive(true);
        pan->uses = false;
        QStringList asked;
        const auto press = [&] {
            takeLog();
            watched.press();
            asked.append(takeLog());
        };
        press();
        pan->uses = true;
        press();
        pan->real = worker;
        press();
        worker->unsupported = watched.viewer; // No longer, and not told.
        press();
        pan->real = nullptr;
        pan->ownClick = true;
        Consumer consumer(watched.handler);
        consumer.activates = true;
        press();
        consumer.consumes = true;
        press();
        QCOMPARE(asked.join(u'|'),
            u"pan mouse 3 1 1 1,zoom mouse 3 1 1 1|pan mouse 3 1 1 1|"
            "worker mouse 3 1 1 1|zoom mouse 3 1 1 1|zoom mouse 3 1 1 1|"_s);
    }

    void cursors()
    {
        WatchedViewer watched(addViewer());
        QWidget &widget = *watched.widget;
        const McHandle<FakeModal> roll = new FakeModal("roll", 4);
        const McHandle<FakeModal> line = new FakeModal("line");
        roll->setActive(true);
        line->setActive(true);
        roll->shape = Kx::VerticalCursor;
        line->shape = Kx::CrossCursor;
        line->uses = false;
        QList<Qt::CursorShape> shapes;
        const auto move = [&](Qt::MouseButtons held) {
            QMouseEvent event(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, held,
                Qt::NoModifier);
            QCoreApplication::sendEvent(&widget, &event);
            shapes.append(widget.cursor().shape());
        };
        move(Qt::NoButton);
        move(Qt::RightButton);
        QTest::keyClick(&widget, Qt::Key_A); // Keys leave the cursor as it is.
        shapes.append(widget.cursor().shape());
        move(Qt::MiddleButton);
        widget.setCursor(Qt::WaitCursor);
        move(Qt::NoButton);
        line->setActive(false);
        move(Qt::NoButton);
        QCOMPARE(shapes,
            QList<Qt::CursorShape>({Qt::CrossCursor, Qt::SizeVerCursor, Qt::SizeVerCursor,
                Qt::ArrowCursor, Qt::CrossCursor, Qt::WaitCursor}));
    }

    void goneWhileAsked()
    {
        WatchedViewer watched(addViewer());
        const McHandle<FakeModal> first = new FakeModal("first", 1, false);
        const McHandle<FakeModal> second = new FakeModal("second", 1, false);
        auto *const unheld = new FakeModal("unheld", 1, false);
        McHandle<FakeModal> held = new FakeModal("held", 1, false);
        for (FakeModal *tool : {first.get(), second.get(), unheld, held.get()}) {
            tool->setActive(true);
            tool->uses = false;
        }
        takeLog();
        held->act = [&] { held.reset(); };
        unheld->act = [&] {
            second->setActive(false);
            delete unheld;
        };
        watched.press();
        QCOMPARE(takeLog(),
            u"held mouse 3 1 1 1,held gone,unheld mouse 3 1 1 1,"
            "second TOOL_DEACTIVATED,unheld gone,first mouse 3 1 1 1"_s);

        // The one asked first closes the viewer.
        second->setActive(true);
        takeLog();
        second->act = [&] {
            m_manager->setActiveViewer(nullptr);
            m_manager->removeAllViewers();
            watched.viewer.reset();
        };
        watched.press();
        QCOMPARE(takeLog(), u"second mouse 3 1 1 1"_s);
        QVERIFY(watched.widget.isNull());
    }

private:
    McHandle<FakeViewer> addViewer()
    {
        const McHandle<FakeViewer> viewer = viewerWithVolume();
        m_manager->add(viewer);
        return viewer;
    }

    std::function<void(ExNotification::Type)> m_whenTold;
    QStringList m_ignored;
    Recorder m_watch{QString(), m_ignored,
        {ExNotification::TOOL_DEACTIVATED, ExNotification::ACTIVE_TOOL_CHANGED,
            ExNotification::TOOL_ACTIVATED},
        [this](const ExNotification &notification) {
            const bool isRight = notification.viewer() == m_manager->activeViewer();
            const auto *const tool = static_cast<const FakeModal *>(notification.tool());
            fakeLog.append(tool->name() % u' '
                % QLatin1String(ExNotification::Type2String(notification.type()))
                % (isRight ? u"" : u" wrong viewer"));
            if (m_whenTold) {
                m_whenTold(notification.type());
            }
        }};
};

QTEST_MAIN(tst_ExModal)
#include "tst_ExModal.moc"
