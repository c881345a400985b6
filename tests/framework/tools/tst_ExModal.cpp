#include "framework/input/ExEventHandler.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/tools/ExContextToolBar.h"
#include "framework/tools/ExShapeTool.h"
#include "tests/framework/tools/FakeTool.h"
#include "tests/support/FakeViewerManager.h"
#include "tests/support/PrivateSettings.h"

#include <QMouseEvent>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QWheelEvent>

#include <functional>

namespace {

QString number(int value)
{
    return QString::number(value);
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
        return handled(u" mouse " % number(event) % u' ' % number(x) % u' ' % number(y) % u' '
            % number(static_cast<int>(state)));
    }
    bool processKeyEvent(
        ExBaseViewer * /*viewer*/, Kx::KeyEvent event, Kx::Key key, Kx::ButtonState state) override
    {
        return handled(u" key " % number(event) % u' ' % QString::number(key, 16) % u' '
            % number(static_cast<int>(state)));
    }
    bool processWheelEvent(
        ExBaseViewer * /*viewer*/, int x, int y, int delta, Kx::ButtonState state) override
    {
        return handled(u" wheel " % number(x) % u' ' % number(y) % u' ' % number(delta) % u' '
            % number(static_cast<int>(state)));
    }
    [[nodiscard]] QString name() const { return QLatin1String(decorationKey()); }

    const ExBaseViewer *unsupported = nullptr;
    bool ownClick = false;
    ExModal *real = nullptr;
    Kx::KxCursorShape shape = Kx::DefaultCursor;
    bool uses = true;
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

/// Notes which tools begin and end work, and whether that came with the active viewer and no data.
class ToolWatch : public ExNotifiable
{
public:
    void notified(const ExNotification &notification) override
    {
        const auto &tool = static_cast<const FakeModal &>(*notification.tool());
        const bool isRight = notification.viewer() == ExViewerManager::getInstance().activeViewer()
            && notification.data() == nullptr;
        fakeLog.append(tool.name() % u' '
            % QLatin1String(ExNotification::Type2String(notification.type()))
            % (isRight ? u"" : u" wrong"));
        if (act) {
            act(notification.type());
        }
    }
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotifications(this, ExNotification::TOOL_DEACTIVATED,
            ExNotification::ACTIVE_TOOL_CHANGED, ExNotification::TOOL_ACTIVATED,
            ExNotification::NONE);
    }

    std::function<void(ExNotification::Type)> act;
};

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

} // namespace

class tst_ExModal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void mouseCodes_data();
    void mouseCodes();
    void keyCodes_data();
    void keyCodes();
    void states_data();
    void states();
    void activation();
    void noActiveViewer();
    void viewersThatChange();
    void switchedWhileTold();
    void offered();
    void whoIsAsked();
    void cursors();
    void goneWhileAsked();
    void picking();

private:
    McHandle<FakeViewer> addViewer();

    PrivateSettings m_settings;
    FakeViewerManager m_manager;
    ToolWatch m_watch;
};

void tst_ExModal::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    takeLog();
}

void tst_ExModal::cleanup()
{
    m_watch.act = {};
    m_manager.setActiveViewer(nullptr);
    m_manager.removeAllViewers();
    delete m_manager.contextToolBar();
    QCOMPARE(QApplication::topLevelWidgets(), QWidgetList());
}

McHandle<FakeViewer> tst_ExModal::addViewer()
{
    const McHandle<FakeViewer> viewer = viewerWithVolume();
    m_manager.add(viewer);
    return viewer;
}

