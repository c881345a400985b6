#pragma once

#include "client/overlay/OverlayContent.h"

class VolumeViewer;

/// What lies over the picture of a volume viewer in its present state.
OverlayContent volumeOverlay(const VolumeViewer &viewer);
