#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/tools/ExTool.h"
#include "platform/render/Kx.h"

#include <QString>

class ExEvent;

/// Base of tools that take over the mouse, wheel and keys of viewers while they are active. While
/// active, a tool is among the modal tools of every viewer of the viewer manager that it supports,
/// of the active viewer, and of each viewer that is added, or comes to show something that the tool
/// supports, meanwhile. GUI thread only. A tool, and the viewer of an event, may be destroyed by
/// what the tool does with the event.
class MOVARA_FRAMEWORK_EXPORT ExModal : public ExTool
{
public:
    /// @param state the buttons and modifiers that drive the tool, as bits of Kx::ButtonState.
    /// @param exclusive whether the tool has these to itself on a viewer, see setActive().
    ExModal(const char *name, int state, bool exclusive);
    /// The tool vanishes from all viewers. Destroyed while active, it publishes nothing, and
    /// leaves its sub-tools on the context tool bar: switch it off before.
    ~ExModal() override;

    /// Always true: whether the tool is of use with a viewer is told by supportsViewer().
    [[nodiscard]] bool isEnabled(const ExBaseViewer *viewer) const override;
    [[nodiscard]] int stateForUse() const override;
    /// The flag is one for all viewers; the argument may be null.
    [[nodiscard]] bool isExclusive(ExBaseViewer *viewer) const;
    /// Takes effect when the tool next comes to a viewer.
    void setExclusive(ExBaseViewer *viewer, bool exclusive);
    /// Bits of Kx::ButtonState that the tests below do not look at, where they say so; none at
    /// first.
    void setStateIgnoreMask(int bits);

    /// Switches the tool as ExTool does. When that changes something and there is an active viewer,
    /// the tool begins, or ends, its work:
    ///  - It begins by going to the end of the modal tools of each viewer that it supports. When it
    ///    is exclusive, the other exclusive tools with an equal stateForUse() leave that viewer
    ///    first; one that has no viewer left is switched off. Then the context tool bar gets its
    ///    sub-tools and hint, and ACTIVE_TOOL_CHANGED and TOOL_ACTIVATED are published.
    ///  - It ends by leaving all viewers; the context tool bar loses its sub-tools and gets the
    ///    hint of the tool that is asked first now; TOOL_DEACTIVATED is published.
    /// Sub-tools are those of a tool that is a group as well and is held by a handle.
    /// The notifications carry the active viewer, this tool and no data. Without an active viewer a
    /// tool that is switched on begins when a viewer becomes the active one, and one that is
    /// switched off ends without a notification.
    /// @return false when the tool is not activatable.
    bool setActive(bool on) override;
    /// The tool that really works on a viewer (may be null): its supportsViewer() has been asked,
    /// and it gets the events. Null when none does. The base returns this tool for the viewers that
    /// it supports; one that stands for others returns the one of them that fits.
    [[nodiscard]] virtual ExModal *realTool(const ExBaseViewer *viewer) const;
    /// One line on what can be done now, shown over the context tool bar while the tool is the one
    /// that is asked first on the active viewer. The base has none.
    [[nodiscard]] virtual QString displayHint(const ExBaseViewer *viewer) const;

    /// Handles an event of a viewer by calling the handler for its kind. A wheel event with
    /// modifiers is left alone when these are not the tool's.
    /// @param cursorShape the Kx::KxCursorShape that the pointer is to have over the viewer: the
    /// default one, or what a tool asked before has set. Only handlers of mouse events change it. A
    /// tool should do so only where testCursorState() holds, so that each has its say for the
    /// buttons that drive it. The shape holds until the viewer's next mouse event.
    /// @return whether the event was used; false for an event without a viewer.
    virtual bool processEvent(const ExEvent &event, int &cursorShape);
    /// Offers an event to the modal tools of its viewer, the last one first, until one uses it. The
    /// render widget of the viewer calls this for what no action has consumed. Tools that come
    /// meanwhile wait for the next event, tools that leave are not asked any more. An event that
    /// activates the viewer is kept from tools that need a click of their own.
    static bool offer(const ExEvent &event, int &cursorShape);
    /// Has the tools that are at work begin on a viewer that the manager holds, or that is the
    /// active one, in the order in which they were activated. Null is ignored. The framework calls
    /// it where a viewer is added, activated, created, or changes its volume or type.
    static void joinViewer(ExBaseViewer *viewer);

    /// Handlers: whether the event was used. The base uses none.
    /// @param x,y pointer position in the render widget, in device-independent pixels.
    /// @param state the buttons and modifiers held.
    virtual bool processMouseEvent(ExBaseViewer *viewer, Kx::MouseEvent event, int x, int y,
        Kx::ButtonState state, Kx::KxCursorShape &cursorShape);
    virtual bool processKeyEvent(
        ExBaseViewer *viewer, Kx::KeyEvent event, Kx::Key key, Kx::ButtonState state);
    /// @param delta in eighths of a degree, positive away from the user. @param state modifiers
    /// only.
    virtual bool processWheelEvent(
        ExBaseViewer *viewer, int x, int y, int delta, Kx::ButtonState state);

    /// Whether a button was pressed with exactly the tool's state; nothing is ignored here.
    [[nodiscard]] virtual bool buttonPressed(Kx::MouseEvent event, Kx::ButtonState state) const;
    /// Whether a button was released, whatever the state.
    [[nodiscard]] virtual bool buttonReleased(Kx::MouseEvent event, Kx::ButtonState state) const;
    /// Whether the tool's cursor is to be shown: its state is held, or, for a tool driven by the
    /// plain left button, nothing is. Ignored bits do not count.
    [[nodiscard]] virtual bool testCursorState(Kx::ButtonState state) const;
    /// Whether the state, without the ignored bits, is the tool's.
    [[nodiscard]] virtual bool testActivationState(Kx::ButtonState state) const;
    /// Whether something of the tool's state is not held any more.
    [[nodiscard]] virtual bool testDeactivationState(Kx::ButtonState state) const;
    /// Whether an event's modifiers, without the ignored ones, are those of the tool's state.
    [[nodiscard]] virtual bool testModifierState(const ExEvent &event) const;

    /// The code and state of a mouse event. The button is the one that has changed or, when others
    /// are held beside it, the right one rather than the middle one rather than the left one. A
    /// move has no button, whatever is held: a drag never looks like a release. A click is a
    /// release. The state holds what is held after the event, and for a double click its bit.
    /// @return always true.
    static bool mapToKxMouseEvent(
        const ExEvent &event, Kx::MouseEvent &code, Kx::ButtonState &state);
    /// The code, key and state (buttons and modifiers held) of a key event.
    /// @return false for a key that the library has no code for; the key is then UnknownKey.
    static bool mapToKxKeyEvent(
        const ExEvent &event, Kx::KeyEvent &code, Kx::Key &key, Kx::ButtonState &state);
    /// The modifiers held, without the buttons. @return always true.
    static bool mapToKxButtonState(const ExEvent &event, Kx::ButtonState &state);

protected:
    /// Has the hint asked for anew, when there is another thing to say.
    static void updateDisplayHint();

private:
    friend class ModalStage;

    void begin();
    void end();
    [[nodiscard]] unsigned own() const { return static_cast<unsigned>(m_state); }
    [[nodiscard]] unsigned regarded(unsigned state) const;

    bool m_exclusive;
    int m_state;
    int m_stateIgnoreMask = 0;
};
