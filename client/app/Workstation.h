#pragma once

#include "client/interaction/InteractionSet.h"
#include "client/layout/ViewerLayouts.h"
#include "client/layout/WorkstationScreens.h"
#include "client/links/ViewerLinks.h"
#include "client/loading/LoadGate.h"
#include "client/loading/StudySession.h"
#include "client/measurements/MeasurementList.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "platform/util/McHandle.h"

class SliceViewer;
class ViewerArea;
class WorkstationViewer;

/// Everything of the workstation but its windows, put together: screens, viewers, links, layouts,
/// interactions, studies, measurements. One in the process, owned by the work session. GUI thread
/// only.
class Workstation
{
public:
    /// Without any screen, until there are areas.
    explicit Workstation(MenuInteraction::OpenMenu openMenu);
    /// Ends all reading, then removes the viewers through the manager.
    ~Workstation();
    Workstation(const Workstation &) = delete;
    Workstation &operator=(const Workstation &) = delete;

    [[nodiscard]] StudySession &session() { return m_session; }
    [[nodiscard]] LoadGate &gate() { return m_gate; }
    [[nodiscard]] ViewerLayouts &layouts() { return m_layouts; }
    [[nodiscard]] MeasurementList &measurements() { return m_measurements; }
    [[nodiscard]] const WorkstationScreens &screens() const { return m_screens; }
    /// Makes these the areas in which viewers are, in this order. A new one is filled with viewers
    /// in the layout of the first screen; the viewers of one that is left out go, and all that is
    /// shown in the others stays. Areas must stay until they are left out here.
    void setAreas(const QList<ViewerArea *> &areas);
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
    void leaveOtherScreens(const QList<ViewerArea *> &areas);
    void addScreen(ViewerArea &area);
    /// Tells the viewers whether there are series to choose from.
    void offerSeries();

    MeasurementList m_measurements;
    WorkstationScreens m_screens;
    McHandle<ViewerLinks> m_links;
    WorkstationViewerManager m_manager;
    ViewerLayouts m_layouts;
    InteractionSet m_interactions;
    LoadGate m_gate;
    StudySession m_session;
    QObject m_context; ///< What is connected ends with it.
};