void tst_ExModal::mouseCodes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("button");
    QTest::addColumn<unsigned>("held");
    QTest::addColumn<int>("code");
    QTest::addColumn<unsigned>("state");
    const auto row = [](const char *name, ExSignal::Type type, int button, unsigned held, int code,
                         unsigned state) {
        QTest::newRow(name) << int{type} << button << held << code << state;
    };
    row("left pressed with Shift", ExSignal::PRESS, Qt::LeftButton, 1 | shift, 3, 9);
    row("the same, state without the button", ExSignal::PRESS, Qt::LeftButton, shift, 3, 9);
    row("middle pressed, all modifiers", ExSignal::PRESS, Qt::MiddleButton,
        4 | shift | control | alt, 5, 2 + 8 + 16 + 32);
    row("right pressed", ExSignal::PRESS, Qt::RightButton, 2, 7, 4);
    row("middle beside right", ExSignal::PRESS, Qt::MiddleButton, 4 | 2, 7, 6);
    row("left beside middle", ExSignal::PRESS, Qt::LeftButton, 4 | 1, 5, 3);
    row("left released", ExSignal::RELEASE, Qt::LeftButton, 0, 2, 0);
    row("right released", ExSignal::RELEASE, Qt::RightButton, 0, 6, 0);
    row("left released, right held", ExSignal::RELEASE, Qt::LeftButton, 2, 6, 4);
    row("middle clicked", ExSignal::CLICK, Qt::MiddleButton, control, 4, 16);
    row("left twice", ExSignal::DOUBLE_CLICK, Qt::LeftButton, 1, 3, 65);
    row("moved", ExSignal::MOVE, 0, alt, 0, 32);
    row("dragged", ExSignal::MOVE, 0, 1 | 2, 0, 5);
    row("another button pressed", ExSignal::PRESS, Qt::BackButton, 8, 0, 0);
    row("the same twice", ExSignal::DOUBLE_CLICK, Qt::BackButton, 8, 0, 0);
}

void tst_ExModal::mouseCodes()
{
    QFETCH(int, type);
    QFETCH(int, button);
    QFETCH(unsigned, held);
    const ExEvent event = eventOf(static_cast<ExSignal::Type>(type), button, held);
    Kx::MouseEvent code = Kx::RightPressed;
    Kx::ButtonState state = Kx::DoubleClick;
    QVERIFY(ExModal::mapToKxMouseEvent(event, code, state));
    QTEST(int{code}, "code");
    QTEST(static_cast<unsigned>(state), "state");
}

void tst_ExModal::keyCodes_data()
{
    QTest::addColumn<int>("toolkitKey");
    QTest::addColumn<int>("key");
    QTest::newRow("letter") << int{Qt::Key_A} << int{'A'};
    QTest::newRow("umlaut") << int{Qt::Key_Odiaeresis} << 0xd6;
    QTest::newRow("Escape") << int{Qt::Key_Escape} << int{Kx::EscapeKey};
    QTest::newRow("Page Down") << int{Qt::Key_PageDown} << int{Kx::PageDownKey};
    QTest::newRow("F1") << int{Qt::Key_F1} << int{Kx::F1Key};
    QTest::newRow("F24") << int{Qt::Key_F24} << int{Kx::F24Key};
    QTest::newRow("F25, none") << int{Qt::Key_F25} << int{Kx::UnknownKey};
}

void tst_ExModal::keyCodes()
{
    QFETCH(int, toolkitKey);
    QStringList codes;
    for (const ExSignal::Type type : {ExSignal::PRESS, ExSignal::RELEASE}) {
        Kx::KeyEvent code{};
        Kx::Key key{};
        Kx::ButtonState state{};
        const bool known
            = ExModal::mapToKxKeyEvent(eventOf(type, toolkitKey, 1 | shift), code, key, state);
        QTEST(int{key}, "key");
        QCOMPARE(known, key != Kx::UnknownKey);
        codes.append(number(code) % u' ' % number(static_cast<int>(state)));
    }
    QCOMPARE(codes.join(u','), QStringLiteral("1 9,0 9"));
}

void tst_ExModal::states_data()
{
    QTest::addColumn<int>("own");
    QTest::addColumn<int>("ignored");
    QTest::addColumn<unsigned>("state");
    QTest::addColumn<QString>("result");
    const auto row = [](const char *name, int own, int ignored, unsigned state, const char *tests) {
        QTest::newRow(name) << own << ignored << state << QString::fromLatin1(tests);
    };
    row("left", 1, 0, 1, "press cursor start");
    row("nothing held, left tool", 1, 0, 0, "cursor stop");
    row("nothing held, right tool", 4, 0, 0, "stop");
    row("double click", 1, 0, 65, "");
    row("another button too", 1, 0, 5, "");
    row("ignored Shift", 1, 8, 9, "cursor start");
    row("only ignored Shift held", 1, 8, 8, "cursor stop");
    row("ignored bits are the tool's", 9, 8, 9, "press cursor");
    row("Control and middle", 18, 0, 18, "press cursor start");
    row("Control let go", 18, 0, 2, "stop");
    row("no state", 0, 0, 0, "press cursor start");
}

