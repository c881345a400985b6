#pragma once

#include "client/interaction/ViewerInteraction.h"

/// Base of interactions by moving the pointer with a button, and perhaps modifiers, held.
class DragInteraction : public ViewerInteraction
{
public:
    void install(ExEventHandler &handler) override;

protected:
    DragInteraction(Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
        : m_button(button)
        , m_modifiers(modifiers)
    { }

    /// The pointer has moved by this much, in device-independent pixels, since the last time. False
    /// when the viewer has no use for it.
    virtual bool drag(const ExEvent &event, const QPoint &moved) = 0;

private:
    bool moved(const ExEvent &event);

    Qt::MouseButton m_button;
    Qt::KeyboardModifiers m_modifiers;
};
