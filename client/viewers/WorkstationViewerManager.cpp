#include "client/viewers/WorkstationViewerManager.h"

#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExBaseViewer.h"

#include <utility>

WorkstationViewerManager::WorkstationViewerManager(ScreenOf screenOf)
    : m_screenOf(std::move(screenOf))
{ }

WorkstationViewerManager::~WorkstationViewerManager()
{
    cleanupViewers();
    while (numViewers() > 0) {
        dropViewer(*viewer(numViewers() - 1));
    }
}

ExScreen *WorkstationViewerManager::screenForViewer(ExBaseViewer *viewer)
{
    return m_screenOf(viewer);
}

void WorkstationViewerManager::dropViewer(ExBaseViewer &dropped)
{
    const McHandle<ExBaseViewer> held(&dropped);
    ExNotifiable::notify({ExNotification::ABOUT_TO_DELETE_VIEWERS, &dropped});
    const bool wasActive = isActiveViewer(dropped);
    removeViewer(&dropped);
    if (wasActive) {
        setActiveViewer(numViewers() > 0 ? viewer(0) : nullptr);
    }
}
