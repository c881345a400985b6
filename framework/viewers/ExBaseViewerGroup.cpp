#include "framework/viewers/ExBaseViewerGroup.h"

#include "framework/viewers/ExBaseViewer.h"
#include "framework/viewers/ExViewerManager.h"
#include "platform/render/KxSlice.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

namespace {

constexpr std::array groupTypeNames{"ONE_VIEWER", "SAME_VIEWER_TYPE", "SAME_VOLUME",
    "SAME_IMAGESET", "SAME_IMAGESETS", "ALL_VIEWERS"};

constexpr int usualCapacity = 128;

template <typename Matches>
void appendManaged(ExBaseViewerGroup &group, Matches matches)
{
    // Without a manager there are no viewers.
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    const int count = manager == nullptr ? 0 : manager->numViewers();
    for (int i = 0; i < count; ++i) {
        ExBaseViewer *const viewer = manager->viewer(i);
        if (matches(*viewer)) {
            group.append(viewer);
        }
    }
}

bool areOrthogonal(const ExBaseViewer *a, const ExBaseViewer *b)
{
    constexpr double tolerance = 0.0001;
    const KxSlice *const sliceA = a == nullptr ? nullptr : a->slice(false);
    const KxSlice *const sliceB = b == nullptr ? nullptr : b->slice(false);
    return sliceA == nullptr || sliceB == nullptr
        || std::abs(sliceA->normal().dot(sliceB->normal())) <= tolerance;
}

} // namespace

ExBaseViewerGroup::ExBaseViewerGroup(
    const ExBaseViewer *reference, GroupType type, Ex::ViewerType viewerType)
{
    reserve(usualCapacity);
    const auto passes = [viewerType](const ExBaseViewer &viewer) {
        return viewerType == Ex::ANY_VIEWER_TYPE || viewer.viewerType() == viewerType;
    };
    switch (type) {
    case SAME_VOLUME: {
        const KxVolume *const wanted = reference == nullptr ? nullptr : reference->sourceVolume(0);
        appendManaged(*this, [&](const ExBaseViewer &viewer) {
            return passes(viewer) && (wanted == nullptr || viewer.sourceVolume(0) == wanted);
        });
        return;
    }
    case ALL_VIEWERS:
        appendManaged(*this, passes);
        return;
    default:
        break;
    }
    if (reference == nullptr) {
        return;
    }
    const auto sameImageSet = [reference](const ExBaseViewer &viewer, int index) {
        return viewer.imageSet(index) == reference->imageSet(index);
    };
    switch (type) {
    case SAME_VIEWER_TYPE:
        appendManaged(*this, [reference](const ExBaseViewer &viewer) {
            return viewer.viewerType() == reference->viewerType();
        });
        break;
    case SAME_IMAGESET:
        appendManaged(*this,
            [&](const ExBaseViewer &viewer) { return &viewer == reference && passes(viewer); });
        appendManaged(*this, [&](const ExBaseViewer &viewer) {
            return &viewer != reference && sameImageSet(viewer, 0) && passes(viewer);
        });
        break;
    case SAME_IMAGESETS:
        appendManaged(*this, [&](const ExBaseViewer &viewer) {
            return sameImageSet(viewer, 0) && sameImageSet(viewer, 1) && passes(viewer);
        });
        break;
    default:
        append(const_cast<ExBaseViewer *>(reference));
        break;
    }
}

ExBaseViewerGroup::GroupType ExBaseViewerGroup::String2GroupType(const char *name)
{
    const std::string_view wanted(name == nullptr ? "" : name);
    const auto *const found = std::find(groupTypeNames.begin(), groupTypeNames.end(), wanted);
    return found == groupTypeNames.end() ? ONE_VIEWER
                                         : static_cast<GroupType>(found - groupTypeNames.begin());
}

const char *ExBaseViewerGroup::GroupType2String(GroupType type)
{
    const bool isKnown = type >= SAME_VIEWER_TYPE && type <= ALL_VIEWERS;
    return groupTypeNames[static_cast<std::size_t>(isKnown ? type : ONE_VIEWER)];
}

bool ExBaseViewerGroup::isValid() const
{
    std::vector<const ExBaseViewer *> sorted(begin(), end());
    std::sort(sorted.begin(), sorted.end());
    return std::find(sorted.begin(), sorted.end(), nullptr) == sorted.end()
        && std::adjacent_find(sorted.begin(), sorted.end()) == sorted.end();
}

bool ExBaseViewerGroup::contains(const ExBaseViewer *viewer) const
{
    return std::find(begin(), end(), viewer) != end();
}

void ExBaseViewerGroup::intersect(const ExBaseViewerGroup &other)
{
    for (int i = size(); i-- > 0;) {
        if (!other.contains((*this)[i])) {
            remove(i);
        }
    }
}

void ExBaseViewerGroup::subtract(const ExBaseViewer *viewer)
{
    const int position = indexOf(const_cast<ExBaseViewer *>(viewer));
    if (position >= 0) {
        remove(position);
    }
}

void ExBaseViewerGroup::subtract(const ExBaseViewerGroup &other)
{
    ExBaseViewerGroup remaining = other;
    for (int i = size(); i-- > 0 && !remaining.isEmpty();) {
        const int position = remaining.indexOf((*this)[i]);
        if (position >= 0) {
            remaining.remove(position);
            remove(i);
        }
    }
}

void ExBaseViewerGroup::filter(
    const ExBaseViewer *reference, GroupType type, Ex::ViewerType viewerType)
{
    intersect(ExBaseViewerGroup(reference, type, viewerType));
}

void ExBaseViewerGroup::sortByDisplaySetID()
{
    sort([](const ExBaseViewer *a, const ExBaseViewer *b) {
        const int order = qstricmp(a->displaySetID().c_str(), b->displaySetID().c_str());
        return order != 0 ? order < 0 : a->objectId() < b->objectId();
    });
}

bool ExBaseViewerGroup::viewersAreOrthogonal() const
{
    const int considered = std::min(size(), 3);
    for (int i = 0; i < considered; ++i) {
        for (int j = i + 1; j < considered; ++j) {
            if (!areOrthogonal((*this)[i], (*this)[j])) {
                return false;
            }
        }
    }
    return true;
}

void ExBaseViewerGroup::viewersByVolume(std::map<KxVolume *, ExBaseViewerGroup> &groups) const
{
    groups.clear();
    for (ExBaseViewer *viewer : *this) {
        if (KxVolume *const volume = viewer == nullptr ? nullptr : viewer->volume(0)) {
            groups[volume].append(viewer);
        }
    }
}
