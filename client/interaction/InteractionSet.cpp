#include "client/interaction/InteractionSet.h"

#include "client/interaction/ScrollInteraction.h"
#include "client/viewers/WorkstationViewer.h"

#include <utility>

InteractionSet::InteractionSet(ViewerLayouts &layouts, MenuInteraction::OpenMenu openMenu)
{
    m_interactions.push_back(std::make_unique<ActivateInteraction>());
    m_interactions.push_back(std::make_unique<LinkBadgeInteraction>());
    m_interactions.push_back(std::make_unique<FullscreenInteraction>(layouts));
    m_interactions.push_back(std::make_unique<MenuInteraction>(std::move(openMenu)));
    m_interactions.push_back(std::make_unique<ScrollInteraction>());
}

void InteractionSet::install(WorkstationViewer &viewer)
{
    for (const auto &interaction : m_interactions) {
        interaction->install(*viewer.eventHandler());
    }
}
