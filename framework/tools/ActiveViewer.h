#pragma once

#include "framework/viewers/ExViewerManager.h"

/// The active viewer; null without one or without a viewer manager. GUI thread only.
inline ExBaseViewer *activeViewer()
{
    const ExViewerManager *const manager = ExViewerManager::instancePointer();
    return manager == nullptr ? nullptr : manager->activeViewer();
}
