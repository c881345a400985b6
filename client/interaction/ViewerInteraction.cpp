#include "client/interaction/ViewerInteraction.h"

#include "client/viewers/SliceViewer.h"
#include "client/viewers/VolumeViewer.h"

WorkstationViewer *ViewerInteraction::viewerOf(const ExEvent &event)
{
    return dynamic_cast<WorkstationViewer *>(event.viewer());
}

SliceViewer *ViewerInteraction::sliceViewerOf(const ExEvent &event)
{
    auto *const viewer = dynamic_cast<SliceViewer *>(event.viewer());
    return viewer != nullptr && viewer->volume(0) != nullptr ? viewer : nullptr;
}

VolumeViewer *ViewerInteraction::volumeViewerOf(const ExEvent &event)
{
    auto *const viewer = dynamic_cast<VolumeViewer *>(event.viewer());
    return viewer != nullptr && viewer->volume(0) != nullptr ? viewer : nullptr;
}

bool ViewerInteraction::hasModifiers(const ExEvent &event, Qt::KeyboardModifiers modifiers)
{
    constexpr auto looked = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    return (event.state & static_cast<int>(looked.toInt())) == static_cast<int>(modifiers.toInt());
}
