#include "client/links/LinkedActions.h"

#include "client/geometry/PlaneGeometry.h"
#include "client/links/ViewerLinks.h"
#include "client/viewers/SliceViewer.h"
#include "framework/viewers/ExViewerDB.h"

#include <algorithm>
#include <cmath>

namespace LinkedActions {

namespace {

/// Calls @p action for every other slice viewer with an image that follows @p viewer.
template <typename Action>
void forFollowers(const std::string &type, SliceViewer &viewer, Action action)
{
    for (WorkstationViewer *each : ViewerLinks::followers(type, viewer)) {
        if (each != &viewer && each->volume(0) != nullptr) {
            action(static_cast<SliceViewer &>(*each));
        }
    }
}

/// Of viewers that have no coordinates in common.
void scrollByDistance(SliceViewer &viewer, const SliceViewer &source, const McVec3d &shift)
{
    const double distance = shift.dot(source.stack().direction());
    const long planes = std::lround(distance / viewer.stack().step());
    const long least = distance > 0 ? 1 : -1;
    viewer.setSliceIndex(viewer.sliceIndex() + static_cast<int>(planes != 0 ? planes : least));
}

} // namespace

void scroll(SliceViewer &viewer, int planes)
{
    const McVec3d before = viewer.shownSlice().center();
    viewer.setSliceIndex(viewer.sliceIndex() + planes);
    const McVec3d after = viewer.shownSlice().center();
    if (after == before) {
        return;
    }
    forFollowers(ExViewerDB::TRANSLATION_GROUP, viewer, [&](SliceViewer &follower) {
        if (!PlaneGeometry::isParallel(follower.shownSlice(), viewer.shownSlice())) {
            return;
        }
        if (follower.series()->sharesFrame(*viewer.series())) {
            follower.scrollTo(after);
        } else {
            scrollByDistance(follower, viewer, after - before);
        }
    });
}

void zoom(SliceViewer &viewer, double factor)
{
    viewer.setZoom(viewer.zoom() * factor);
    forFollowers(ExViewerDB::ZOOM_GROUP, viewer,
        [factor](SliceViewer &follower) { follower.setZoom(follower.zoom() * factor); });
}

void pan(SliceViewer &viewer, const McVec3d &shift)
{
    viewer.pan(shift);
    forFollowers(
        ExViewerDB::CAMERA_GROUP, viewer, [&shift](SliceViewer &follower) { follower.pan(shift); });
}

void setWindow(SliceViewer &viewer, const KxVolume::Window &window)
{
    viewer.setWindow(window);
    forFollowers(ExViewerDB::WINDOWLEVEL_GROUP, viewer,
        [&viewer](SliceViewer &follower) { follower.setWindow(viewer.window()); });
}

void stepPhase(WorkstationViewer &viewer, int steps)
{
    const int count = viewer.numPhases();
    if (count < 2) {
        return;
    }
    const int phase = ((viewer.phase() + steps) % count + count) % count;
    for (WorkstationViewer *each : ViewerLinks::followers(ExViewerDB::TIMEPHASE_GROUP, viewer)) {
        each->setPhase(phase);
    }
}

void setInverted(SliceViewer &viewer, bool inverted)
{
    viewer.setInverted(inverted);
    forFollowers(ExViewerDB::WINDOWLEVEL_GROUP, viewer,
        [inverted](SliceViewer &follower) { follower.setInverted(inverted); });
}

void reset(SliceViewer &viewer)
{
    if (viewer.volume(0) == nullptr) {
        return;
    }
    viewer.setPlane(viewer.ownPlane());
    viewer.fit();
    forFollowers(ExViewerDB::ZOOM_GROUP, viewer, [](SliceViewer &follower) { follower.fit(); });
    setWindow(viewer, viewer.volume(0)->defaultWindow());
    setInverted(viewer, false);
    viewer.setFlipped(Qt::Horizontal, false);
    viewer.setFlipped(Qt::Vertical, false);
}

} // namespace LinkedActions
