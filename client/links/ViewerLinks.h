#pragma once

#include "client/overlay/OverlayContent.h"
#include "framework/notification/ExNotifiable.h"

#include <string>
#include <vector>

class WorkstationViewer;

/// Keeps the viewer database's groups: every new viewer joins the groups of its kind, attached; a
/// window is shared by viewers of one modality only. Tells of what it changes. One for the
/// workstation. GUI thread only.
class ViewerLinks final : public ExNotifiable
{
public:
    void notified(const ExNotification &notification) override;
    void addNotifications() override;

    /// The viewers that a change on @p viewer is made to: itself first, then, while it is attached
    /// and this way of linking is on, those that are attached to its group.
    static std::vector<WorkstationViewer *> followers(
        const std::string &type, WorkstationViewer &viewer);
    /// Whether the viewer is attached to all groups that it is in.
    [[nodiscard]] static bool isAttached(const WorkstationViewer &viewer);
    [[nodiscard]] static bool isAttached(const std::string &type, const WorkstationViewer &viewer);
    /// Attaches or detaches a viewer, in all its groups or in one.
    static void setAttached(WorkstationViewer &viewer, bool attached);
    static void setAttached(const std::string &type, WorkstationViewer &viewer, bool attached);
    /// Switches a way of linking on or off.
    static void setEnabled(const std::string &type, bool enabled);
    /// What the viewer's link badge shows: none for a viewer that has nobody to be linked with.
    [[nodiscard]] static OverlayContent::Link badge(const WorkstationViewer &viewer);

private:
    static void join(const std::string &type, WorkstationViewer &viewer, bool attached);
    static void joinAll(WorkstationViewer &viewer);
    static void rejoinWindow(WorkstationViewer &viewer);
};
