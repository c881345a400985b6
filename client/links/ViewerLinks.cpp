#include "client/links/ViewerLinks.h"

#include "client/links/LinkType.h"
#include "client/viewers/WorkstationViewer.h"
#include "client/viewers/WorkstationViewerManager.h"
#include "framework/notification/ExNotifiables.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"

#include <algorithm>
#include <iterator>
#include <sstream>

namespace {

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

/// Whether there are others in the viewer's group, and it may share with all of them.
bool fitsItsGroup(const std::string &type, const WorkstationViewer &viewer)
{
    const ExBaseViewerGroup &members = ExViewerDB::group(type, &viewer)->viewers();
    return members.size() > 1
        && std::all_of(members.begin(), members.end(), [&](const ExBaseViewer *member) {
               return mayShare(type, static_cast<const WorkstationViewer &>(*member), viewer);
           });
}

/// A member of the group that the viewer may join, or null.
const WorkstationViewer *memberToJoin(const std::string &type, const WorkstationViewer &viewer)
{
    for (int i = 0; i < ExViewerDB::numGroups(type); ++i) {
        const ExBaseViewerGroup &viewers = ExViewerDB::group(type, i)->viewers();
        const auto *const member = static_cast<const WorkstationViewer *>(viewers[0]);
        const bool isFree = ExViewerDB::group(type, i)->groupId() != ViewerLinks::activeGroup;
        if (isFree && member != &viewer && mayShare(type, *member, viewer)) {
            return member;
        }
    }
    return nullptr;
}

void tellAttached(const std::string &type, WorkstationViewer &viewer, bool attached)
{
    ExNotifiable::notify({attached ? ExNotification::VIEWER_ATTACHED_TO_GROUP
                                   : ExNotification::VIEWER_DETACHED_FROM_GROUP,
        &viewer, nullptr, const_cast<char *>(type.c_str())});
}

/// Out of its group, for another one. @return whether it is to be attached to that.
bool takeOut(const std::string &type, const WorkstationViewer &viewer)
{
    const bool attached
        = ExViewerDB::group(type, &viewer) == nullptr || ViewerLinks::isAttached(type, viewer);
    ExViewerDB::clearGroups(type, &viewer);
    return attached;
}

/// Who follows whom among those that follow the active viewer.
void renewLastActive(const std::string &type)
{
    ExViewerDB::resetLastActiveViewer(type);
    if (WorkstationViewer *const active = WorkstationViewerManager::active()) {
        ExViewerDB::setLastActiveViewer(type, active);
    }
}

/// Adds what follows the viewer because it was the active one last.
void addActiveFollowers(const std::string &type, const WorkstationViewer &viewer,
    std::vector<WorkstationViewer *> &found)
{
    const ExViewerDBGroup *const group = ExViewerDB::group(type, ViewerLinks::activeGroup);
    if (group == nullptr) {
        return;
    }
    for (ExBaseViewer *each : group->viewers()) {
        auto *const member = static_cast<WorkstationViewer *>(each);
        if (ExViewerDB::lastActiveViewer(type, member) == &viewer
            && ViewerLinks::isAttached(type, *member) && mayShare(type, *member, viewer)) {
            found.push_back(member);
        }
    }
}

} // namespace

void ViewerLinks::addNotifications()
{
    ExNotifiables::getInstance().addNotifications(this, ExNotification::VIEWER_CREATED,
        ExNotification::VIEWER_VOLUME_CHANGED, ExNotification::ABOUT_TO_DELETE_VIEWERS,
        ExNotification::ACTIVE_VIEWER_CHANGED, ExNotification::NONE);
}

void ViewerLinks::notified(const ExNotification &notification)
{
    auto *const viewer = static_cast<WorkstationViewer *>(notification.viewer());
    if (viewer == nullptr) {
        return;
    }
    switch (notification.type()) {
    case ExNotification::VIEWER_CREATED:
        joinAll(*viewer);
        break;
    case ExNotification::VIEWER_VOLUME_CHANGED:
        rejoinWindow(*viewer);
        break;
    case ExNotification::ACTIVE_VIEWER_CHANGED:
        for (const LinkType &type : LinkType::all()) {
            ExViewerDB::setLastActiveViewer(type.group, viewer);
        }
        break;
    default:
        ExViewerDB::clear(viewer);
    }
}

