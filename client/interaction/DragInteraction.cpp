#include "client/interaction/DragInteraction.h"

#include <QPoint>

void DragInteraction::install(ExEventHandler &handler)
{
    bind(handler, ExSignal::MOVE, 0, this, &DragInteraction::moved);
}

bool DragInteraction::moved(const ExEvent &event)
{
    constexpr int allButtons
        = static_cast<int>(Qt::LeftButton | Qt::MiddleButton | Qt::RightButton);
    // Moves carry no button of their own: what is held is in their state.
    const bool isOurs = (event.state & allButtons) == static_cast<int>(m_button)
        && hasModifiers(event, m_modifiers);
    if (!isOurs || event.pressX < 0) {
        return false;
    }
    if (event.isExpectingClick()) {
        return true; // The little movement of a click changes nothing.
    }
    return drag(event, QPoint(event.x - event.pressX, event.y - event.pressY));
}
