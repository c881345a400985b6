#pragma once

#include "client/layout/LayoutTable.h"
#include "framework/viewers/ExBaseViewerGroup.h"

#include <QString>

#include <functional>

class ViewerArea;
class WorkstationScreen;
class WorkstationViewer;
class WorkstationViewerManager;

/// Fills the screen with viewers by a layout, and shows single viewers on the full screen. Viewers
/// that fit a place of the new layout stay, with all that they show; a layout with one place only
/// shows the active viewer, whatever its kind, once that has a series. Viewers are created here.
class ViewerLayouts
{
public:
    /// Called for every new viewer, before anybody hears of it.
    using SetUp = std::function<void(WorkstationViewer &)>;

    ViewerLayouts(ViewerArea &area, WorkstationScreen &screen, WorkstationViewerManager &manager,
        SetUp setUp);

    /// Notifies VIEWER_CREATED for each new viewer and VIEWER_LAYOUT_CHANGED in the end. New
    /// viewers show the series of the active one.
    void apply(const ViewerLayout &layout);
    /// The name of the layout applied last; empty before.
    [[nodiscard]] const QString &current() const { return m_current; }
    /// Notifies FULLSCREEN_CHANGED when that is a change.
    void setFullscreen(WorkstationViewer &viewer, bool on);
    [[nodiscard]] bool isFullscreen(const WorkstationViewer &viewer) const;
    void toggleFullscreen(WorkstationViewer &viewer);

private:
    /// Takes the viewer that stays in a place out of @p present; null when there is none.
    WorkstationViewer *takeStaying(
        ExBaseViewerGroup &present, const ViewerLayout &layout, const ViewerLayout::Place &place);
    WorkstationViewer *createViewer(const ViewerLayout::Place &place);

    ViewerArea &m_area;
    WorkstationScreen &m_screen;
    WorkstationViewerManager &m_manager;
    SetUp m_setUp;
    QString m_current;
};
