#pragma once

#include "framework/viewers/ExViewerManager.h"

#include <functional>
#include <vector>

class WorkstationViewer;

/// The workstation's viewers, on all of its screens.
class WorkstationViewerManager final : public ExViewerManager
{
public:
    using ScreenOf = std::function<ExScreen *(const ExBaseViewer *)>;

    /// @param screenOf the screen that a viewer is on; null for none.
    explicit WorkstationViewerManager(ScreenOf screenOf);
    /// Removes all viewers.
    ~WorkstationViewerManager() override;

    /// The active viewer; null without one, or without a manager.
    [[nodiscard]] static WorkstationViewer *active();
    /// The viewers of the one manager, in its order; none when there is no manager.
    [[nodiscard]] static std::vector<WorkstationViewer *> all();
    /// Those of them that are still there.
    [[nodiscard]] static std::vector<WorkstationViewer *> living(
        const std::vector<WorkstationViewer *> &viewers);

    ExScreen *screenForViewer(ExBaseViewer *viewer) override;
    /// Tells ABOUT_TO_DELETE_VIEWERS of the viewer and removes it; another one becomes active if it
    /// was that.
    void dropViewer(ExBaseViewer &viewer);

private:
    ScreenOf m_screenOf;
};
