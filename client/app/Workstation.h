#pragma once

#include "client/interaction/InteractionSet.h"
#include "client/layout/ViewerLayouts.h"
#include "client/layout/WorkstationScreen.h"
#include "client/links/ViewerLinks.h"
#include "client/loading/LoadGate.h"
#include "client/loading/StudySession.h"
#include "client/measurements/MeasurementList.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "platform/util/McHandle.h"

class SliceViewer;
class ViewerArea;
class WorkstationViewer;

/// Everything of the workstation but its windows, put together: screen, viewers, links, layouts,
/// interactions, studies, measurements. One in the process, owned by the main window. GUI thread
/// only.
class Workstation
{
public:
    /// @param area where the viewers are; must outlive the workstation.
    Workstation(ViewerArea &area, MenuInteraction::OpenMenu openMenu);
    /// Ends all reading, then removes the viewers through the manager.
    ~Workstation();
    Workstation(const Workstation &) = delete;
    Workstation &operator=(const Workstation &) = delete;

    [[nodiscard]] StudySession &session() { return m_session; }
    [[nodiscard]] LoadGate &gate() { return m_gate; }
    [[nodiscard]] ViewerLayouts &layouts() { return m_layouts; }
    [[nodiscard]] MeasurementList &measurements() { return m_measurements; }
    [[nodiscard]] WorkstationScreen &screen() { return m_screen; }
    /// Null when there is none.
    [[nodiscard]] WorkstationViewer *activeViewer() const;
    /// In the order of the viewer manager.
    [[nodiscard]] std::vector<WorkstationViewer *> viewers() const;
    [[nodiscard]] std::vector<SliceViewer *> sliceViewers() const;

    /// A series, or one of its volumes, and the viewer in which to open it.
    struct Opening
    {
        WorkstationViewer *viewer = nullptr;
        std::string uid;
    };
    /// Opens series as far as the gate lets them pass, which may ask the user, once for all of
    /// them. Unknown identifiers are ignored.
    void open(const std::vector<Opening> &openings);
    /// Opens one in all viewers.
    void openInAll(const std::string &uid);
    void openIn(WorkstationViewer &viewer, const std::string &uid) { open({{&viewer, uid}}); }
    /// Closes series or volumes: they go out of the viewers and out of memory, but stay listed.
    void close(const std::vector<std::string> &uids);
    /// Whether nothing is being read and every viewer shows its final image.
    [[nodiscard]] bool isSettled() const;

private:
    void updateOverlays();
    /// Tells the viewers whether there are series to choose from.
    void offerSeries();

    MeasurementList m_measurements;
    WorkstationScreen m_screen;
    McHandle<ViewerLinks> m_links;
    WorkstationViewerManager m_manager;
    ViewerLayouts m_layouts;
    InteractionSet m_interactions;
    LoadGate m_gate;
    StudySession m_session;
};
