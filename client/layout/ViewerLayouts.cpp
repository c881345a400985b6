#include "client/layout/ViewerLayouts.h"

#include "client/layout/ViewerArea.h"
#include "client/layout/WorkstationScreen.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"
#include "client/viewers/VolumeViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/notification/ExNotifiable.h"

#include <utility>

namespace {

bool fits(const WorkstationViewer &viewer, const ViewerLayout::Place &place)
{
    const bool isVolume
        = viewer.viewerType() == static_cast<Ex::ViewerType>(WorkstationViewer::VolumeType);
    if (isVolume || place.isVolume) {
        return isVolume == place.isVolume;
    }
    return static_cast<const SliceViewer &>(viewer).plane() == place.plane;
}

} // namespace

ViewerLayouts::ViewerLayouts(
    ViewerArea &area, WorkstationScreen &screen, WorkstationViewerManager &manager, SetUp setUp)
    : m_area(area)
    , m_screen(screen)
    , m_manager(manager)
    , m_setUp(std::move(setUp))
{ }

WorkstationViewer *ViewerLayouts::takeStaying(
    ExBaseViewerGroup &present, const ViewerLayout &layout, const ViewerLayout::Place &place)
{
    const auto *const active = static_cast<WorkstationViewer *>(m_manager.activeViewer());
    const bool isAlone
        = layout.places.size() == 1 && active != nullptr && active->series() != nullptr;
    for (int i = 0; i < present.size(); ++i) {
        auto *const viewer = static_cast<WorkstationViewer *>(present[i]);
        if (isAlone ? viewer == active : fits(*viewer, place)) {
            present.remove(i);
            return viewer;
        }
    }
    return nullptr;
}

WorkstationViewer *ViewerLayouts::createViewer(const ViewerLayout::Place &place)
{
    WorkstationViewer *viewer = nullptr;
    if (place.isVolume) {
        viewer = new VolumeViewer(&m_area);
    } else {
        viewer = new SliceViewer(place.plane, &m_area);
    }
    m_manager.addViewer(viewer, place.box, true);
    m_setUp(*viewer);
    ExNotifiable::notify({ExNotification::VIEWER_CREATED, viewer});
    return viewer;
}

void ViewerLayouts::apply(const ViewerLayout &layout)
{
    m_screen.setReconfigureEnabled(false);
    ExBaseViewerGroup present(nullptr, ExBaseViewerGroup::ALL_VIEWERS, Ex::ANY_VIEWER_TYPE);
    const auto *const active = static_cast<WorkstationViewer *>(m_manager.activeViewer());
    const McHandle<LoadedSeries> series(active != nullptr ? active->series() : nullptr);
    WorkstationViewer *first = nullptr;
    for (std::size_t i = 0; i < layout.places.size(); ++i) {
        const ViewerLayout::Place &place = layout.places[i];
        WorkstationViewer *viewer = takeStaying(present, layout, place);
        if (viewer != nullptr) {
            m_screen.addWidget(viewer, place.box); // Anew: no longer full screen.
        } else {
            viewer = createViewer(place);
            viewer->setSeries(series);
        }
        viewer->setDisplaySetID(layout.name.toStdString() + '/' + std::to_string(i + 1));
        first = first == nullptr ? viewer : first;
    }
    for (ExBaseViewer *left : present) {
        m_manager.dropViewer(*left);
    }
    // Groups of viewers come in the order of the layout.
    m_manager.sortViewers([](const McHandle<ExBaseViewer> &a, const McHandle<ExBaseViewer> &b) {
        return a->displaySetID() < b->displaySetID();
    });
    m_current = layout.name;
    m_screen.setReconfigureEnabled(true);
    m_screen.reconfigure();
    if (m_manager.activeViewer() == nullptr || active != m_manager.activeViewer()) {
        m_manager.setActiveViewer(first);
    }
    ExNotifiable::notify(ExNotification::VIEWER_LAYOUT_CHANGED);
}

void ViewerLayouts::setFullscreen(WorkstationViewer &viewer, bool on)
{
    if (m_screen.setFullscreen(&viewer, on)) {
        m_screen.reconfigure();
        ExNotifiable::notify({ExNotification::FULLSCREEN_CHANGED, &viewer});
    }
}

bool ViewerLayouts::isFullscreen(const WorkstationViewer &viewer) const
{
    return m_screen.isFullscreen(&viewer);
}

void ViewerLayouts::toggleFullscreen(WorkstationViewer &viewer)
{
    setFullscreen(viewer, !m_screen.isFullscreen(&viewer));
}
