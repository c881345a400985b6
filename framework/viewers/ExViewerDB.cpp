#include "framework/viewers/ExViewerDB.h"

#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "platform/util/McStringTokenizer.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <map>
#include <memory>
#include <utility>

const std::string ExViewerDB::ROTATION_GROUP = "RotationGroup";
const std::string ExViewerDB::TRANSLATION_GROUP = "TranslationGroup";
const std::string ExViewerDB::ZOOM_GROUP = "ZoomGroup";
const std::string ExViewerDB::CAMERA_GROUP = "CameraGroup";
const std::string ExViewerDB::DATA_GROUP = "DataGroup";
const std::string ExViewerDB::WINDOWLEVEL_GROUP = "WindowLevelGroup";
const std::string ExViewerDB::TILE_GROUP = "TileGroup";
const std::string ExViewerDB::TIMEPHASE_GROUP = "TimePhaseGroup";
const std::string ExViewerDB::ATT_ATTACHED = "Attached";
const std::string ExViewerDB::ATT_RESTRICT_TO = "RestrictTo";

namespace {

const std::string activeGroupId = "ACTIVE";
const std::string noGroupId = "-1";

struct TypeEntry
{
    McDArray<ExViewerDBGroup *> groups;
    std::map<const ExBaseViewer *, int> groupOfViewer;
    bool enabled = true;
    std::unique_ptr<ExViewerDB::GroupFactory> factory
        = std::make_unique<ExViewerDBGroup::Factory>();
    std::map<const ExBaseViewer *, ExBaseViewer *> lastActive;
};

/// Never destroyed: viewers may be taken out while the process ends.
std::map<std::string, TypeEntry> &types()
{
    static auto *const entries = new std::map<std::string, TypeEntry>;
    return *entries;
}

TypeEntry &entryOf(const std::string &type)
{
    return types()[type];
}

std::string toString(bool value)
{
    return value ? "true" : "false";
}

/// The number that an identifier spells; 0 when it is none.
int numberOf(const std::string &id)
{
    int number = 0;
    std::from_chars(id.data(), id.data() + id.size(), number);
    return number;
}

std::string nextGroupId(const TypeEntry &entry)
{
    int largest = 0;
    for (const ExViewerDBGroup *group : entry.groups) {
        largest = std::max(largest, numberOf(group->groupId()));
    }
    return std::to_string(static_cast<long long>(largest) + 1);
}

bool isNamedIn(const std::string &list, const std::string &id)
{
    McStringTokenizer ids(list, " ");
    while (ids.hasMoreTokens()) {
        if (ids.nextToken() == id) {
            return true;
        }
    }
    return false;
}

bool mayFollow(
    const ExViewerDBGroup &group, const ExBaseViewer *follower, const ExBaseViewer *viewer)
{
    const std::string restriction = group.viewerAttribute(follower, ExViewerDB::ATT_RESTRICT_TO);
    return viewer == nullptr || !McStringTokenizer(restriction, " ").hasMoreTokens()
        || isNamedIn(restriction, viewer->displaySetID());
}

void clearType(TypeEntry &entry)
{
    for (const ExViewerDBGroup *group : entry.groups) {
        delete group;
    }
    entry.groups.clear();
    entry.groupOfViewer.clear();
    entry.lastActive.clear();
}

void removeGroup(TypeEntry &entry, int position)
{
    delete entry.groups[position];
    entry.groups.remove(position);
    for (auto &[viewer, index] : entry.groupOfViewer) {
        index -= index > position ? 1 : 0;
    }
}

} // namespace

ExViewerDB::GroupFactory::~GroupFactory() = default;

int ExViewerDB::numTypes()
{
    return static_cast<int>(types().size());
}

std::string ExViewerDB::type(int i)
{
    return i >= 0 && i < numTypes() ? std::next(types().begin(), i)->first : std::string();
}

void ExViewerDB::registerGroupType(const std::string &type, GroupFactory *factory)
{
    TypeEntry &entry = entryOf(type);
    if (factory != nullptr && factory != entry.factory.get()) {
        entry.factory.reset(factory);
    }
}

const ExViewerDBGroup *ExViewerDB::createGroup(
    const std::string &type, const McDArray<ExBaseViewer *> &viewers, bool attached)
{
    TypeEntry &entry = entryOf(type);
    ExViewerDBGroup *const group = entry.factory->create(type);
    if (group == nullptr) {
        return nullptr;
    }
    const int position = entry.groups.append(group);
    group->m_viewers.append(viewers);
    group->setGroupId(nextGroupId(entry)); // A factory may have given it one, which counts too.
    for (const ExBaseViewer *viewer : viewers) {
        entry.groupOfViewer[viewer] = position;
        group->setViewerAttribute(viewer, ATT_ATTACHED, toString(attached));
    }
    return group;
}

void ExViewerDB::appendViewer(
    const std::string &type, const ExBaseViewer *member, const ExBaseViewer *viewer, bool attached)
{
    ExViewerDBGroup *const target = group(type, member);
    if (target == nullptr) {
        return;
    }
    if (!target->m_viewers.contains(viewer)) {
        target->m_viewers.append(const_cast<ExBaseViewer *>(viewer));
        TypeEntry &entry = entryOf(type);
        entry.groupOfViewer[viewer] = entry.groups.indexOf(target);
    }
    setViewerAttribute(type, viewer, ATT_ATTACHED, toString(attached));
}

int ExViewerDB::numGroups(const std::string &type)
{
    return entryOf(type).groups.size();
}

ExViewerDBGroup *ExViewerDB::group(const std::string &type, int i)
{
    const TypeEntry &entry = entryOf(type);
    return i >= 0 && i < entry.groups.size() ? entry.groups[i] : nullptr;
}

