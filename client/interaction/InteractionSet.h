#pragma once

#include "client/interaction/ClickInteractions.h"
#include "client/interaction/ViewerInteraction.h"

#include <memory>
#include <vector>

/// What clicks, the wheel and keys do in viewers whatever tool is chosen. Drags belong to modal
/// tools, which are asked for what is not used here.
class InteractionSet
{
public:
    InteractionSet(ViewerLayouts &layouts, MenuInteraction::OpenMenu openMenu);

    /// Binds a new viewer's input.
    void install(WorkstationViewer &viewer);

private:
    std::vector<std::unique_ptr<ViewerInteraction>> m_interactions;
};
