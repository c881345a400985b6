#include "client/tools/WorkstationTools.h"

#include "client/application/WorkstationApplication.h"
#include "client/viewers/WorkstationViewer.h"
#include "client/viewers/WorkstationViewerManager.h"

ApplicationCommand::ApplicationCommand(const char *key)
    : ExTrigger(key)
{
    setActivatable(false);
}

bool ApplicationCommand::supportsViewer(const ExBaseViewer * /*viewer*/) const
{
    return true;
}

bool ApplicationCommand::process(ExBaseViewer * /*viewer*/, bool /*on*/)
{
    WorkSession *const session = WorkstationApplication::instance().workSession();
    if (session == nullptr) {
        return false;
    }
    run(*session);
    return true;
}

ApplicationSwitch::ApplicationSwitch(const char *key)
    : ExTrigger(key)
{ }

bool ApplicationSwitch::supportsViewer(const ExBaseViewer * /*viewer*/) const
{
    return true;
}

bool ApplicationSwitch::isActive() const
{
    return isOn();
}

bool ApplicationSwitch::process(ExBaseViewer * /*viewer*/, bool on)
{
    set(on);
    return true;
}

ViewerCommand::ViewerCommand(const char *key)
    : ExTrigger(key)
{
    setActivatable(false);
}

bool ViewerCommand::process(ExBaseViewer *viewer, bool /*on*/)
{
    if (!isEnabled(viewer)) {
        return false;
    }
    run(static_cast<WorkstationViewer &>(*viewer));
    return true;
}

ViewerSwitch::ViewerSwitch(const char *key)
    : ExTrigger(key)
{ }

bool ViewerSwitch::isActive() const
{
    const WorkstationViewer *const viewer = WorkstationViewerManager::active();
    return viewer != nullptr && isOn(*viewer);
}

bool ViewerSwitch::process(ExBaseViewer *viewer, bool on)
{
    if (!isEnabled(viewer)) {
        return false;
    }
    set(static_cast<WorkstationViewer &>(*viewer), on);
    return true;
}
