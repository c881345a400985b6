#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "platform/util/McDArray.h"

#include <string>
#include <utility>

class ExBaseViewer;
class ExViewerDBGroup;

/// Which viewers are linked, for each kind of linking: a type, named by any string, has groups of
/// viewers, and a group keeps text attributes for each of its viewers. Tools ask it which viewers
/// an interaction must also change. It posts no notifications: who changes a link tells of it. All
/// data live as long as the process; a type exists from the first time that any operation names it.
/// Observes viewers, never owns them; clear() a viewer before it goes. That takes it out of the
/// group that is found by it: one that was put into a second group of a type without being cleared
/// stays listed in the first. GUI thread only. Unknown viewers give null groups, "-1" as
/// identifier, empty values and false.
class MOVARA_FRAMEWORK_EXPORT ExViewerDB
{
public:
    static const std::string ROTATION_GROUP;
    static const std::string TRANSLATION_GROUP;
    static const std::string ZOOM_GROUP;
    static const std::string CAMERA_GROUP;
    static const std::string DATA_GROUP;
    static const std::string WINDOWLEVEL_GROUP;
    static const std::string TILE_GROUP;
    static const std::string TIMEPHASE_GROUP;

    /// Attribute: "true" while the viewer follows its group's linking, "false" while it is
    /// detached.
    static const std::string ATT_ATTACHED;
    /// Attribute: display-set identifiers, separated by blanks, to which setLastActiveViewer()
    /// restricts a follower.
    static const std::string ATT_RESTRICT_TO;

    using AttributeList = McDArray<std::pair<std::string, std::string>>;

    /// Makes the groups of a type; clients register their own to make groups of derived classes.
    class MOVARA_FRAMEWORK_EXPORT GroupFactory
    {
    public:
        GroupFactory() = default;
        GroupFactory(const GroupFactory &) = delete;
        GroupFactory &operator=(const GroupFactory &) = delete;
        virtual ~GroupFactory();
        /// A new group of this type; the caller owns it.
        [[nodiscard]] virtual ExViewerDBGroup *create(const std::string &type) const = 0;
    };

    ExViewerDB() = delete;

    /// Number of types that exist.
    static int numTypes();
    /// The i-th type in name order; empty when out of range.
    static std::string type(int i);
    /// Sets what makes the groups of a type from now on. The database takes ownership and frees the
    /// previous factory. Null is ignored.
    static void registerGroupType(const std::string &type, GroupFactory *factory);

    /// Makes a group of these viewers, with the next free number as identifier. A viewer's previous
    /// group keeps listing it, but look-ups by viewer now find the new one; clearGroups() the
    /// viewer first to move it.
    /// @param attached whether the viewers follow the group's linking.
    static const ExViewerDBGroup *createGroup(
        const std::string &type, const McDArray<ExBaseViewer *> &viewers, bool attached);
    /// Adds a viewer to the group of a member, unless it is in it, and sets whether it is attached.
    /// Nothing when the member has no group.
    static void appendViewer(const std::string &type, const ExBaseViewer *member,
        const ExBaseViewer *viewer, bool attached);

    static int numGroups(const std::string &type);
    /// The i-th group in order of creation; null when out of range.
    static ExViewerDBGroup *group(const std::string &type, int i);
    static ExViewerDBGroup *group(const std::string &type, const ExBaseViewer *viewer);
    /// The first group with this identifier.
    static ExViewerDBGroup *group(const std::string &type, const std::string &id);
    static std::string groupId(const std::string &type, const ExBaseViewer *viewer);
    static void setGroupId(
        const std::string &type, const ExBaseViewer *viewer, const std::string &id);
    /// Whether both viewers have a group and it is the same one.
    static bool isSameGroup(const std::string &type, const ExBaseViewer *a, const ExBaseViewer *b);

    static std::string viewerAttribute(
        const std::string &type, const ExBaseViewer *viewer, const std::string &name);
    static bool viewerAttributeAsBool(
        const std::string &type, const ExBaseViewer *viewer, const std::string &name);
    static void setViewerAttribute(const std::string &type, const ExBaseViewer *viewer,
        const std::string &name, const std::string &value);
    /// Clears the list, then appends name and value of every attribute of the viewer's group, in
    /// name order.
    static void viewerAttributeList(
        const std::string &type, const ExBaseViewer *viewer, AttributeList &list);
    static void setViewerAttributeList(
        const std::string &type, const ExBaseViewer *viewer, const AttributeList &list);
    /// Whether the viewer has a group and every attribute named in the list reads as true; the
    /// values in it do not count.
    static bool checkViewerAttributeList(
        const std::string &type, const ExBaseViewer *viewer, const AttributeList &list);

    /// Whether this kind of linking is on; what off means is up to those who ask. On at first.
    static void setGroupEnabled(const std::string &type, bool enabled);
    static bool groupEnabled(const std::string &type);

    /// A viewer has become active: the members of the groups with the identifier "ACTIVE" follow it
    /// from now on, unless it is in such a group itself, or a member is restricted to other display
    /// sets. Null is followed by all.
    static void setLastActiveViewer(const std::string &type, ExBaseViewer *viewer);
    /// The viewer that a follower follows, or null.
    static ExBaseViewer *lastActiveViewer(const std::string &type, const ExBaseViewer *follower);
    static void resetLastActiveViewer(const std::string &type);

    /// Takes a viewer out of its group, which goes with its last viewer; null removes all groups of
    /// the type.
    static void clearGroups(const std::string &type, const ExBaseViewer *viewer);
    /// The same for all types.
    static void clear(const ExBaseViewer *viewer);
};