ExViewerDBGroup *ExViewerDB::group(const std::string &type, const ExBaseViewer *viewer)
{
    const TypeEntry &entry = entryOf(type);
    const auto found = entry.groupOfViewer.find(viewer);
    return found == entry.groupOfViewer.end() ? nullptr : entry.groups[found->second];
}

ExViewerDBGroup *ExViewerDB::group(const std::string &type, const std::string &id)
{
    const TypeEntry &entry = entryOf(type);
    const auto found = std::find_if(entry.groups.begin(), entry.groups.end(),
        [&id](const ExViewerDBGroup *group) { return group->groupId() == id; });
    return found == entry.groups.end() ? nullptr : *found;
}

std::string ExViewerDB::groupId(const std::string &type, const ExBaseViewer *viewer)
{
    const ExViewerDBGroup *const found = group(type, viewer);
    return found == nullptr ? noGroupId : found->groupId();
}

void ExViewerDB::setGroupId(
    const std::string &type, const ExBaseViewer *viewer, const std::string &id)
{
    if (ExViewerDBGroup *const found = group(type, viewer)) {
        found->setGroupId(id);
    }
}

bool ExViewerDB::isSameGroup(const std::string &type, const ExBaseViewer *a, const ExBaseViewer *b)
{
    const ExViewerDBGroup *const groupOfA = group(type, a);
    return groupOfA != nullptr && groupOfA == group(type, b);
}

std::string ExViewerDB::viewerAttribute(
    const std::string &type, const ExBaseViewer *viewer, const std::string &name)
{
    const ExViewerDBGroup *const found = group(type, viewer);
    return found == nullptr ? std::string() : found->viewerAttribute(viewer, name);
}

bool ExViewerDB::viewerAttributeAsBool(
    const std::string &type, const ExBaseViewer *viewer, const std::string &name)
{
    const ExViewerDBGroup *const found = group(type, viewer);
    return found != nullptr && found->viewerAttributeAsBool(viewer, name);
}

void ExViewerDB::setViewerAttribute(const std::string &type, const ExBaseViewer *viewer,
    const std::string &name, const std::string &value)
{
    setViewerAttributeList(type, viewer, {{name, value}});
}

void ExViewerDB::viewerAttributeList(
    const std::string &type, const ExBaseViewer *viewer, AttributeList &list)
{
    list.clear();
    const ExViewerDBGroup *const found = group(type, viewer);
    const int count = found == nullptr ? 0 : found->numAttributes();
    for (int i = 0; i < count; ++i) {
        const std::string name = found->attribute(i);
        if (!name.empty()) {
            list.append({name, found->viewerAttribute(viewer, name)});
        }
    }
}

void ExViewerDB::setViewerAttributeList(
    const std::string &type, const ExBaseViewer *viewer, const AttributeList &list)
{
    ExViewerDBGroup *const found = group(type, viewer);
    if (found == nullptr) {
        return;
    }
    for (const auto &[name, value] : list) {
        found->setViewerAttribute(viewer, name, value);
    }
}

bool ExViewerDB::checkViewerAttributeList(
    const std::string &type, const ExBaseViewer *viewer, const AttributeList &list)
{
    const ExViewerDBGroup *const found = group(type, viewer);
    return found != nullptr && std::all_of(list.begin(), list.end(), [&](const auto &attribute) {
        return found->viewerAttributeAsBool(viewer, attribute.first);
    });
}

void ExViewerDB::setGroupEnabled(const std::string &type, bool enabled)
{
    entryOf(type).enabled = enabled;
}

bool ExViewerDB::groupEnabled(const std::string &type)
{
    return entryOf(type).enabled;
}

void ExViewerDB::setLastActiveViewer(const std::string &type, ExBaseViewer *viewer)
{
    TypeEntry &entry = entryOf(type);
    for (const ExViewerDBGroup *group : entry.groups) {
        if (group->groupId() != activeGroupId) {
            continue;
        }
        if (group->viewers().contains(viewer)) {
            return; // A follower follows neither itself nor its fellows.
        }
        for (const ExBaseViewer *follower : group->viewers()) {
            if (mayFollow(*group, follower, viewer)) {
                entry.lastActive[follower] = viewer;
            }
        }
    }
}

ExBaseViewer *ExViewerDB::lastActiveViewer(const std::string &type, const ExBaseViewer *follower)
{
    const TypeEntry &entry = entryOf(type);
    const auto found = entry.lastActive.find(follower);
    return found == entry.lastActive.end() ? nullptr : found->second;
}

void ExViewerDB::resetLastActiveViewer(const std::string &type)
{
    entryOf(type).lastActive.clear();
}

void ExViewerDB::clearGroups(const std::string &type, const ExBaseViewer *viewer)
{
    TypeEntry &entry = entryOf(type);
    if (viewer == nullptr) {
        clearType(entry);
        return;
    }
    std::erase_if(entry.lastActive,
        [viewer](const auto &pair) { return pair.first == viewer || pair.second == viewer; });
    const auto found = entry.groupOfViewer.find(viewer);
    if (found == entry.groupOfViewer.end()) {
        return;
    }
    const int position = found->second;
    entry.groupOfViewer.erase(found);
    ExViewerDBGroup &group = *entry.groups[position];
    group.removeViewer(viewer);
    if (group.viewers().isEmpty()) {
        removeGroup(entry, position);
    }
}

void ExViewerDB::clear(const ExBaseViewer *viewer)
{
    for (const auto &[type, entry] : types()) {
        clearGroups(type, viewer);
    }
}
