#pragma once

#include "client/interaction/ClickInteractions.h"
#include "client/interaction/ViewerInteraction.h"

#include <memory>
#include <vector>

/// All interactions of the workstation, by the buttons and keys that they are bound to.
class InteractionSet
{
public:
    InteractionSet(ViewerLayouts &layouts, MenuInteraction::OpenMenu openMenu);

    /// Binds a new viewer's input.
    void install(WorkstationViewer &viewer);

private:
    std::vector<std::unique_ptr<ViewerInteraction>> m_interactions;
};