void tst_ExModal::states()
{
    QFETCH(int, own);
    QFETCH(int, ignored);
    QFETCH(unsigned, state);
    const McHandle<FakeModal> tool = new FakeModal("t", own);
    tool->setStateIgnoreMask(ignored);
    const auto held = static_cast<Kx::ButtonState>(state);
    QStringList holds;
    if (tool->buttonPressed(Kx::MiddlePressed, held)) {
        holds.append(QStringLiteral("press"));
    }
    if (tool->testCursorState(held)) {
        holds.append(QStringLiteral("cursor"));
    }
    if (tool->testActivationState(held)) {
        holds.append(QStringLiteral("start"));
    }
    if (tool->testDeactivationState(held)) {
        holds.append(QStringLiteral("stop"));
    }
    QTEST(holds.join(u' '), "result");
    QVERIFY(tool->buttonReleased(Kx::RightReleased, held));
    QVERIFY(!tool->buttonReleased(Kx::RightPressed, held));
    QVERIFY(!tool->buttonPressed(Kx::LeftReleased, held));
    QVERIFY(!tool->buttonPressed(Kx::MouseMove, held));
    QVERIFY(!tool->buttonReleased(Kx::MouseMove, held));
}

void tst_ExModal::activation()
{
    const McHandle<FakeViewer> a = addViewer();
    const McHandle<FakeViewer> b = addViewer();
    const McHandle<FakeViewer> empty = new FakeViewer;
    m_manager.add(empty);
    m_manager.setActiveViewer(a);
    const McHandle<FakeModal> scroll = new FakeModal("scroll", 4, false);
    const McHandle<FakeModal> zoom = new FakeModal("zoom");
    const McHandle<FakeModal> pan = new FakeModal("pan");
    const McHandle<FakeModal> line = new FakeModal("line");
    const McHandle<FakeModal> roll = new FakeModal("roll", 4);
    pan->unsupported = b;
    const auto lists
        = [&]() -> QString { return toolsOf(*a) % u'|' % toolsOf(*b) % u'|' % toolsOf(*empty); };
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
            QStringLiteral(": ||"),
            QStringLiteral("scroll ACTIVE_TOOL_CHANGED,scroll TOOL_ACTIVATED: scroll|scroll|"),
            QStringLiteral(
                "zoom ACTIVE_TOOL_CHANGED,zoom TOOL_ACTIVATED: scroll zoom|scroll zoom|"),
            QStringLiteral(": scroll zoom|scroll zoom|"),
            QStringLiteral("pan ACTIVE_TOOL_CHANGED,pan TOOL_ACTIVATED: scroll pan|scroll zoom|"),
            QStringLiteral("zoom TOOL_DEACTIVATED,pan TOOL_DEACTIVATED,line ACTIVE_TOOL_CHANGED,"
                           "line TOOL_ACTIVATED: scroll line|scroll line|"),
            QStringLiteral(
                "roll ACTIVE_TOOL_CHANGED,roll TOOL_ACTIVATED: scroll line roll|scroll line roll|"),
            QStringLiteral("line TOOL_DEACTIVATED: scroll roll|scroll roll|"),
        }));
    QVERIFY(!pan->isActive() && !zoom->isActive() && scroll->isActive());
    QVERIFY(zoom->isEnabled(nullptr) && zoom->stateForUse() == 1);
}

