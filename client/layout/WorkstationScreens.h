#pragma once

#include "client/layout/WorkstationScreen.h"

#include <QList>

#include <memory>
#include <vector>

class ExBaseViewer;
class ViewerArea;

/// The workstation's screens, one for each viewer area, in the order of their monitors. A viewer is
/// on the screen in whose area its widget stands. GUI thread only.
class WorkstationScreens
{
public:
    using Screens = std::vector<std::unique_ptr<WorkstationScreen>>;

    [[nodiscard]] const Screens &all() const { return m_screens; }
    /// Null when there is none.
    [[nodiscard]] WorkstationScreen *first() const;
    [[nodiscard]] WorkstationScreen *find(const ViewerArea *area) const;
    /// Null for a viewer, or no viewer, that is on none.
    [[nodiscard]] WorkstationScreen *screenFor(const ExBaseViewer *viewer) const;
    /// The position of the viewer's screen, or -1.
    [[nodiscard]] int indexOf(const ExBaseViewer *viewer) const;

    /// Adds a screen at the end. @param area must outlive it.
    WorkstationScreen &add(ViewerArea &area);
    /// Takes a screen away that holds no viewers any longer.
    void remove(const WorkstationScreen &screen);
    /// Puts the screens in the order of their areas.
    void sort(const QList<ViewerArea *> &areas);

private:
    Screens m_screens;
};
