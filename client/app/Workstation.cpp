#include "client/app/Workstation.h"

#include "client/layout/ViewerArea.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/ViewerRenderWidget.h"

#include <algorithm>
#include <utility>

Workstation::Workstation(MenuInteraction::OpenMenu openMenu)
    : m_links(new ViewerLinks)
    , m_manager([this](const ExBaseViewer *viewer) { return m_screens.screenFor(viewer); })
    , m_layouts(m_screens, m_manager,
          [this](WorkstationViewer &viewer) {
              m_interactions.install(viewer);
              viewer.setSeriesOffered(!m_session.imageSeries().empty());
          })
    , m_interactions(m_layouts, std::move(openMenu))
{
    QObject::connect(
        &m_measurements, &MeasurementList::changed, &m_context, [this] { updateOverlays(); });
    QObject::connect(&m_session, &StudySession::scanned, &m_context, [this] { offerSeries(); });
    QObject::connect(&m_session, &StudySession::closed, &m_context, [this] { offerSeries(); });
    QObject::connect(&m_session, &StudySession::closed, &m_gate, &LoadGate::closeAll);
    QObject::connect(
        &m_session, &StudySession::closed, &m_measurements, &MeasurementList::forgetStatistics);
}

Workstation::~Workstation()
{
    m_session.close();
}

void Workstation::setAreas(const QList<ViewerArea *> &areas)
{
    leaveOtherScreens(areas);
    for (ViewerArea *area : areas) {
        if (m_screens.find(area) == nullptr) {
            addScreen(*area);
        }
    }
    m_screens.sort(areas);
    m_layouts.sortViewers();
    ExNotifiable::notify(ExNotification::VIEWER_LAYOUT_CHANGED);
}

void Workstation::leaveOtherScreens(const QList<ViewerArea *> &areas)
{
    std::vector<const WorkstationScreen *> left;
    for (const auto &screen : m_screens.all()) {
        if (!areas.contains(&screen->area())) {
            left.push_back(screen.get());
        }
    }
    const auto isLeft = [&](const WorkstationViewer *viewer) {
        return std::find(left.begin(), left.end(), m_screens.screenFor(viewer)) != left.end();
    };
    const auto all = viewers();
    const auto staying = std::find_if_not(all.begin(), all.end(), isLeft);
    if (activeViewer() != nullptr && isLeft(activeViewer()) && staying != all.end()) {
        m_manager.setActiveViewer(*staying);
    }
    for (WorkstationViewer *viewer : all) {
        if (isLeft(viewer)) {
            m_manager.dropViewer(*viewer);
        }
    }
    for (const WorkstationScreen *screen : left) {
        screen->area().disconnect(&m_context);
        m_screens.remove(*screen);
    }
}

void Workstation::addScreen(ViewerArea &area)
{
    const ViewerLayout *const first
        = m_screens.first() == nullptr ? nullptr : LayoutTable::find(m_screens.first()->layout());
    WorkstationScreen &screen = m_screens.add(area);
    QObject::connect(&area, &ViewerArea::resized, &m_context, [&screen] { screen.reconfigure(); });
    const QString usual = QStringLiteral("2x2");
    m_layouts.applyTo(screen, first == nullptr ? *LayoutTable::find(usual) : *first);
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
    return WorkstationViewerManager::active();
}

std::vector<WorkstationViewer *> Workstation::viewers() const
{
    return WorkstationViewerManager::all();
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
    const LoadGate::Entries admitted = [&] {
        const StudySession::Pause pause(m_session);
        return m_gate.admit(wanted);
    }();
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
    m_measurements.forgetStatistics();
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
