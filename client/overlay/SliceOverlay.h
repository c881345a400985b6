#pragma once

#include "client/overlay/OverlayContent.h"

class SliceViewer;

/// What lies over the image of a slice viewer in its present state, the reference lines of the
/// other viewers on the screen among it.
OverlayContent sliceOverlay(const SliceViewer &viewer);
