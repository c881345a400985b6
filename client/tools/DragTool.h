#pragma once

#include "framework/tools/ExModal.h"

#include <QPoint>

class WorkstationViewer;

/// Base of tools that change a viewer while the pointer is moved with a button, and perhaps
/// modifiers, held. A movement that may still become a click changes nothing.
class DragTool : public ExModal
{
public:
    bool setActive(bool on) override;
    /// Those the user chooses between are left only for another one.
    [[nodiscard]] bool isStandard() const override;

    bool processMouseEvent(ExBaseViewer *viewer, Kx::MouseEvent event, int x, int y,
        Kx::ButtonState state, Kx::KxCursorShape &cursorShape) override;

protected:
    /// A tool that the user chooses for the left button.
    DragTool(const char *key, Kx::KxCursorShape cursor);
    /// A tool that is always there, under its button and modifiers.
    DragTool(unsigned state, Kx::KxCursorShape cursor);

    [[nodiscard]] bool supports(Ex::ViewerType type) const override;
    /// The button has been pressed on a viewer.
    virtual void begin(WorkstationViewer &viewer);
    /// The pointer has moved by this much, in device-independent pixels, since the last time.
    virtual void drag(WorkstationViewer &viewer, const QPoint &moved) = 0;

private:
    [[nodiscard]] bool isMove(const QPoint &position);

    Kx::KxCursorShape m_cursor;
    bool m_isChosen;
    /// What is dragged on, only to be compared; null between drags.
    const ExBaseViewer *m_dragged = nullptr;
    int m_clickTolerance = 0;
    bool m_hasMoved = false;
    QPoint m_last;
};
