#include "client/session/LinksPart.h"

#include "client/app/NotificationWatch.h"
#include "client/app/Workstation.h"
#include "client/links/LinkType.h"
#include "client/viewers/WorkstationViewer.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

using Membership = SessionState::Links::Membership;

/// What a viewer that is in no group has in place of its name.
constexpr char noGroup[] = "";

/// Whether viewers of this kind are linked in this way.
bool canBeLinked(const std::string &type, const WorkstationViewer &viewer)
{
    const auto &all = LinkType::all();
    return std::any_of(all.begin(), all.end(),
        [&](const LinkType &each) { return each.group == type && each.appliesTo(viewer); });
}

/// Takes a viewer out of its group, has it follow the active one, puts it into the group of another
/// one or, without one, into a group of its own.
void regroup(const Membership &membership, WorkstationViewer &viewer, const ExBaseViewer *fellow)
{
    const std::string &type = membership.type;
    const bool wasAttached = ViewerLinks::isAttached(type, viewer);
    if (membership.group == noGroup) {
        ViewerLinks::leave(type, viewer);
    } else if (membership.group == ViewerLinks::activeGroup) {
        ViewerLinks::followActive(type, viewer);
    } else {
        ExViewerDB::clearGroups(type, &viewer);
        if (fellow != nullptr) {
            ExViewerDB::appendViewer(type, fellow, &viewer, wasAttached);
        } else {
            ExViewerDB::createGroup(type, {&viewer}, wasAttached);
        }
    }
    ViewerLinks::setAttached(type, viewer, membership.isAttached);
}

} // namespace

LinksPart::LinksPart(Workstation &workstation)
    : m_workstation(workstation)
    , m_watch(new NotificationWatch(
          {ExNotification::VIEWER_ATTACHED_TO_GROUP, ExNotification::VIEWER_DETACHED_FROM_GROUP,
              ExNotification::VIEWER_LAYOUT_CHANGED, ExNotification::ABOUT_TO_DELETE_VIEWERS},
          [this](const ExNotification & /*notification*/) {
              if (!m_isLinking) {
                  m_links = {};
              }
          }))
{ }

LinksPart::~LinksPart() = default;

QString LinksPart::displayName() const
{
    return tr("Links");
}

const char *LinksPart::persistentName() const
{
    return SessionState::Links::name;
}

void LinksPart::serialize(ExSessionData &session)
{
    SessionState::Links links;
    const std::vector<WorkstationViewer *> viewers = m_workstation.viewers();
    for (const LinkType &type : LinkType::all()) {
        links.enabled.emplace(type.group, ExViewerDB::groupEnabled(type.group));
        // Numbered as they come, but for the one with a name: the database counts on and on.
        std::map<const ExViewerDBGroup *, std::string> names;
        for (std::size_t i = 0; i < viewers.size(); ++i) {
            if (const auto *const group = ExViewerDB::group(type.group, viewers[i])) {
                const bool isActive = group->groupId() == ViewerLinks::activeGroup;
                const std::string number = std::to_string(names.size());
                const std::string &name
                    = names.emplace(group, isActive ? group->groupId() : number).first->second;
                links.memberships.push_back({type.group, name, static_cast<int>(i),
                    ViewerLinks::isAttached(type.group, *viewers[i])});
            } else if (type.appliesTo(*viewers[i])) {
                links.memberships.push_back({type.group, noGroup, static_cast<int>(i), false});
            }
        }
    }
    session.setBlock(QString::fromLatin1(persistentName()), links.toBytes());
}

void LinksPart::deserialize(ExSessionData &session)
{
    m_links = SessionState::Links::fromBytes(session.block(QString::fromLatin1(persistentName())))
                  .value_or(SessionState::Links());
    for (const LinkType &type : LinkType::all()) {
        if (const auto found = m_links.enabled.find(type.group); found != m_links.enabled.end()) {
            ViewerLinks::setEnabled(type.group, found->second);
        }
    }
    linkAgain();
}

void LinksPart::linkAgain()
{
    const QScopedValueRollback linking(m_isLinking, true);
    const std::vector<WorkstationViewer *> viewers = m_workstation.viewers();
    std::map<std::pair<std::string, std::string>, const ExBaseViewer *> fellows;
    for (const Membership &membership : m_links.memberships) {
        const auto place = static_cast<std::size_t>(membership.viewer);
        if (membership.viewer < 0 || place >= viewers.size()
            || !canBeLinked(membership.type, *viewers[place])) {
            continue;
        }
        const ExBaseViewer *&fellow = fellows[{membership.type, membership.group}];
        regroup(membership, *viewers[place], fellow);
        fellow = fellow == nullptr ? viewers[place] : fellow;
        viewers[place]->updateOverlay();
    }
}
