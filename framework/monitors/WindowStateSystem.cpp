// X11, Wayland, macOS and the toolkit's own platforms: the user's commands arrive as changes of the
// window's state, after they were carried out.
#include "framework/monitors/ExMonitorWidgetPrivate.h"
#include "framework/monitors/MonitorWindowSystem.h"
#include "framework/monitors/WindowStateFilter.h"

namespace {

class WindowStateSystem final : public MonitorWindowSystem
{
public:
    void attach(ExMonitorWidget &widget) override { m_filter.attach(widget); }
    void detach(ExMonitorWidget &widget) override { m_filter.detach(widget); }
    int makeRestorable(ExMonitorWidget & /*widget*/) override { return 0; }
    void setStyle(ExMonitorWidget & /*widget*/, int /*style*/) override { }
    void raiseAndRelease(ExMonitorWidget &widget) override { widget.raise(); }
    [[nodiscard]] bool movesBeforeMaximizing() const override { return false; }

private:
    WindowStateFilter m_filter;
};

} // namespace

MonitorWindowSystem &MonitorWindowSystem::instance()
{
    static WindowStateSystem system;
    return system;
}
