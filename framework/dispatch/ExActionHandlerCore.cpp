#include "framework/dispatch/ExActionHandlerCore.h"

#include "framework/dispatch/ExActionListBase.h"

ExActionHandlerCore::~ExActionHandlerCore()
{
    for (const Place &place : m_places) {
        place.list->clearAction(place.position);
    }
}

std::size_t ExActionHandlerCore::addPlace(ExActionListBase &list, std::size_t position)
{
    m_places.push_back({&list, position});
    return m_places.size() - 1;
}

void ExActionHandlerCore::removePlace(std::size_t index)
{
    const Place last = m_places.back();
    m_places.pop_back();
    if (index < m_places.size()) {
        m_places[index] = last;
        last.list->setPlaceIndex(last.position, index);
    }
}

void ExActionHandlerCore::clearActions(const void *owner)
{
    for (std::size_t i = m_places.size(); i-- > 0;) {
        const Place place = m_places[i];
        if (place.list->owner() == owner) {
            removePlace(i);
            place.list->clearAction(place.position);
        }
    }
}
