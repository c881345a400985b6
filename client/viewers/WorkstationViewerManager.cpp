#include "client/viewers/WorkstationViewerManager.h"

#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExBaseViewer.h"

WorkstationViewerManager::WorkstationViewerManager(ExScreen &screen)
    : m_screen(screen)
{ }

WorkstationViewerManager::~WorkstationViewerManager()
{
    cleanupViewers();
    while (numViewers() > 0) {
        dropViewer(*viewer(numViewers() - 1));
    }
}

ExScreen *WorkstationViewerManager::screenForViewer(ExBaseViewer * /*viewer*/)
{
    return &m_screen;
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
