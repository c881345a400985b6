#pragma once

#include "framework/input/ExSignal.h"

class ExBaseViewer;
class QObject;

/// One occurrence of a signal: what it happened on, where, and what matters for clicks. A value.
class MOVARA_FRAMEWORK_EXPORT ExEvent : public ExSignal
{
public:
    /// No signal, on nothing.
    ExEvent() = default;
    /// No signal on @p eventObject, which is not owned and may be null.
    explicit ExEvent(QObject *eventObject)
        : object(eventObject)
    { }

    /// A click of one of @p buttons.
    [[nodiscard]] bool isClick(int buttons) const
    {
        return type == CLICK && (buttonOrKey & buttons) != 0;
    }
    /// A click of one of @p buttons with the pointer where it was before.
    [[nodiscard]] bool isExactClick(int buttons) const
    {
        return isClick(buttons) && pressX == x && pressY == y;
    }
    /// Whether the gesture may still become a click.
    [[nodiscard]] bool isExpectingClick() const { return expected == CLICK; }

    /// Whether the event activates a viewer.
    [[nodiscard]] bool isActivating() const { return m_activating; }
    /// Handlers get events as const and may still say so.
    void setActivating(bool activating) const { m_activating = activating; }

    /// The viewer of the render widget on which the event happened; null when it happened on
    /// something else.
    [[nodiscard]] ExBaseViewer *viewer() const;

    /// What received the toolkit's event; not owned; null after reading from a message.
    QObject *object = nullptr;
    /// Pointer position in the object's coordinates, in device-independent pixels; -1 when unknown.
    int x = -1;
    int y = -1;
    /// Where the pointer was at the event before on the same object; for a click, what that was at
    /// the press. The event handler fills it so, and drags rely on it for their steps, although the
    /// name says otherwise. -1 when unknown.
    int pressX = -1;
    int pressY = -1;
    /// Wheel delta in eighths of a degree; 0 otherwise.
    int delta = 0;

private:
    mutable bool m_activating = false;
};

/// Writes the signal, then x, y, pressX, pressY and delta, each as a 32-bit integer.
MOVARA_FRAMEWORK_EXPORT KxMsg &operator<<(KxMsg &message, const ExEvent &event);
/// Reads the same in the same order; the object becomes null, the activating flag stays as it is.
MOVARA_FRAMEWORK_EXPORT KxMsg &operator>>(KxMsg &message, ExEvent &event);
