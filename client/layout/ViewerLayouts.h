#pragma once

#include "client/layout/LayoutTable.h"
#include "framework/viewers/ExBaseViewerGroup.h"

#include <QString>

#include <functional>

class WorkstationScreen;
class WorkstationScreens;
class WorkstationViewer;
class WorkstationViewerManager;

/// Fills screens with viewers by a layout, and shows single viewers on their full screen. Viewers
/// that fit a place of the new layout stay, with all that they show; a layout with one place only
/// shows the active viewer, whatever its kind, once that has a series. Viewers are created here.
class ViewerLayouts
{
public:
    /// Called for every new viewer, before anybody hears of it.
    using SetUp = std::function<void(WorkstationViewer &)>;

    ViewerLayouts(WorkstationScreens &screens, WorkstationViewerManager &manager, SetUp setUp);

    /// To the screen of the active viewer, else the first; nothing without one. Notifies
    /// VIEWER_CREATED for each new viewer and VIEWER_LAYOUT_CHANGED in the end. New viewers show
    /// the series of the active one.
    void apply(const ViewerLayout &layout);
    void applyTo(WorkstationScreen &screen, const ViewerLayout &layout);
    void applyToAll(const ViewerLayout &layout);
    /// The name of the layout applied last to the screen of the active viewer; empty before.
    [[nodiscard]] QString current() const;
    /// Puts the viewers in the order of the screens and of their layouts: groups of viewers come in
    /// it.
    void sortViewers();
    /// Notifies FULLSCREEN_CHANGED when that is a change.
    void setFullscreen(WorkstationViewer &viewer, bool on);
    [[nodiscard]] bool isFullscreen(const WorkstationViewer &viewer) const;
    void toggleFullscreen(WorkstationViewer &viewer);

private:
    /// The screen of the active viewer, else the first; null for none.
    [[nodiscard]] WorkstationScreen *activeScreen() const;
    [[nodiscard]] ExBaseViewerGroup viewersOn(const WorkstationScreen &screen) const;
    /// Takes the viewer that stays in a place out of @p present; null when there is none.
    WorkstationViewer *takeStaying(
        ExBaseViewerGroup &present, const ViewerLayout &layout, const ViewerLayout::Place &place);
    WorkstationViewer *createViewer(WorkstationScreen &screen, const ViewerLayout::Place &place);

    WorkstationScreens &m_screens;
    WorkstationViewerManager &m_manager;
    SetUp m_setUp;
};
