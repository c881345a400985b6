#pragma once

#include "client/overlay/OverlayContent.h"
#include "framework/notification/ExNotifiable.h"

#include <set>
#include <string>
#include <vector>

class WorkstationViewer;

/// Keeps the viewer database's groups: every new viewer joins the groups of its kind, attached; a
/// window is shared by viewers of one modality only. The viewers of the group activeGroup follow
/// whichever other viewer was active last, not one another. Tells of what it changes. One for the
/// workstation. GUI thread only.
class ViewerLinks final : public ExNotifiable
{
public:
    /// The identifier of the group of those that follow the active viewer.
    static constexpr char activeGroup[] = "ACTIVE";

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
    /// Makes a group of its own of these viewers, each attached or not as it was; a viewer that was
    /// in no group is attached. No viewers make no group.
    static void group(const std::string &type, const std::vector<WorkstationViewer *> &viewers);
    /// Puts a viewer into the group of another one. Nothing when they share one, or that one has
    /// none.
    static void join(
        const std::string &type, WorkstationViewer &viewer, const WorkstationViewer &member);
    /// Takes a viewer out of its group.
    static void leave(const std::string &type, WorkstationViewer &viewer);
    /// Puts a viewer into the group of those that follow the active viewer.
    static void followActive(const std::string &type, WorkstationViewer &viewer);
    [[nodiscard]] static bool followsActive(
        const std::string &type, const WorkstationViewer &viewer);
    /// The display sets of the viewers that a viewer follows while it follows the active one; empty
    /// for no restriction.
    [[nodiscard]] static std::set<std::string> restriction(
        const std::string &type, const WorkstationViewer &viewer);
    static void setRestriction(const std::string &type, WorkstationViewer &viewer,
        const std::set<std::string> &displaySets);
    /// What the viewer's link badge shows: none for a viewer that has nobody to be linked with.
    [[nodiscard]] static OverlayContent::Link badge(const WorkstationViewer &viewer);

private:
    static void joinByKind(const std::string &type, WorkstationViewer &viewer, bool attached);
    static void joinAll(WorkstationViewer &viewer);
    static void rejoinWindow(WorkstationViewer &viewer);
};