void ViewerLinks::joinByKind(const std::string &type, WorkstationViewer &viewer, bool attached)
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
        if (type.appliesTo(viewer)) {
            joinByKind(type.group, viewer, true);
            tellAttached(type.group, viewer, true);
        }
    }
}

void ViewerLinks::rejoinWindow(WorkstationViewer &viewer)
{
    const std::string &type = ExViewerDB::WINDOWLEVEL_GROUP;
    if (ExViewerDB::group(type, &viewer) == nullptr || followsActive(type, viewer)
        || fitsItsGroup(type, viewer)) {
        return;
    }
    joinByKind(type, viewer, takeOut(type, viewer));
}

std::vector<WorkstationViewer *> ViewerLinks::followers(
    const std::string &type, WorkstationViewer &viewer)
{
    std::vector<WorkstationViewer *> found{&viewer};
    const ExViewerDBGroup *const group = ExViewerDB::group(type, &viewer);
    if (!ExViewerDB::groupEnabled(type) || followsActive(type, viewer)) {
        return found;
    }
    addActiveFollowers(type, viewer, found);
    if (group == nullptr || !isAttached(type, viewer)) {
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
    tellAttached(type, viewer, attached);
}

void ViewerLinks::group(const std::string &type, const std::vector<WorkstationViewer *> &viewers)
{
    const WorkstationViewer *first = nullptr;
    for (WorkstationViewer *viewer : viewers) {
        const bool attached = takeOut(type, *viewer);
        if (first == nullptr) {
            ExViewerDB::createGroup(type, {viewer}, attached);
            first = viewer;
        } else {
            ExViewerDB::appendViewer(type, first, viewer, attached);
        }
        tellAttached(type, *viewer, attached);
    }
}

void ViewerLinks::join(
    const std::string &type, WorkstationViewer &viewer, const WorkstationViewer &member)
{
    if (ExViewerDB::group(type, &member) == nullptr
        || ExViewerDB::isSameGroup(type, &viewer, &member)) {
        return;
    }
    const bool attached = takeOut(type, viewer);
    ExViewerDB::appendViewer(type, &member, &viewer, attached);
    renewLastActive(type);
    tellAttached(type, viewer, attached);
}

void ViewerLinks::leave(const std::string &type, WorkstationViewer &viewer)
{
    if (ExViewerDB::group(type, &viewer) != nullptr) {
        ExViewerDB::clearGroups(type, &viewer);
        tellAttached(type, viewer, false);
    }
}

void ViewerLinks::followActive(const std::string &type, WorkstationViewer &viewer)
{
    if (followsActive(type, viewer)) {
        return;
    }
    if (const ExViewerDBGroup *const present = ExViewerDB::group(type, activeGroup)) {
        join(type, viewer, static_cast<const WorkstationViewer &>(*present->viewers()[0]));
        return;
    }
    const bool attached = takeOut(type, viewer);
    ExViewerDB::createGroup(type, {&viewer}, attached);
    ExViewerDB::setGroupId(type, &viewer, activeGroup);
    renewLastActive(type);
    tellAttached(type, viewer, attached);
}

bool ViewerLinks::followsActive(const std::string &type, const WorkstationViewer &viewer)
{
    return ExViewerDB::groupId(type, &viewer) == activeGroup;
}

std::set<std::string> ViewerLinks::restriction(
    const std::string &type, const WorkstationViewer &viewer)
{
    std::istringstream words(
        ExViewerDB::viewerAttribute(type, &viewer, ExViewerDB::ATT_RESTRICT_TO));
    return {std::istream_iterator<std::string>(words), {}};
}

void ViewerLinks::setRestriction(
    const std::string &type, WorkstationViewer &viewer, const std::set<std::string> &displaySets)
{
    if (ExViewerDB::group(type, &viewer) == nullptr || restriction(type, viewer) == displaySets) {
        return;
    }
    std::string value;
    for (const std::string &each : displaySets) {
        value += (value.empty() ? "" : " ") + each;
    }
    ExViewerDB::setViewerAttribute(type, &viewer, ExViewerDB::ATT_RESTRICT_TO, value);
    renewLastActive(type);
    tellAttached(type, viewer, isAttached(type, viewer));
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
