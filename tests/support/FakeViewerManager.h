#pragma once

#include "framework/viewers/ExViewerManager.h"
#include "tests/support/FakeScreen.h"

/// Viewer manager with one screen set for all viewers.
class FakeViewerManager : public ExViewerManager
{
public:
    ExScreen *screenForViewer(ExBaseViewer * /*viewer*/) override
    {
        return hasScreen ? &screen : nullptr;
    }
    /// Adds a viewer without placing it.
    void add(ExBaseViewer *viewer) { addViewer(viewer, McBox2f(), false); }

    using ExViewerManager::unusedViewer;

    FakeScreen screen;
    bool hasScreen = true;
};
