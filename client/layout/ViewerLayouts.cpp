#include "client/layout/ViewerLayouts.h"

#include "client/layout/ViewerArea.h"
#include "client/layout/WorkstationScreens.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/VolumeViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/notification/ExNotifiable.h"

#include <utility>

namespace {

bool fits(const WorkstationViewer &viewer, const ViewerLayout::Place &place)
{
    const bool isVolume = WorkstationViewer::isVolumeType(viewer.viewerType());
    if (isVolume || place.isVolume) {
        return isVolume == place.isVolume;
    }
    return static_cast<const SliceViewer &>(viewer).plane() == place.plane;
}

/// Told apart over all screens.
std::string displaySetId(
    const WorkstationScreen &screen, const ViewerLayout &layout, std::size_t place)
{
    const std::string id = layout.name.toStdString() + '/' + std::to_string(place + 1);
    return screen.number() == 1 ? id : std::to_string(screen.number()) + ':' + id;
}

} // namespace

ViewerLayouts::ViewerLayouts(
    WorkstationScreens &screens, WorkstationViewerManager &manager, SetUp setUp)
    : m_screens(screens)
    , m_manager(manager)
    , m_setUp(std::move(setUp))
{ }

WorkstationViewer *ViewerLayouts::takeStaying(
    ExBaseViewerGroup &present, const ViewerLayout &layout, const ViewerLayout::Place &place)
{
    WorkstationViewer *const active = WorkstationViewerManager::active();
    const bool isAlone
        = layout.places.size() == 1 && present.contains(active) && active->series() != nullptr;
    for (int i = 0; i < present.size(); ++i) {
        auto *const viewer = static_cast<WorkstationViewer *>(present[i]);
        if (isAlone ? viewer == active : fits(*viewer, place)) {
            present.remove(i);
            return viewer;
        }
    }
    return nullptr;
}

WorkstationScreen *ViewerLayouts::activeScreen() const
{
    WorkstationScreen *const active = m_screens.screenFor(m_manager.activeViewer());
    return active == nullptr ? m_screens.first() : active;
}

ExBaseViewerGroup ViewerLayouts::viewersOn(const WorkstationScreen &screen) const
{
    ExBaseViewerGroup viewers(nullptr, ExBaseViewerGroup::ALL_VIEWERS, Ex::ANY_VIEWER_TYPE);
    for (int i = viewers.size(); i-- > 0;) {
        if (m_screens.screenFor(viewers[i]) != &screen) {
            viewers.remove(i);
        }
    }
    return viewers;
}

WorkstationViewer *ViewerLayouts::createViewer(
    WorkstationScreen &screen, const ViewerLayout::Place &place)
{
    WorkstationViewer *viewer = nullptr;
    if (place.isVolume) {
        viewer = new VolumeViewer(&screen.area());
    } else {
        viewer = new SliceViewer(place.plane, &screen.area());
    }
    m_manager.addViewer(viewer, place.box, true);
    m_setUp(*viewer);
    ExNotifiable::notify({ExNotification::VIEWER_CREATED, viewer});
    return viewer;
}

void ViewerLayouts::apply(const ViewerLayout &layout)
{
    if (WorkstationScreen *const screen = activeScreen()) {
        applyTo(*screen, layout);
    }
}

void ViewerLayouts::applyToAll(const ViewerLayout &layout)
{
    for (const auto &screen : m_screens.all()) {
        applyTo(*screen, layout);
    }
}

QString ViewerLayouts::current() const
{
    const WorkstationScreen *const screen = activeScreen();
    return screen == nullptr ? QString() : screen->layout();
}

void ViewerLayouts::sortViewers()
{
    m_manager.sortViewers([this](const McHandle<ExBaseViewer> &a, const McHandle<ExBaseViewer> &b) {
        return std::pair(m_screens.indexOf(a), a->displaySetID())
            < std::pair(m_screens.indexOf(b), b->displaySetID());
    });
}

void ViewerLayouts::applyTo(WorkstationScreen &screen, const ViewerLayout &layout)
{
    screen.setReconfigureEnabled(false);
    ExBaseViewerGroup present = viewersOn(screen);
    const WorkstationViewer *const active = WorkstationViewerManager::active();
    const McHandle<LoadedSeries> series(active != nullptr ? active->series() : nullptr);
    WorkstationViewer *first = nullptr;
    for (std::size_t i = 0; i < layout.places.size(); ++i) {
        const ViewerLayout::Place &place = layout.places[i];
        WorkstationViewer *viewer = takeStaying(present, layout, place);
        if (viewer != nullptr) {
            screen.addWidget(viewer, place.box); // Anew: no longer full screen.
        } else {
            viewer = createViewer(screen, place);
            viewer->setSeries(series);
        }
        viewer->setDisplaySetID(displaySetId(screen, layout, i));
        first = first == nullptr ? viewer : first;
    }
    for (ExBaseViewer *left : present) {
        m_manager.dropViewer(*left);
    }
    sortViewers();
    screen.setLayout(layout.name);
    screen.setReconfigureEnabled(true);
    screen.reconfigure();
    if (m_manager.activeViewer() == nullptr || active != m_manager.activeViewer()) {
        m_manager.setActiveViewer(first);
    }
    ExNotifiable::notify(ExNotification::VIEWER_LAYOUT_CHANGED);
}

void ViewerLayouts::setFullscreen(WorkstationViewer &viewer, bool on)
{
    WorkstationScreen *const screen = m_screens.screenFor(&viewer);
    if (screen != nullptr && screen->setFullscreen(&viewer, on)) {
        screen->reconfigure();
        ExNotifiable::notify({ExNotification::FULLSCREEN_CHANGED, &viewer});
    }
}

bool ViewerLayouts::isFullscreen(const WorkstationViewer &viewer) const
{
    const WorkstationScreen *const screen = m_screens.screenFor(&viewer);
    return screen != nullptr && screen->isFullscreen(&viewer);
}

void ViewerLayouts::toggleFullscreen(WorkstationViewer &viewer)
{
    setFullscreen(viewer, !isFullscreen(viewer));
}
