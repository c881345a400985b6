#include "client/links/ViewerLinks.h"

#include "client/links/LinkType.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"

#include <algorithm>

namespace {

bool appliesTo(const LinkType &type, const WorkstationViewer &viewer)
{
    return viewer.viewerType() == static_cast<Ex::ViewerType>(WorkstationViewer::SliceType)
        ? type.ofSlices
        : type.ofVolumes;
}

QString modalityOf(const WorkstationViewer &viewer)
{
    return viewer.series() != nullptr ? viewer.series()->info().modality : QString();
}

/// Values of different modalities have nothing in common.
bool mayShare(
    const std::string &type, const WorkstationViewer &member, const WorkstationViewer &viewer)
{
    return type != ExViewerDB::WINDOWLEVEL_GROUP || modalityOf(member) == modalityOf(viewer);
}

/// A member of the group that the viewer may join, or null.
const WorkstationViewer *memberToJoin(const std::string &type, const WorkstationViewer &viewer)
{
    for (int i = 0; i < ExViewerDB::numGroups(type); ++i) {
        const ExBaseViewerGroup &viewers = ExViewerDB::group(type, i)->viewers();
        const auto *const member = static_cast<const WorkstationViewer *>(viewers[0]);
        if (member != &viewer && mayShare(type, *member, viewer)) {
            return member;
        }
    }
    return nullptr;
}

} // namespace

void ViewerLinks::addNotifications()
{
    ExNotifiables::getInstance().addNotifications(this, ExNotification::VIEWER_CREATED,
        ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::ABOUT_TO_DELETE_VIEWERS,
        ExNotification::NONE);
}

void ViewerLinks::notified(const ExNotification &notification)
{
    auto *const viewer = static_cast<WorkstationViewer *>(notification.viewer());
    if (viewer == nullptr) {
        return;
    }
    if (notification.type() == ExNotification::VIEWER_CREATED) {
        joinAll(*viewer);
    } else if (notification.type() == ExNotification::VIEWER_VOLUME_CHANGED) {
        rejoinWindow(*viewer);
    } else {
        ExViewerDB::clear(viewer);
    }
}

void ViewerLinks::join(const std::string &type, WorkstationViewer &viewer, bool attached)
{
    if (const WorkstationViewer *const member = memberToJoin(type, viewer)) {
        ExViewerDB::appendViewer(type, member, &viewer, attached);
    } else {
        ExViewerDB::createGroup(type, {&viewer}, attached);
    }
}

void ViewerLinks::joinAll(WorkstationViewer &viewer)
{
    for (const LinkType &type : LinkType::all()) {
        if (appliesTo(type, viewer)) {
            join(type.group, viewer, true);
            notify({ExNotification::VIEWER_ATTACHED_TO_GROUP, &viewer, nullptr,
                const_cast<char *>(type.group.c_str())});
        }
    }
}

void ViewerLinks::rejoinWindow(WorkstationViewer &viewer)
{
    const std::string &type = ExViewerDB::WINDOWLEVEL_GROUP;
    if (ExViewerDB::group(type, &viewer) == nullptr) {
        return;
    }
    const bool attached = isAttached(type, viewer);
    ExViewerDB::clearGroups(type, &viewer);
    join(type, viewer, attached);
}

std::vector<WorkstationViewer *> ViewerLinks::followers(
    const std::string &type, WorkstationViewer &viewer)
{
    std::vector<WorkstationViewer *> found{&viewer};
    const ExViewerDBGroup *const group = ExViewerDB::group(type, &viewer);
    if (group == nullptr || !ExViewerDB::groupEnabled(type) || !isAttached(type, viewer)) {
        return found;
    }
    for (ExBaseViewer *each : group->viewers()) {
        auto *const member = static_cast<WorkstationViewer *>(each);
        if (member != &viewer && isAttached(type, *member)) {
            found.push_back(member);
        }
    }
    return found;
}

bool ViewerLinks::isAttached(const std::string &type, const WorkstationViewer &viewer)
{
    return ExViewerDB::viewerAttributeAsBool(type, &viewer, ExViewerDB::ATT_ATTACHED);
}

bool ViewerLinks::isAttached(const WorkstationViewer &viewer)
{
    const auto &types = LinkType::all();
    return std::all_of(types.begin(), types.end(), [&viewer](const LinkType &type) {
        return ExViewerDB::group(type.group, &viewer) == nullptr || isAttached(type.group, viewer);
    });
}

void ViewerLinks::setAttached(const std::string &type, WorkstationViewer &viewer, bool attached)
{
    if (ExViewerDB::group(type, &viewer) == nullptr || isAttached(type, viewer) == attached) {
        return;
    }
    ExViewerDB::setViewerAttribute(
        type, &viewer, ExViewerDB::ATT_ATTACHED, attached ? "true" : "false");
    notify({attached ? ExNotification::VIEWER_ATTACHED_TO_GROUP
                     : ExNotification::VIEWER_DETACHED_FROM_GROUP,
        &viewer, nullptr, const_cast<char *>(type.c_str())});
}

void ViewerLinks::setAttached(WorkstationViewer &viewer, bool attached)
{
    for (const LinkType &type : LinkType::all()) {
        setAttached(type.group, viewer, attached);
    }
}

void ViewerLinks::setEnabled(const std::string &type, bool enabled)
{
    if (ExViewerDB::groupEnabled(type) == enabled) {
        return;
    }
    ExViewerDB::setGroupEnabled(type, enabled);
    notify({enabled ? ExNotification::VIEWER_GROUP_ENABLED : ExNotification::VIEWER_GROUP_DISABLED,
        nullptr, nullptr, const_cast<char *>(type.c_str())});
}

OverlayContent::Link ViewerLinks::badge(const WorkstationViewer &viewer)
{
    const auto &types = LinkType::all();
    const bool hasFellows
        = std::any_of(types.begin(), types.end(), [&viewer](const LinkType &type) {
              const ExViewerDBGroup *const group = ExViewerDB::group(type.group, &viewer);
              return group != nullptr && group->viewers().size() > 1
                  && ExViewerDB::groupEnabled(type.group);
          });
    if (!hasFellows) {
        return OverlayContent::Link::None;
    }
    return isAttached(viewer) ? OverlayContent::Link::Attached : OverlayContent::Link::Detached;
}
