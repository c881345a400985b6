#include "framework/tools/ExModal.h"

#include "framework/input/ExEvent.h"
#include "framework/tools/ActiveViewer.h"
#include "framework/tools/KeyMapping.h"
#include "framework/tools/ModalStage.h"
#include "framework/viewers/ExBaseViewer.h"
#include "platform/util/McDArray.h"

#include <QObject>
#include <QPointer>

namespace {

constexpr unsigned buttonBits = Kx::LeftButton | Kx::MiddleButton | Kx::RightButton;
constexpr unsigned modifierBits = Kx::ShiftModifier | Kx::ControlModifier | Kx::AltModifier;

/// The bits of the buttons that a mouse event is about: the one that has changed, and those held.
unsigned buttonsOf(const ExEvent &event)
{
    const bool hasButton = event.isMouse() && event.type != ExSignal::MOVE;
    const ExSignal changed(event.type, 0, hasButton ? event.buttonOrKey : 0, 0);
    return (changed.kxButtonState() | event.kxButtonState()) & buttonBits;
}

Kx::MouseEvent releaseOf(unsigned buttons)
{
    if ((buttons & Kx::RightButton) != 0) {
        return Kx::RightReleased;
    }
    if ((buttons & Kx::MiddleButton) != 0) {
        return Kx::MiddleReleased;
    }
    return (buttons & Kx::LeftButton) != 0 ? Kx::LeftReleased : Kx::MouseMove;
}

bool offerTo(const ExModal &tool, ExBaseViewer &viewer, const ExEvent &event, int &cursorShape)
{
    ExModal *const real = tool.realTool(&viewer);
    if (real == nullptr || (event.isActivating() && real->needsExclusiveClickForActivation())) {
        return false;
    }
    const McHandle<ExModal> held = ModalStage::keep(real);
    return real->processEvent(event, cursorShape);
}

void publish(ExNotification::Type type, const ExModal *tool)
{
    if (const McHandle<ExBaseViewer> viewer = activeViewer()) {
        ExNotifiable::notify(ExNotification(type, viewer, tool));
    }
}

} // namespace

ExModal::ExModal(const char *name, int state, bool exclusive)
    : ExTool(name)
    , m_exclusive(exclusive)
    , m_state(state)
{
    ModalStage::instance().toolMade();
}

ExModal::~ExModal()
{
    ModalStage::instance().toolGone(this);
}

bool ExModal::isEnabled(const ExBaseViewer * /*viewer*/) const
{
    return true;
}

int ExModal::stateForUse() const
{
    return m_state;
}

bool ExModal::isExclusive(ExBaseViewer * /*viewer*/) const
{
    return m_exclusive;
}

void ExModal::setExclusive(ExBaseViewer * /*viewer*/, bool exclusive)
{
    m_exclusive = exclusive;
}

void ExModal::setStateIgnoreMask(int bits)
{
    m_stateIgnoreMask = bits;
}

bool ExModal::setActive(bool on)
{
    const McHandle<ExModal> held = ModalStage::keep(this);
    if (!ExTool::setActive(on)) {
        return false;
    }
    if (isActive() == on) { // Others that were switched off may have switched this one back.
        on ? begin() : end();
    }
    return true;
}

void ExModal::begin()
{
    ModalStage &stage = ModalStage::instance();
    if (stage.isAtWork(this)) {
        return;
    }
    if (activeViewer() == nullptr) {
        stage.wait(this);
        return;
    }
    const McHandle<ExModal> held = ModalStage::keep(this);
    stage.enter(this);
    if (stage.isAtWork(this)) {
        stage.refreshToolBar();
    }
    // Whoever is told may switch the tool off, and destroy it.
    for (const auto type : {ExNotification::ACTIVE_TOOL_CHANGED, ExNotification::TOOL_ACTIVATED}) {
        if (stage.isAtWork(this)) {
            publish(type, this);
        }
    }
}

void ExModal::end()
{
    ModalStage &stage = ModalStage::instance();
    if (stage.leave(this)) {
        const McHandle<ExModal> held = ModalStage::keep(this);
        stage.removeSubTools(this);
        stage.showHint();
        publish(ExNotification::TOOL_DEACTIVATED, this);
    }
}

ExModal *ExModal::realTool(const ExBaseViewer *viewer) const
{
    return supportsViewer(viewer) ? const_cast<ExModal *>(this) : nullptr;
}

QString ExModal::displayHint(const ExBaseViewer * /*viewer*/) const
{
    return {};
}

void ExModal::updateDisplayHint()
{
    ModalStage::instance().showHint();
}

