#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/viewers/Ex.h"
#include "platform/util/McDArray.h"

#include <map>

class ExBaseViewer;
class KxVolume;

/// Ordered list of viewers with set operations; observes the viewers, never owns them.
/// GUI thread only. Null and repeated entries are allowed but make the group not valid.
class MOVARA_FRAMEWORK_EXPORT ExBaseViewerGroup : public McDArray<ExBaseViewer *>
{
public:
    /// How the viewers of a group are related to a reference viewer.
    enum GroupType : int {
        ONE_VIEWER = 0, ///< the reference viewer alone
        SAME_VIEWER_TYPE = 1,
        SAME_VOLUME = 2,
        SAME_IMAGESET = 3, ///< the same primary image set
        SAME_IMAGESETS = 4, ///< the same primary and the same secondary image set
        ALL_VIEWERS = 5
    };

    ExBaseViewerGroup() = default;
    /// The viewers of the viewer manager that stand in relation @p type to @p reference, in manager
    /// order.
    /// @param reference may be null. Then SAME_VOLUME and ALL_VIEWERS give every viewer that passes
    /// the filter, all other
    ///        relations none. SAME_IMAGESET gives the reference first, SAME_IMAGESETS where it
    ///        stands; neither gives it when the manager does not hold it.
    /// @param viewerType only viewers of this type; Ex::ANY_VIEWER_TYPE for no restriction.
    /// ONE_VIEWER and SAME_VIEWER_TYPE
    ///        do not look at it.
    ExBaseViewerGroup(const ExBaseViewer *reference, GroupType type, Ex::ViewerType viewerType);

    /// The relation with this name (compared with case); ONE_VIEWER for an unknown or null one.
    static GroupType String2GroupType(const char *name);
    /// The relation's name; that of ONE_VIEWER for a value out of range.
    static const char *GroupType2String(GroupType type);

    /// Whether there is no null and no repeated entry.
    [[nodiscard]] bool isValid() const;
    [[nodiscard]] bool contains(const ExBaseViewer *viewer) const;
    /// Removes every entry that is not in @p other; the order of the rest is kept.
    void intersect(const ExBaseViewerGroup &other);
    /// Removes the first occurrence of a viewer.
    void subtract(const ExBaseViewer *viewer);
    /// Removes as many occurrences of each viewer as @p other has, the later ones first.
    void subtract(const ExBaseViewerGroup &other);
    /// Keeps only the viewers that the gathering constructor gives for the same arguments.
    void filter(const ExBaseViewer *reference, GroupType type, Ex::ViewerType viewerType);
    /// Sorts by display-set identifiers, ignoring the case of ASCII letters; equal ones by object
    /// identifier. The group must be valid.
    void sortByDisplaySetID();
    /// Whether no two of the first three viewers show slices that are not at a right angle; viewers
    /// without a slice do not count. Later viewers are never looked at: three planes are all that
    /// space has.
    [[nodiscard]] bool viewersAreOrthogonal() const;
    /// Sorts the viewers into groups by their primary volume; viewers without a volume are left
    /// out.
    /// @param groups is cleared first.
    void viewersByVolume(std::map<KxVolume *, ExBaseViewerGroup> &groups) const;
};
