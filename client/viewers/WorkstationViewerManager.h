#pragma once

#include "framework/viewers/ExViewerManager.h"

/// The workstation's viewers; all are on one screen, which must outlive the manager.
class WorkstationViewerManager final : public ExViewerManager
{
public:
    explicit WorkstationViewerManager(ExScreen &screen);
    /// Removes all viewers.
    ~WorkstationViewerManager() override;

    ExScreen *screenForViewer(ExBaseViewer *viewer) override;
    /// Tells ABOUT_TO_DELETE_VIEWERS of the viewer and removes it; another one becomes active if it
    /// was that.
    void dropViewer(ExBaseViewer &viewer);

private:
    ExScreen &m_screen;
};
