// What docs/concepts/tools.md shows.
#include "framework/tools/ExModal.h"
#include "framework/tools/ExToolBar.h"
#include "framework/tools/ExToolGroup.h"

#include <functional>
#include <utility>

/// While it is on, a drag with the left button scrolls.
class ScrollTool final : public ExModal
{
public:
    using Scroll = std::function<void(ExBaseViewer &, int)>;

    explicit ScrollTool(Scroll scroll)
        : ExModal("Sample.Scroll", Kx::LeftButton, true)
        , m_scroll(std::move(scroll))
    { }

    bool processMouseEvent(ExBaseViewer *viewer, Kx::MouseEvent event, int /*x*/, int y,
        Kx::ButtonState state, Kx::KxCursorShape &cursorShape) override
    {
        if (testCursorState(state)) {
            cursorShape = Kx::VerticalCursor;
        }
        if (buttonPressed(event, state)) {
            m_lastY = y;
            return true;
        }
        if (event != Kx::MouseMove || !testActivationState(state)) {
            return false;
        }
        m_scroll(*viewer, y - std::exchange(m_lastY, y));
        return true;
    }
    [[nodiscard]] QString displayHint(const ExBaseViewer * /*viewer*/) const override
    {
        return QStringLiteral("Drag up or down");
    }

private:
    Scroll m_scroll;
    int m_lastY = 0;
};

/// Tools of which one is on at a time, as a single button.
void addMouseTools(ExToolBar &bar, ExToolGroup &group, const std::vector<const char *> &keys)
{
    group.setExclusive(true);
    group.setBringUp(true); // the button shows the one that was chosen last
    for (const char *key : keys) {
        if (ExTool *const tool = ExTool::getToolByDecorationKey(key, true)) {
            group.appendTool(tool, false);
        }
    }
    bar.addToolPopup(group, nullptr);
}
