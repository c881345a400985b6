#include "framework/tools/ExTrigger.h"

#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExViewerManager.h"
#include "platform/util/McHandle.h"

namespace {

McHandle<ExBaseViewer> activeViewer()
{
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    return manager == nullptr ? nullptr : manager->activeViewer();
}

} // namespace

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
    updateUI(activeViewer()); // Asked again: the command may have changed it.
    return true;
}
