#pragma once

#include "platform/render/KxVolume.h"
#include "platform/util/McVec3d.h"

class SliceViewer;
class WorkstationViewer;

/// What the user does to a viewer, done to it and to all viewers that follow it.
namespace LinkedActions {

/// Scrolls by planes. Followers whose plane is parallel show the same place of the patient where
/// they share the frame of reference; others are moved by the same distance.
void scroll(SliceViewer &viewer, int planes);
/// Enlarges all by the same factor, so that images that fit their viewers still do afterwards.
void zoom(SliceViewer &viewer, double factor);
/// Moves the pictures by a shift in the patient (mm), each by what lies in its plane.
void pan(SliceViewer &viewer, const McVec3d &shift);
void setWindow(SliceViewer &viewer, const KxVolume::Window &window);
/// Steps through the phases, from the last one on to the first.
void stepPhase(WorkstationViewer &viewer, int steps);
/// Exchanges dark and bright where windows are linked.
void setInverted(SliceViewer &viewer, bool inverted);
/// Shows everything in the middle of the viewers, in their first windows, not inverted. The viewer
/// itself goes back to its own plane and is no longer flipped; planes are not linked.
void reset(SliceViewer &viewer);

} // namespace LinkedActions
