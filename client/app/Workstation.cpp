#include "client/app/Workstation.h"

#include "client/layout/ViewerArea.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"

#include <algorithm>
#include <utility>

Workstation::Workstation(ViewerArea &area, MenuInteraction::OpenMenu openMenu)
    : m_screen(area)
    , m_links(new ViewerLinks)
    , m_manager(m_screen)
    , m_layouts(area, m_screen, m_manager,
          [this](WorkstationViewer &viewer) {
              m_interactions.install(viewer);
              viewer.setSeriesOffered(!m_session.imageSeries().empty());
          })
    , m_interactions(m_layouts, std::move(openMenu))
{
    QObject::connect(&area, &ViewerArea::resized, &area, [this] { m_screen.reconfigure(); });
    QObject::connect(
        &m_measurements, &MeasurementList::changed, &area, [this] { updateOverlays(); });
    QObject::connect(&m_session, &StudySession::scanned, &area, [this] { offerSeries(); });
    QObject::connect(&m_session, &StudySession::closed, &area, [this] { offerSeries(); });
    QObject::connect(&m_session, &StudySession::closed, &m_gate, &LoadGate::closeAll);
}

Workstation::~Workstation()
{
    m_session.close();
}

void Workstation::offerSeries()
{
    const bool offered = !m_session.imageSeries().empty();
    for (WorkstationViewer *viewer : viewers()) {
        viewer->setSeriesOffered(offered);
    }
}

void Workstation::updateOverlays()
{
    for (WorkstationViewer *viewer : viewers()) {
        viewer->updateOverlay();
    }
}

WorkstationViewer *Workstation::activeViewer() const
{
    return static_cast<WorkstationViewer *>(m_manager.activeViewer());
}

std::vector<WorkstationViewer *> Workstation::viewers() const
{
    std::vector<WorkstationViewer *> found;
    found.reserve(static_cast<std::size_t>(m_manager.numViewers()));
    for (int i = 0; i < m_manager.numViewers(); ++i) {
        found.push_back(static_cast<WorkstationViewer *>(m_manager.viewer(i)));
    }
    return found;
}

std::vector<SliceViewer *> Workstation::sliceViewers() const
{
    std::vector<SliceViewer *> found;
    for (WorkstationViewer *viewer : viewers()) {
        if (auto *const slice = dynamic_cast<SliceViewer *>(viewer)) {
            found.push_back(slice);
        }
    }
    return found;
}

void Workstation::openInAll(const std::string &uid)
{
    std::vector<Opening> openings;
    for (WorkstationViewer *viewer : viewers()) {
        openings.push_back({viewer, uid});
    }
    open(openings);
}

void Workstation::open(const std::vector<Opening> &openings)
{
    LoadGate::Entries wanted;
    for (const Opening &opening : openings) {
        if (const auto entry = m_session.entry(opening.uid)) {
            wanted.append(entry);
        }
    }
    const LoadGate::Entries admitted = m_gate.admit(wanted);
    // While the user was asked viewers may have gone, and studies may have been closed.
    const std::vector<WorkstationViewer *> all = viewers();
    for (const Opening &opening : openings) {
        const auto entry = m_session.entry(opening.uid);
        const bool isThere = std::find(all.begin(), all.end(), opening.viewer) != all.end();
        if (isThere && entry && admitted.contains(entry)) {
            m_session.show(entry, *opening.viewer);
        }
    }
}

void Workstation::close(const std::vector<std::string> &uids)
{
    LoadGate::Entries closed;
    for (const std::string &uid : uids) {
        if (const auto entry = m_session.entry(uid)) {
            closed.append(entry);
            m_session.unload(uid);
            for (const auto &volume : entry->children()) {
                m_session.unload(volume->uid());
            }
        }
    }
    m_gate.close(closed);
}

bool Workstation::isSettled() const
{
    const auto all = viewers();
    return !m_session.isBusy()
        && std::all_of(all.begin(), all.end(), [](const WorkstationViewer *viewer) {
               return !viewer->widget()->isVisible() || viewer->isSettled();
           });
}
