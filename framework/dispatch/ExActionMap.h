#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/dispatch/ClientCall.h"
#include "framework/dispatch/ExActionList.h"
#include "framework/dispatch/ExActionWalks.h"

#include <map>
#include <memory>
#include <tuple>
#include <utility>

/// Actions by the key of their signal, and their dispatch. GUI thread only.
///
/// Signal gives its key by code(), compares with == (for removal), and may have an int orderKey by
/// which the actions of a key are kept in ascending order; equal ones stay in order of addition.
/// Dispatch goes over the actions that were there when it began; handlers may add and remove
/// actions, destroy receivers, dispatch again, and even destroy the map. An action whose receiver
/// is destroyed is cleared by the receiver itself and never called again; dead entries are removed
/// once the outermost dispatch of any map of this kind has ended. A handler that throws has not
/// consumed the event: the exception is logged, and the next one is called.
template <typename Signal, typename Key, typename Event>
class MOVARA_FRAMEWORK_EXPORT ExActionMap
{
public:
    using Action = ExActionCore<Signal, Event>;
    using List = ExActionList<Signal, Event>;

    ExActionMap() = default;
    ExActionMap(const ExActionMap &) = delete;
    ExActionMap &operator=(const ExActionMap &) = delete;

    /// Safe from inside a dispatch of this map, which then calls nobody any more.
    virtual ~ExActionMap()
    {
        if (walks().isRunning()) {
            for (auto &[key, list] : *m_lists) {
                list.clear();
            }
            walks().keepUntilDone(std::move(m_lists));
        }
    }

    /// Offers the event to the actions of the signal's key, from the first to the last, until one
    /// returns true. Gives whether one did.
    virtual bool trigger(const Signal &signal, const Event &event)
    {
        List *const list = find(signal.code());
        return list != nullptr && walkForward(*list, event);
    }

    /// Adds a copy of the action. Nothing keeps the same action from being added twice.
    void addAction(const Action &action) { listOf(action.signal.code()).insert(action); }

    /// Removes the first action with an equal signal and the same receiver; the handler is not
    /// compared.
    void removeAction(const Action &action)
    {
        if (List *const list = find(action.signal.code())) {
            list->removeFirst(action.receiver(), action.signal);
        }
    }

    /// Clears all actions of a receiver in place.
    void removeReceiver(ExActionHandlerCore &receiver) { receiver.clearActions(m_lists.get()); }

    /// The keys that have an action, in ascending order.
    template <typename Visitor>
    void forEachList(Visitor visit) const
    {
        for (const auto &[key, list] : *m_lists) {
            visit(key, list);
        }
    }

protected:
    /// The list of a key; null when no action was ever added under it. Stays valid as long as the
    /// map.
    [[nodiscard]] List *find(const Key &key)
    {
        const auto found = m_lists->find(key);
        return found == m_lists->end() ? nullptr : &found->second;
    }

    /// The list of a key, made when missing.
    List &listOf(const Key &key)
    {
        return m_lists
            ->emplace(std::piecewise_construct, std::forward_as_tuple(key),
                std::forward_as_tuple(m_lists.get(), std::ref(walks())))
            .first->second;
    }

    /// The generic order: from the first entry to the last.
    static bool walkForward(List &list, const Event &event)
    {
        const ExActionWalks::Guard guard(walks());
        const auto begin = list.nextSerial();
        bool consumed = false;
        for (std::size_t i = 0; i < list.size() && !consumed; ++i) {
            consumed = callIfThere(list, i, event, begin, [](const Signal &) { return true; });
        }
        compactWhenDone(list);
        return consumed;
    }

    /// From the last entry to the first, only those whose signal is accepted.
    template <typename Accepts>
    static bool walkBackward(List &list, const Event &event, Accepts accepts)
    {
        const ExActionWalks::Guard guard(walks());
        const auto begin = list.nextSerial();
        bool consumed = false;
        for (std::size_t i = list.size(); i-- > 0 && !consumed;) {
            consumed = callIfThere(list, i, event, begin, accepts);
        }
        compactWhenDone(list);
        return consumed;
    }

private:
    using Lists = std::map<Key, List>;

    /// One counter for all maps of this kind: the walks of one may nest in those of another.
    static ExActionWalks &walks()
    {
        // Never destroyed: a process may end in the middle of a walk.
        static auto *const instance = new ExActionWalks;
        return *instance;
    }

    /// Calls the entry at @p position unless it is dead, was added after @p begin, or is not
    /// accepted. When the handler has moved the entries by adding an action in their midst, @p
    /// position follows the entry.
    template <typename Accepts>
    static bool callIfThere(
        List &list, std::size_t &position, const Event &event, std::uint64_t begin, Accepts accepts)
    {
        const typename List::Entry &entry = list[position];
        if (entry.action.isDead() || entry.serial >= begin || !accepts(entry.action.signal)) {
            return false;
        }
        const auto serial = entry.serial;
        const auto arrangement = list.arrangement();
        const bool consumed = ClientCall::protect(
            "A handler", [&entry, &event] { return entry.action.call(event); });
        if (list.arrangement() != arrangement) {
            position = list.positionOf(serial);
        }
        return consumed;
    }

    static void compactWhenDone(List &list)
    {
        if (list.numDead() > 0) {
            walks().compactLater(list);
        }
    }

    // On the heap, so that the lists can outlive a map that is destroyed from inside its own
    // dispatch.
    std::shared_ptr<Lists> m_lists = std::make_shared<Lists>();
};
