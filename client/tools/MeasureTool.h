#pragma once

#include "client/measurements/Measurement.h"
#include "framework/tools/ExShapeTool.h"
#include "framework/tools/ExToolGroup.h"

#include <QPoint>

class SliceViewer;

/// Base of the tools that measure. A click sets a point, or a drag two; a shape, or a handle of
/// one, whichever tool has made it, is picked by a press and can be dragged. Delete removes the
/// picked shape, Backspace takes back the last point of what is being drawn, Escape gives up what
/// is being drawn or dragged. Nothing stays picked when the tool is left, and a click that
/// activates a viewer does not draw. Its members as a group are its sub-tools.
class MeasureTool : public ExShapeTool, public ExToolGroup
{
public:
    ~MeasureTool() override;

    bool setActive(bool on) override;
    /// While the viewer, of whatever type, shows a series.
    [[nodiscard]] bool isEnabled(const ExBaseViewer *viewer) const override;
    [[nodiscard]] bool needsExclusiveClickForActivation() const override;
    [[nodiscard]] QString displayHint(const ExBaseViewer *viewer) const override;
    bool processMouseEvent(ExBaseViewer *viewer, Kx::MouseEvent event, int x, int y,
        Kx::ButtonState state, Kx::KxCursorShape &cursorShape) override;
    bool processKeyEvent(
        ExBaseViewer *viewer, Kx::KeyEvent event, Kx::Key key, Kx::ButtonState state) override;

protected:
    explicit MeasureTool(const char *key);

    [[nodiscard]] bool supports(Ex::ViewerType type) const override;
    /// Any measurement, not those of this tool only.
    bool pick(ExBaseViewer *viewer, int x, int y, float &distance) override;
    using ExShapeTool::pick;
    /// What is made next.
    [[nodiscard]] virtual Measurement::Kind kind() const = 0;
    /// What to do to make one; in short lines, since it stands over a narrow bar.
    [[nodiscard]] virtual QString hint() const = 0;
    /// Adds a sub-tool by its key; one that the user has no right to is left out.
    void addSubTool(const char *key);
    /// Adds those that all tools which measure have.
    void addCommands();
    /// Gives up what is being drawn or dragged.
    void giveUp();

private:
    [[nodiscard]] const Measurement *draft() const;
    void press(SliceViewer &viewer, const QPoint &position);
    void pressAgain(SliceViewer &viewer, const QPoint &position);
    bool startEditing(SliceViewer &viewer, const QPoint &position);
    void startDrawing(SliceViewer &viewer, const QPoint &position);
    void move(SliceViewer &viewer, const QPoint &position, bool isHeld);
    void dragPicked(SliceViewer &viewer, const QPoint &position);
    void release(SliceViewer &viewer, const QPoint &position);
    void placePoint(SliceViewer &viewer, const QPoint &position);
    void movePoint(SliceViewer &viewer, const QPoint &position);
    void takePointBack();
    void complete(SliceViewer &viewer);
    bool removePicked(const SliceViewer &viewer);
    [[nodiscard]] bool isAway(const QPoint &position) const;
    [[nodiscard]] bool isFit(const SliceViewer &viewer) const;

    /// The measurement under way, or 0.
    int m_id = 0;
    /// As it was before it was dragged.
    Measurement m_original;
    bool m_isEditing = false;
    int m_handle = -1;
    /// Where it is drawn or dragged; only to be compared.
    const ExBaseViewer *m_viewer = nullptr;
    QPoint m_press;
    bool m_isPressed = false;
    /// The pointer has left the place of the press while the button was held.
    bool m_isDrag = false;
};