void tst_ExModal::noActiveViewer()
{
    const McHandle<FakeViewer> viewer = addViewer();
    const McHandle<FakeModal> zoom = new FakeModal("zoom");
    QVERIFY(zoom->setActive(true) && zoom->isActive());
    QCOMPARE(toolsOf(*viewer) % takeLog(), QString());
    m_manager.setActiveViewer(viewer);
    QCOMPARE(toolsOf(*viewer) % u':' % takeLog(),
        QStringLiteral("zoom:zoom ACTIVE_TOOL_CHANGED,zoom TOOL_ACTIVATED"));
    m_manager.setActiveViewer(nullptr);
    m_manager.removeViewer(viewer);
    QVERIFY(zoom->setActive(false));
    QCOMPARE(toolsOf(*viewer) % takeLog(), QString());
    QVERIFY(zoom->setActive(true) && zoom->setActive(false));
    m_manager.setActiveViewer(viewer);
    QCOMPARE(toolsOf(*viewer) % takeLog(), QString());
}

void tst_ExModal::viewersThatChange()
{
    m_manager.setActiveViewer(addViewer());
    const McHandle<FakeModal> zoom = new FakeModal("zoom");
    const McHandle<FakeModal> pan = new FakeModal("pan");
    zoom->setActive(true);
    const McHandle<FakeViewer> added = addViewer();
    QCOMPARE(toolsOf(*added), QStringLiteral("zoom"));

    pan->unsupported = m_manager.viewer(0);
    pan->setActive(true); // The later one has the viewers that both support.
    const McHandle<FakeViewer> late = new FakeViewer;
    m_manager.add(late);
    QCOMPARE(toolsOf(*added) % u'|' % toolsOf(*late), QStringLiteral("pan|"));
    late->imageSets[0] = added->imageSets[0];
    takeLog();
    ExNotifiable::notify(ExNotification(ExNotification::VIEWER_VOLUME_CHANGED, late));
    QCOMPARE(toolsOf(*late) % takeLog(), QStringLiteral("pan"));
    late->imageSets[0].reset();
    ExNotifiable::notify(ExNotification(ExNotification::VIEWER_VOLUME_CHANGED, late));
    QCOMPARE(toolsOf(*late), QString());

    const McHandle<FakeViewer> elsewhere = viewerWithVolume();
    ExNotifiable::notify(ExNotification(ExNotification::VIEWER_VOLUME_CHANGED, elsewhere));
    QCOMPARE(toolsOf(*elsewhere), QString());
}

void tst_ExModal::switchedWhileTold()
{
    const McHandle<FakeViewer> viewer = addViewer();
    m_manager.setActiveViewer(viewer);
    const McHandle<FakeModal> zoom = new FakeModal("zoom");
    m_watch.act = [&](ExNotification::Type type) {
        if (type == ExNotification::ACTIVE_TOOL_CHANGED) {
            zoom->setActive(false);
        }
    };
    QVERIFY(zoom->setActive(true) && !zoom->isActive());
    QCOMPARE(toolsOf(*viewer) % takeLog(),
        QStringLiteral("zoom ACTIVE_TOOL_CHANGED,zoom TOOL_DEACTIVATED"));

    m_watch.act = {};
    const McHandle<FakeViewer> aside = addViewer();
    McHandle<FakeModal> pan = new FakeModal("pan");
    pan->setActive(true);
    m_manager.removeViewer(aside);
    takeLog();
    pan.reset();
    QCOMPARE(toolsOf(*viewer) % toolsOf(*aside) % takeLog(), QStringLiteral("pan gone"));
}

void tst_ExModal::offered()
{
    const McHandle<FakeViewer> viewer = addViewer();
    ExEventHandler handler;
    viewer->handler = &handler;
    QWidget &widget = viewer->makeWidget();
    m_manager.setActiveViewer(viewer);
    const McHandle<FakeModal> zoom = new FakeModal("zoom");
    zoom->setActive(true);
    takeLog();
    QTest::mouseMove(&widget, QPoint(1, 1)); // Nobody watches the widget yet.
    handler.connect(&widget);
    const auto wheel = [&](Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(
            QPointF(8, 9), QPointF(), {}, QPoint(0, 120), {}, modifiers, Qt::NoScrollPhase, false);
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
        QStringLiteral("zoom mouse 3 2 3 9,zoom mouse 0 30 4 1,zoom mouse 2 30 4 0,"
                       "zoom mouse 7 5 6 4,zoom mouse 6 5 6 0,zoom key 1 110007 0,"
                       "zoom key 0 110007 0,zoom wheel 8 9 120 0,zoom TOOL_DEACTIVATED"));
}

