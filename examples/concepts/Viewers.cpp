// What docs/concepts/viewers.md shows.
#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExBaseViewerGroup.h"
#include "framework/viewers/ExScreen.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerManager.h"

/// The voxels of a volume were changed: everybody who shows it draws anew.
void redrawVolumeOf(const ExBaseViewer &viewer)
{
    const ExBaseViewerGroup group(&viewer, ExBaseViewerGroup::SAME_VOLUME, Ex::ANY_VIEWER_TYPE);
    for (ExBaseViewer *each : group) {
        each->requestRender();
    }
}

void linkZoom(ExBaseViewer &a, ExBaseViewer &b)
{
    ExViewerDB::createGroup(ExViewerDB::ZOOM_GROUP, {&a, &b}, true);
}

void detachZoom(ExBaseViewer &viewer)
{
    ExViewerDB::setViewerAttribute(
        ExViewerDB::ZOOM_GROUP, &viewer, ExViewerDB::ATT_ATTACHED, "false");
    ExNotifiable::notify({ExNotification::VIEWER_DETACHED_FROM_GROUP, &viewer});
}

void toggleFullscreen(ExBaseViewer &viewer)
{
    ExScreen *const screen = ExViewerManager::getInstance().screenForViewer(&viewer);
    if (screen != nullptr && screen->setFullscreen(&viewer, !screen->isFullscreen(&viewer))) {
        screen->reconfigure();
        ExNotifiable::notify({ExNotification::FULLSCREEN_CHANGED, &viewer});
    }
}

void closeViewer(ExBaseViewer &viewer)
{
    ExViewerManager &manager = ExViewerManager::getInstance();
    const McHandle<ExBaseViewer> held(&viewer); // until all is done
    ExNotifiable::notify({ExNotification::ABOUT_TO_DELETE_VIEWERS, &viewer});
    ExViewerDB::clear(&viewer);
    manager.removeViewer(&viewer);
    if (ExViewerManager::isActiveViewer(viewer)) {
        manager.setActiveViewer(manager.numViewers() > 0 ? manager.viewer(0) : nullptr);
    }
}
