#include "client/tools/DragTool.h"

#include "client/tools/LeftButtonTools.h"
#include "client/viewers/WorkstationViewer.h"

#include <cstdlib>

DragTool::DragTool(const char *key, Kx::KxCursorShape cursor)
    : ExModal(key, Kx::LeftButton, true)
    , m_cursor(cursor)
    , m_isChosen(true)
{
    LeftButtonTools::add(*this);
}

DragTool::DragTool(unsigned state, Kx::KxCursorShape cursor)
    : ExModal(nullptr, static_cast<int>(state), false)
    , m_cursor(cursor)
    , m_isChosen(false)
{ }

bool DragTool::setActive(bool on)
{
    const bool isLeaving = m_isChosen && !on && isActive();
    return (isLeaving && LeftButtonTools::replace(*this)) || ExModal::setActive(on);
}

bool DragTool::isStandard() const
{
    return m_isChosen;
}

bool DragTool::supports(Ex::ViewerType type) const
{
    return WorkstationViewer::isSliceType(type);
}

void DragTool::begin(WorkstationViewer & /*viewer*/) { }

bool DragTool::isMove(const QPoint &position)
{
    const QPoint moved = position - m_last;
    m_hasMoved = m_hasMoved || std::abs(moved.x()) > m_clickTolerance
        || std::abs(moved.y()) > m_clickTolerance;
    return m_hasMoved;
}

bool DragTool::processMouseEvent(ExBaseViewer *viewer, Kx::MouseEvent event, int x, int y,
    Kx::ButtonState state, Kx::KxCursorShape &cursorShape)
{
    auto &shown = static_cast<WorkstationViewer &>(*viewer);
    if (buttonPressed(event, state)) {
        m_dragged = viewer;
        m_clickTolerance = shown.eventHandler()->clickTolerance();
        m_hasMoved = false;
        m_last = QPoint(x, y);
        cursorShape = m_cursor;
        begin(shown);
        return true;
    }
    if (m_dragged != viewer || testDeactivationState(state)) {
        m_dragged = nullptr;
        // In the order in which they are asked: the tool that gets a press shows its cursor.
        if (cursorShape == Kx::DefaultCursor && testCursorState(state)) {
            cursorShape = m_cursor;
        }
        return false;
    }
    cursorShape = m_cursor;
    if (event == Kx::MouseMove && isMove(QPoint(x, y))) {
        const QPoint moved = QPoint(x, y) - m_last;
        m_last = QPoint(x, y);
        drag(shown, moved);
    }
    return true;
}