void tst_ExModal::whoIsAsked()
{
    const McHandle<FakeViewer> viewer = addViewer();
    ExEventHandler handler;
    viewer->handler = &handler;
    QWidget &widget = viewer->makeWidget();
    handler.connect(&widget);
    m_manager.setActiveViewer(viewer);
    const McHandle<FakeModal> zoom = new FakeModal("zoom", 1, false);
    const McHandle<FakeModal> pan = new FakeModal("pan", 1, false);
    const McHandle<FakeModal> worker = new FakeModal("worker", 1, false);
    zoom->setActive(true);
    pan->setActive(true);
    pan->uses = false;
    QStringList asked;
    const auto press = [&] {
        takeLog();
        QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(1, 1));
        asked.append(takeLog());
    };
    press();
    pan->uses = true;
    press();
    pan->real = worker;
    press();
    worker->unsupported = viewer; // No longer, and not told.
    press();
    pan->real = nullptr;
    pan->ownClick = true;
    Consumer consumer(handler);
    consumer.activates = true;
    press();
    consumer.consumes = true;
    press();
    QCOMPARE(asked.join(u'|'),
        QStringLiteral("pan mouse 3 1 1 1,zoom mouse 3 1 1 1|pan mouse 3 1 1 1|"
                       "worker mouse 3 1 1 1|zoom mouse 3 1 1 1|zoom mouse 3 1 1 1|"));
}

void tst_ExModal::cursors()
{
    const McHandle<FakeViewer> viewer = addViewer();
    ExEventHandler handler;
    viewer->handler = &handler;
    QWidget &widget = viewer->makeWidget();
    handler.connect(&widget);
    m_manager.setActiveViewer(viewer);
    const McHandle<FakeModal> roll = new FakeModal("roll", 4);
    const McHandle<FakeModal> line = new FakeModal("line");
    roll->setActive(true);
    line->setActive(true);
    roll->shape = Kx::VerticalCursor;
    line->shape = Kx::CrossCursor;
    line->uses = false;
    QList<Qt::CursorShape> shapes;
    const auto move = [&](Qt::MouseButtons held) {
        QMouseEvent event(
            QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton, held, Qt::NoModifier);
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

void tst_ExModal::goneWhileAsked()
{
    McHandle<FakeViewer> viewer = addViewer();
    ExEventHandler handler;
    viewer->handler = &handler;
    const QPointer<QWidget> widget = &viewer->makeWidget();
    handler.connect(widget);
    m_manager.setActiveViewer(viewer);
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
    QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(1, 1));
    QCOMPARE(takeLog(),
        QStringLiteral("held mouse 3 1 1 1,held gone,unheld mouse 3 1 1 1,"
                       "second TOOL_DEACTIVATED,unheld gone,first mouse 3 1 1 1"));

    // The one asked first closes the viewer.
    second->setActive(true);
    takeLog();
    second->act = [&] {
        m_manager.setActiveViewer(nullptr);
        m_manager.removeAllViewers();
        viewer.reset();
        delete widget;
    };
    QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(1, 1));
    QCOMPARE(takeLog(), QStringLiteral("second mouse 3 1 1 1"));
    QVERIFY(widget.isNull());
}

void tst_ExModal::picking()
{
    class Lines : public ExShapeTool
    {
    public:
        using ExShapeTool::ExShapeTool;

    protected:
        bool pickShape(ExBaseViewer *viewer, int x, int y, float &distance) override
        {
            distance = static_cast<float>(x - y);
            return viewer == nullptr;
        }
    };
    float distance = -1;
    const McHandle<ExShapeTool> shapes = new ExShapeTool("shapes", 1, true);
    QVERIFY(!shapes->pick(nullptr, 5, 3, distance, Kx::LeftButton));
    QCOMPARE(distance, -1.0F);
    const McHandle<ExShapeTool> lines = new Lines("lines", 1, true);
    QVERIFY(lines->pick(nullptr, 5, 3, distance, Kx::LeftButton));
    QCOMPARE(distance, 2.0F);
}

QTEST_MAIN(tst_ExModal)
#include "tst_ExModal.moc"
