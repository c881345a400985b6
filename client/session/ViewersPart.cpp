#include "client/session/ViewersPart.h"

#include "client/app/NotificationWatch.h"
#include "client/app/Workstation.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/VolumeViewer.h"

#include <algorithm>
#include <utility>

namespace {

/// Without the patient's name: it is written to a file.
QString nameOf(const LoadedSeries &series)
{
    const SeriesInfo &info = series.info();
    return QStringList{info.modality, info.seriesNumber, info.seriesDescription}
        .join(QLatin1Char(' '))
        .simplified();
}

SessionState::Viewer stateOf(const WorkstationViewer &viewer)
{
    SessionState::Viewer state;
    state.displaySet = viewer.displaySetID();
    if (const LoadedSeries *const series = viewer.series()) {
        state.seriesUid = series->uid();
        state.seriesName = nameOf(*series);
    }
    state.phase = viewer.phase();
    if (const auto *const slices = dynamic_cast<const SliceViewer *>(&viewer)) {
        state.slice = slices->view();
    } else if (const auto *const volume = dynamic_cast<const VolumeViewer *>(&viewer)) {
        state.isVolume = true;
        state.volume = volume->view();
    }
    return state;
}

void show(WorkstationViewer &viewer, const SessionState::Viewer &state)
{
    viewer.setPhase(state.phase);
    if (auto *const slices = dynamic_cast<SliceViewer *>(&viewer)) {
        slices->setView(state.slice);
    } else if (auto *const volume = dynamic_cast<VolumeViewer *>(&viewer)) {
        volume->setView(state.volume);
    }
}

/// The viewers that stand where those of the states stood; null where there is none.
std::vector<WorkstationViewer *> matching(
    const std::vector<SessionState::Viewer> &states, std::vector<WorkstationViewer *> viewers)
{
    std::vector<WorkstationViewer *> found;
    for (const SessionState::Viewer &state : states) {
        const auto match = std::find_if(viewers.begin(), viewers.end(), [&](const auto *viewer) {
            const bool isVolume = WorkstationViewer::isVolumeType(viewer->viewerType());
            return viewer->displaySetID() == state.displaySet && isVolume == state.isVolume;
        });
        found.push_back(match == viewers.end() ? nullptr : *match);
        if (match != viewers.end()) {
            viewers.erase(match);
        }
    }
    return found;
}

} // namespace

ViewersPart::ViewersPart(Workstation &workstation, std::function<void()> shown)
    : m_workstation(workstation)
    , m_shown(std::move(shown))
    , m_watch(new NotificationWatch(
          {ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::VOLUME_LOADED,
              ExNotification::ABOUT_TO_DELETE_VIEWERS},
          [this](const ExNotification &notification) { notified(notification); }))
{ }

ViewersPart::~ViewersPart() = default;

QString ViewersPart::displayName() const
{
    return tr("Viewers");
}

const char *ViewersPart::persistentName() const
{
    return SessionState::Viewers::name;
}

QStringList ViewersPart::layouts() const
{
    QStringList names;
    for (const auto &screen : m_workstation.screens().all()) {
        names += screen->layout();
    }
    return names;
}

void ViewersPart::applyLayouts(const QStringList &names)
{
    const WorkstationScreens::Screens &screens = m_workstation.screens().all();
    for (qsizetype i = 0; i < names.size(); ++i) {
        const ViewerLayout *const layout = LayoutTable::find(names[i]);
        if (layout == nullptr || i >= static_cast<qsizetype>(screens.size())) {
            m_missing += tr("the viewers of screen %1 (layout %2)").arg(i + 1).arg(names[i]);
        } else {
            m_workstation.layouts().applyTo(*screens[static_cast<std::size_t>(i)], *layout);
        }
    }
}

void ViewersPart::serialize(ExSessionData &session)
{
    SessionState::Viewers viewers;
    viewers.layouts = layouts();
    for (const WorkstationViewer *viewer : m_workstation.viewers()) {
        const auto waiting = m_waiting.find(const_cast<WorkstationViewer *>(viewer));
        SessionState::Viewer state
            = waiting == m_waiting.end() ? stateOf(*viewer) : waiting->second;
        state.isActive = viewer == m_workstation.activeViewer();
        state.isFullscreen = m_workstation.layouts().isFullscreen(*viewer);
        viewers.viewers.push_back(std::move(state));
    }
    session.setBlock(QString::fromLatin1(persistentName()), viewers.toBytes());
}

void ViewersPart::deserialize(ExSessionData &session)
{
    m_missing.clear();
    m_waiting.clear();
    const auto read
        = SessionState::Viewers::fromBytes(session.block(QString::fromLatin1(persistentName())));
    if (read) {
        applyLayouts(read->layouts);
        restoreViewers(read->viewers);
    }
}

void ViewersPart::restoreViewers(const std::vector<SessionState::Viewer> &states)
{
    const std::vector<WorkstationViewer *> viewers = matching(states, m_workstation.viewers());
    std::vector<Workstation::Opening> openings;
    for (std::size_t i = 0; i < states.size(); ++i) {
        const SessionState::Viewer &state = states[i];
        WorkstationViewer *const viewer = viewers[i];
        const auto entry = m_workstation.session().entry(state.seriesUid);
        if (!state.seriesUid.empty() && !(entry && entry->isImage())) {
            m_missing += tr("the series %1").arg(state.seriesName);
        }
        if (viewer == nullptr) {
            continue;
        }
        if (entry && entry->isImage()) {
            m_waiting.insert_or_assign(viewer, state);
            openings.push_back({viewer, state.seriesUid});
        } else {
            viewer->setSeries(nullptr);
        }
        m_workstation.layouts().setFullscreen(*viewer, state.isFullscreen);
        if (state.isActive) {
            ExViewerManager::instancePointer()->setActiveViewer(viewer);
        }
    }
    m_missing.removeDuplicates();
    // Past the gate, which may ask the user; what is not admitted is not waited for.
    m_workstation.open(openings);
    const auto waiting = m_waiting;
    for (const auto &[viewer, state] : waiting) {
        putInForce(*viewer); // Of one that showed the series before nobody is notified.
    }
}

void ViewersPart::notified(const ExNotification &notification)
{
    auto *const viewer = static_cast<WorkstationViewer *>(notification.viewer());
    if (viewer == nullptr || m_waiting.count(viewer) == 0) {
        return;
    }
    if (notification.type() == ExNotification::ABOUT_TO_DELETE_VIEWERS) {
        m_waiting.erase(viewer);
    } else {
        putInForce(*viewer);
    }
}

void ViewersPart::putInForce(WorkstationViewer &viewer)
{
    const auto waiting = m_waiting.find(&viewer);
    if (waiting == m_waiting.end()) {
        return;
    }
    const LoadedSeries *const series = viewer.series();
    if (series == nullptr || series->uid() != waiting->second.seriesUid) {
        m_waiting.erase(waiting); // The user has opened another one meanwhile.
    } else if (viewer.volume(0) != nullptr) {
        const SessionState::Viewer state = waiting->second;
        // A 3D viewer shows nothing, and chooses its window, when all slices have been read.
        if (series->isComplete() || !state.isVolume) {
            m_waiting.erase(waiting);
        }
        show(viewer, state);
        m_shown();
    }
}
