#include "client/interaction/ClickInteractions.h"

#include "client/layout/ViewerLayouts.h"
#include "client/links/ViewerLinks.h"
#include "client/measurements/MeasurementList.h"
#include "client/overlay/OverlayPainter.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/notification/ExNotifiable.h"
#include "framework/viewers/ExViewerManager.h"

#include <utility>

namespace {

/// Tried before the interactions with order key 0.
constexpr int early = 10;
constexpr int earliest = 20;

bool isOnBadge(const ExEvent &event, const WorkstationViewer &viewer)
{
    return viewer.widget()->overlay().link != OverlayContent::Link::None
        && OverlayPainter::badgeRect(viewer.widget()->size()).contains(event.x, event.y);
}

/// While a measurement is being drawn or dragged, double click and Escape belong to it.
bool isMeasuring()
{
    const MeasurementList *const list = MeasurementList::instancePointer();
    return list != nullptr && list->draft() != nullptr;
}

} // namespace

void ActivateInteraction::install(ExEventHandler &handler)
{
    for (const auto button : {Qt::LeftButton, Qt::MiddleButton, Qt::RightButton}) {
        bind(handler, ExSignal::PRESS, button, this, &ActivateInteraction::press, earliest);
    }
}

bool ActivateInteraction::press(const ExEvent &event)
{
    ExViewerManager *const manager = ExViewerManager::instancePointer();
    ExBaseViewer *const viewer = event.viewer();
    // One that has gone may still get what was on its way to it.
    if (manager != nullptr && manager->viewerIndex(viewer) >= 0) {
        event.setActivating(manager->activeViewer() != viewer);
        manager->setActiveViewer(viewer);
    }
    return false;
}

FullscreenInteraction::FullscreenInteraction(ViewerLayouts &layouts)
    : m_layouts(layouts)
{ }

void FullscreenInteraction::install(ExEventHandler &handler)
{
    bind(handler, ExSignal::DOUBLE_CLICK, Qt::LeftButton, this, &FullscreenInteraction::toggle);
    bind(handler, ExSignal::PRESS, Qt::Key_Escape, this, &FullscreenInteraction::leave);
}

bool FullscreenInteraction::toggle(const ExEvent &event)
{
    WorkstationViewer *const viewer = viewerOf(event);
    if (viewer == nullptr || isMeasuring()) {
        return false;
    }
    m_layouts.toggleFullscreen(*viewer);
    return true;
}

bool FullscreenInteraction::leave(const ExEvent &event)
{
    WorkstationViewer *const viewer = viewerOf(event);
    if (viewer == nullptr || isMeasuring() || !m_layouts.isFullscreen(*viewer)) {
        return false;
    }
    m_layouts.setFullscreen(*viewer, false);
    return true;
}

void LinkBadgeInteraction::install(ExEventHandler &handler)
{
    bind(handler, ExSignal::PRESS, Qt::LeftButton, this, &LinkBadgeInteraction::press, early);
    bind(handler, ExSignal::CLICK, Qt::LeftButton, this, &LinkBadgeInteraction::click, early);
    bind(handler, ExSignal::DOUBLE_CLICK, Qt::LeftButton, this, &LinkBadgeInteraction::doubleClick,
        early);
    bind(handler, ExSignal::PRESS, Qt::Key_L, this, &LinkBadgeInteraction::click);
}

bool LinkBadgeInteraction::press(const ExEvent &event)
{
    const WorkstationViewer *const viewer = viewerOf(event);
    return viewer != nullptr && isOnBadge(event, *viewer);
}

bool LinkBadgeInteraction::click(const ExEvent &event)
{
    WorkstationViewer *const viewer = viewerOf(event);
    if (viewer == nullptr || (!event.isKey() && !isOnBadge(event, *viewer))) {
        return false;
    }
    ViewerLinks::setAttached(*viewer, !ViewerLinks::isAttached(*viewer));
    return true;
}

bool LinkBadgeInteraction::doubleClick(const ExEvent &event)
{
    return click(event);
}

MenuInteraction::MenuInteraction(OpenMenu openMenu)
    : m_openMenu(std::move(openMenu))
{ }

void MenuInteraction::install(ExEventHandler &handler)
{
    bind(handler, ExSignal::CLICK, Qt::RightButton, this, &MenuInteraction::click);
}

bool MenuInteraction::click(const ExEvent &event)
{
    WorkstationViewer *const viewer = viewerOf(event);
    if (viewer == nullptr) {
        return false;
    }
    ExNotifiable::notify({ExNotification::ABOUT_TO_SHOW_CONTEXTMENU, viewer});
    m_openMenu(*viewer, viewer->widget()->mapToGlobal(QPoint(event.x, event.y)));
    return true;
}