bool ExModal::processEvent(const ExEvent &event, int &cursorShape)
{
    ExBaseViewer *const viewer = event.viewer();
    if (viewer == nullptr) {
        return false;
    }
    // The handlers may destroy the tool: nothing of it is touched after them.
    Kx::ButtonState state = Kx::NoButtonState;
    if (event.isMouse()) {
        Kx::MouseEvent code = Kx::MouseMove;
        mapToKxMouseEvent(event, code, state);
        auto shape = static_cast<Kx::KxCursorShape>(cursorShape);
        const bool isUsed = processMouseEvent(viewer, code, event.x, event.y, state, shape);
        cursorShape = shape;
        return isUsed;
    }
    if (event.isWheel()) {
        mapToKxButtonState(event, state);
        return (state == Kx::NoButtonState || testModifierState(event))
            && processWheelEvent(viewer, event.x, event.y, event.delta, state);
    }
    Kx::KeyEvent code = Kx::KeyPressed;
    Kx::Key key = Kx::UnknownKey;
    mapToKxKeyEvent(event, code, key, state);
    return processKeyEvent(viewer, code, key, state);
}

bool ExModal::offer(const ExEvent &event, int &cursorShape)
{
    const McHandle<ExBaseViewer> viewer = event.viewer();
    if (!viewer) {
        return false;
    }
    const QPointer<QObject> widget(event.object);
    const McDArray<ExModal *> tools = viewer->modalTools();
    for (int i = tools.size(); i-- > 0;) {
        if (widget.isNull() || viewer->references() == 1) {
            return true; // The viewer was closed: only the walk still holds it.
        }
        if (viewer->modalTools().contains(tools[i])
            && offerTo(*tools[i], *viewer, event, cursorShape)) {
            return true;
        }
    }
    return false;
}

void ExModal::joinViewer(ExBaseViewer *viewer)
{
    ModalStage::instance().join(viewer);
}

bool ExModal::processMouseEvent(ExBaseViewer * /*viewer*/, Kx::MouseEvent /*event*/, int /*x*/,
    int /*y*/, Kx::ButtonState /*state*/, Kx::KxCursorShape & /*cursorShape*/)
{
    return false;
}

bool ExModal::processKeyEvent(
    ExBaseViewer * /*viewer*/, Kx::KeyEvent /*event*/, Kx::Key /*key*/, Kx::ButtonState /*state*/)
{
    return false;
}

bool ExModal::processWheelEvent(
    ExBaseViewer * /*viewer*/, int /*x*/, int /*y*/, int /*delta*/, Kx::ButtonState /*state*/)
{
    return false;
}

unsigned ExModal::regarded(unsigned state) const
{
    return state & ~static_cast<unsigned>(m_stateIgnoreMask);
}

bool ExModal::buttonPressed(Kx::MouseEvent event, Kx::ButtonState state) const
{
    const bool isPress
        = event == Kx::LeftPressed || event == Kx::MiddlePressed || event == Kx::RightPressed;
    return isPress && state == own();
}

bool ExModal::buttonReleased(Kx::MouseEvent event, Kx::ButtonState /*state*/) const
{
    return event == Kx::LeftReleased || event == Kx::MiddleReleased || event == Kx::RightReleased;
}

bool ExModal::testCursorState(Kx::ButtonState state) const
{
    return (regarded(state) == 0 && own() == Kx::LeftButton) || regarded(state) == regarded(own());
}

bool ExModal::testActivationState(Kx::ButtonState state) const
{
    return regarded(state) == own();
}

bool ExModal::testDeactivationState(Kx::ButtonState state) const
{
    return (state & own()) != own();
}

bool ExModal::testModifierState(const ExEvent &event) const
{
    Kx::ButtonState state = Kx::NoButtonState;
    mapToKxButtonState(event, state);
    return regarded(state) == (own() & modifierBits);
}

bool ExModal::mapToKxMouseEvent(const ExEvent &event, Kx::MouseEvent &code, Kx::ButtonState &state)
{
    const unsigned buttons = buttonsOf(event);
    const Kx::MouseEvent release
        = event.type == ExSignal::MOVE ? Kx::MouseMove : releaseOf(buttons);
    const bool isPress = (event.type == ExSignal::PRESS || event.type == ExSignal::DOUBLE_CLICK)
        && release != Kx::MouseMove;
    unsigned bits = event.kxButtonState();
    if (isPress) {
        bits |= buttons; // The toolkit's state has it already, that of events made by hand may not.
    }
    if (isPress && event.type == ExSignal::DOUBLE_CLICK) {
        bits |= Kx::DoubleClick;
    }
    code = isPress ? static_cast<Kx::MouseEvent>(release + 1) : release;
    state = static_cast<Kx::ButtonState>(bits);
    return true;
}

bool ExModal::mapToKxKeyEvent(
    const ExEvent &event, Kx::KeyEvent &code, Kx::Key &key, Kx::ButtonState &state)
{
    code = event.type == ExSignal::RELEASE ? Kx::KeyReleased : Kx::KeyPressed;
    key = event.isKey() ? kxKey(event.buttonOrKey) : Kx::UnknownKey;
    state = static_cast<Kx::ButtonState>(event.kxButtonState());
    return key != Kx::UnknownKey;
}

bool ExModal::mapToKxButtonState(const ExEvent &event, Kx::ButtonState &state)
{
    state = static_cast<Kx::ButtonState>(event.kxButtonState() & modifierBits);
    return true;
}
