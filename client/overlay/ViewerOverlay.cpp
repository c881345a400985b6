#include "client/overlay/ViewerOverlay.h"

#include "client/viewers/WorkstationViewer.h"
#include "framework/notification/ExNotifiables.h"

ViewerOverlay::ViewerOverlay(WorkstationViewer &viewer)
    : m_viewer(viewer)
{ }

void ViewerOverlay::addNotifications()
{
    ExNotifiables::getInstance().addNotifications(this, ExNotification::SLICE_CHANGED,
        ExNotification::ZOOM_CHANGED, ExNotification::DATA_WINDOW_CHANGED,
        ExNotification::TIMESERIES_CHANGED, ExNotification::VIEWER_VOLUME_CHANGED,
        ExNotification::VIEWER_SUBTYPE_CHANGED, ExNotification::ACTIVE_VIEWER_CHANGED,
        ExNotification::VIEWER_ATTACHED_TO_GROUP, ExNotification::VIEWER_DETACHED_FROM_GROUP,
        ExNotification::VIEWER_GROUP_ENABLED, ExNotification::VIEWER_GROUP_DISABLED,
        ExNotification::COLORMAP_CHANGED, ExNotification::VIEWER_FLIPPED,
        ExNotification::SCREEN_RECONFIGURED, ExNotification::VOLUME_LOADED,
        ExNotification::TOOL_ACTIVATED, ExNotification::TOOL_DEACTIVATED,
        ExNotification::GLOBAL_TOGGLE_CHANGED, ExNotification::NONE);
}

void ViewerOverlay::notified(const ExNotification &notification)
{
    // What only its own viewer shows; everything else may move a reference line or a frame.
    const bool isOfOneViewer = notification.type() == ExNotification::ZOOM_CHANGED
        || notification.type() == ExNotification::DATA_WINDOW_CHANGED
        || notification.type() == ExNotification::TIMESERIES_CHANGED
        || notification.type() == ExNotification::COLORMAP_CHANGED
        || notification.type() == ExNotification::VIEWER_FLIPPED;
    if (!isOfOneViewer || notification.viewer() == &m_viewer) {
        m_viewer.updateOverlay();
    }
}
