#include "framework/tools/ExTrigger.h"

#include "framework/tools/ActiveViewer.h"
#include "framework/viewers/ExBaseViewer.h"
#include "platform/util/McHandle.h"

ExTrigger::ExTrigger(const char *name)
    : ExTool(name)
{ }

ExTrigger::~ExTrigger() = default;

bool ExTrigger::isActivatable() const
{
    return m_activatable;
}

void ExTrigger::setActivatable(bool activatable)
{
    m_activatable = activatable;
}

bool ExTrigger::setActive(bool on)
{
    // Switching others off, and the command, may let go of it.
    const McHandle<ExTrigger> held(references() > 0 ? this : nullptr);
    const bool was = isActive();
    ExTool::setActive(on);
    if (on == was || (!on && !isActivatable())) {
        return true;
    }
    const McHandle<ExBaseViewer> viewer = activeViewer();
    if (!process(viewer, on)) {
        return false;
    }
    if (on) {
        bringUpUI();
    }
    updateUI(McHandle(activeViewer())); // Asked again: the command may have changed it.
    return true;
}
