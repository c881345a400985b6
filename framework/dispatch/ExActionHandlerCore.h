#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <cstddef>
#include <vector>

class ExActionListBase;

/// Identity of a receiver of actions, whatever class it is of. It knows every place where an action
/// of it stands, and clears them all when it goes, so that no list ever calls a receiver that is
/// gone. GUI thread only.
class MOVARA_FRAMEWORK_EXPORT ExActionHandlerCore
{
public:
    ExActionHandlerCore() = default;
    /// A copy is another receiver: it has no actions.
    ExActionHandlerCore(const ExActionHandlerCore &) { }
    ExActionHandlerCore &operator=(const ExActionHandlerCore &) { return *this; }
    virtual ~ExActionHandlerCore();

    // For the lists that hold actions.

    /// Notes that an action of this receiver stands at @p position of @p list; gives the index of
    /// the note.
    std::size_t addPlace(ExActionListBase &list, std::size_t position);
    /// The action of a note has moved within its list.
    void movePlace(std::size_t index, std::size_t position) { m_places[index].position = position; }
    /// Drops a note; the last note takes its index.
    void removePlace(std::size_t index);
    /// Clears in place every action of this receiver that stands in a list of @p owner.
    void clearActions(const void *owner);

private:
    struct Place
    {
        ExActionListBase *list;
        std::size_t position;
    };

    std::vector<Place> m_places;
};
