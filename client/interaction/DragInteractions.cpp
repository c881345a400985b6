#include "client/interaction/DragInteractions.h"

#include "client/links/LinkedActions.h"
#include "client/links/ViewerLinks.h"
#include "client/viewers/SliceViewer.h"
#include "client/viewers/VolumeViewer.h"
#include "framework/viewers/ExViewerDB.h"

#include <QPoint>

#include <algorithm>
#include <cmath>

namespace {

/// So many pixels of a drag change a window by its own width, enlarge by Euler's number.
constexpr double windowPixels = 300;
constexpr double zoomPixels = 200;
constexpr double obliqueRadiansPerPixel = 0.005;

/// Values for each pixel: a wide window is changed in larger steps than a narrow one.
double windowStep(const KxVolume::Window &window)
{
    return std::max(window.width, 1.0) / windowPixels;
}

} // namespace

WindowInteraction::WindowInteraction(Qt::KeyboardModifiers modifiers)
    : DragInteraction(Qt::LeftButton, modifiers)
    , m_isForVolumes(modifiers != Qt::NoModifier)
{ }

bool WindowInteraction::drag(const ExEvent &event, const QPoint &moved)
{
    if (m_isForVolumes) {
        VolumeViewer *const viewer = volumeViewerOf(event);
        return viewer != nullptr && dragVolume(*viewer, moved);
    }
    SliceViewer *const viewer = sliceViewerOf(event);
    if (viewer == nullptr) {
        return false;
    }
    const double step = windowStep(viewer->window());
    LinkedActions::setWindow(*viewer,
        {viewer->window().center + moved.y() * step, viewer->window().width + moved.x() * step});
    return true;
}

bool WindowInteraction::dragVolume(VolumeViewer &viewer, const QPoint &moved) const
{
    const double step = windowStep(viewer.window());
    viewer.setWindow(
        {viewer.window().center + moved.y() * step, viewer.window().width + moved.x() * step});
    return true;
}

ZoomInteraction::ZoomInteraction()
    : DragInteraction(Qt::RightButton, Qt::NoModifier)
{ }

bool ZoomInteraction::drag(const ExEvent &event, const QPoint &moved)
{
    const double factor = std::exp(-moved.y() / zoomPixels);
    if (SliceViewer *const slice = sliceViewerOf(event)) {
        LinkedActions::zoom(*slice, factor);
        return true;
    }
    if (VolumeViewer *const volume = volumeViewerOf(event)) {
        volume->setZoom(volume->zoom() * factor);
        return true;
    }
    return false;
}

PanInteraction::PanInteraction(Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
    : DragInteraction(button, modifiers)
{ }

bool PanInteraction::drag(const ExEvent &event, const QPoint &moved)
{
    SliceViewer *const viewer = sliceViewerOf(event);
    if (viewer == nullptr) {
        return false;
    }
    const KxSlice &slice = viewer->shownSlice();
    const McVec3d shift = slice.right() * moved.x() + slice.down() * moved.y();
    LinkedActions::pan(*viewer, shift * (-1 / viewer->zoom()));
    return true;
}

RotateInteraction::RotateInteraction()
    : DragInteraction(Qt::LeftButton, Qt::NoModifier)
{ }

bool RotateInteraction::drag(const ExEvent &event, const QPoint &moved)
{
    VolumeViewer *const viewer = volumeViewerOf(event);
    if (viewer == nullptr) {
        return false;
    }
    viewer->rotate(moved.x(), moved.y());
    for (WorkstationViewer *each : ViewerLinks::followers(ExViewerDB::ROTATION_GROUP, *viewer)) {
        static_cast<VolumeViewer *>(each)->setView(viewer->viewDirection(), viewer->up());
    }
    return true;
}

ObliqueInteraction::ObliqueInteraction()
    : DragInteraction(Qt::LeftButton, Qt::ControlModifier)
{ }

bool ObliqueInteraction::drag(const ExEvent &event, const QPoint &moved)
{
    SliceViewer *const viewer = sliceViewerOf(event);
    if (viewer == nullptr) {
        return false;
    }
    viewer->rotate(viewer->shownSlice().down(), -moved.x() * obliqueRadiansPerPixel);
    viewer->rotate(viewer->shownSlice().right(), moved.y() * obliqueRadiansPerPixel);
    return true;
}
