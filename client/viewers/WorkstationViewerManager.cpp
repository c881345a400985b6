#include "client/viewers/WorkstationViewerManager.h"

#include "client/viewers/WorkstationViewer.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExBaseViewer.h"

#include <algorithm>
#include <iterator>
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

WorkstationViewer *WorkstationViewerManager::active()
{
    const ExViewerManager *const manager = instancePointer();
    return manager == nullptr ? nullptr : static_cast<WorkstationViewer *>(manager->activeViewer());
}

std::vector<WorkstationViewer *> WorkstationViewerManager::all()
{
    std::vector<WorkstationViewer *> found;
    const ExViewerManager *const manager = instancePointer();
    for (int i = 0; manager != nullptr && i < manager->numViewers(); ++i) {
        found.push_back(static_cast<WorkstationViewer *>(manager->viewer(i)));
    }
    return found;
}

std::vector<WorkstationViewer *> WorkstationViewerManager::living(
    const std::vector<WorkstationViewer *> &viewers)
{
    const std::vector<WorkstationViewer *> present = all();
    std::vector<WorkstationViewer *> found;
    std::copy_if(viewers.begin(), viewers.end(), std::back_inserter(found),
        [&present](const WorkstationViewer *each) {
            return std::find(present.begin(), present.end(), each) != present.end();
        });
    return found;
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
