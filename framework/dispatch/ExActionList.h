#pragma once

#include "framework/dispatch/ExActionCore.h"
#include "framework/dispatch/ExActionListBase.h"
#include "framework/dispatch/ExActionWalks.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The actions of one key, ascending by the order key of their signals, among equal ones as they
/// were added. Entries are cleared in place and removed later by compact(), so that a walk may run
/// while receivers die.
template <typename Signal, typename Event>
class ExActionList final : public ExActionListBase
{
public:
    using Action = ExActionCore<Signal, Event>;

    struct Entry
    {
        Action action;
        std::uint64_t serial = 0;
        std::size_t placeIndex = 0;
    };

    ExActionList(const void *owner, ExActionWalks &walks)
        : m_owner(owner)
        , m_walks(walks)
    { }
    ~ExActionList()
    {
        clear();
        m_walks.forget(*this);
    }

    [[nodiscard]] std::size_t size() const { return m_entries.size(); }
    [[nodiscard]] const Entry &operator[](std::size_t position) const
    {
        return m_entries[position];
    }
    [[nodiscard]] std::size_t numDead() const { return m_dead; }
    /// Serial number of the next entry: entries at or above it were added later.
    [[nodiscard]] std::uint64_t nextSerial() const { return m_nextSerial; }
    /// Changes whenever entries have moved, other than by compact().
    [[nodiscard]] std::uint64_t arrangement() const { return m_arrangement; }
    /// Where the entry with this serial number stands now.
    [[nodiscard]] std::size_t positionOf(std::uint64_t serial) const
    {
        const auto found = std::find_if(m_entries.begin(), m_entries.end(),
            [serial](const Entry &entry) { return entry.serial == serial; });
        return static_cast<std::size_t>(found - m_entries.begin());
    }

    void insert(const Action &action)
    {
        const auto after
            = std::upper_bound(m_entries.begin(), m_entries.end(), orderOf(action.signal),
                [](int order, const Entry &entry) { return order < orderOf(entry.action.signal); });
        const auto position = static_cast<std::size_t>(after - m_entries.begin());
        const bool atEnd = after == m_entries.end();
        m_entries.insert(after, Entry{action, m_nextSerial++, 0});
        if (action.isDead()) {
            ++m_dead;
        } else {
            m_entries[position].placeIndex = action.receiver()->addPlace(*this, position);
        }
        if (!atEnd) {
            ++m_arrangement;
            tellPlaces(position + 1);
        }
    }

    /// Takes the first entry with this receiver and signal out: at once, or when the outermost walk
    /// has ended.
    void removeFirst(const ExActionHandlerCore *receiver, const Signal &signal)
    {
        const auto found
            = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry &entry) {
                  return entry.action.receiver() == receiver && entry.action.signal == signal;
              });
        if (found == m_entries.end()) {
            return;
        }
        const auto position = static_cast<std::size_t>(found - m_entries.begin());
        kill(position);
        if (m_walks.isRunning()) {
            m_walks.compactLater(*this);
            return;
        }
        m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
        --m_dead;
        tellPlaces(position);
    }

    /// Makes all entries dead.
    void clear()
    {
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            kill(i);
        }
    }

    void clearAction(std::size_t position) override
    {
        m_entries[position].action.clear();
        ++m_dead;
        if (m_walks.isRunning()) {
            m_walks.compactLater(*this);
        } else if (m_dead * 2 > m_entries.size()) {
            // Not at every removal, so that destroying many receivers stays linear; yet never more
            // dead than alive.
            compact();
        }
    }

    void setPlaceIndex(std::size_t position, std::size_t placeIndex) override
    {
        m_entries[position].placeIndex = placeIndex;
    }

    void compact() override
    {
        const auto isDead = [](const Entry &entry) { return entry.action.isDead(); };
        const auto firstDead = std::find_if(m_entries.begin(), m_entries.end(), isDead);
        const auto from = static_cast<std::size_t>(firstDead - m_entries.begin());
        m_entries.erase(std::remove_if(firstDead, m_entries.end(), isDead), m_entries.end());
        m_dead = 0;
        tellPlaces(from);
    }

    [[nodiscard]] const void *owner() const override { return m_owner; }

private:
    static int orderOf(const Signal &signal)
    {
        if constexpr (requires { signal.orderKey; }) {
            return signal.orderKey;
        } else {
            return 0;
        }
    }

    /// Only entries that are alive have a place noted at their receiver.
    void kill(std::size_t position)
    {
        Entry &entry = m_entries[position];
        if (!entry.action.isDead()) {
            entry.action.receiver()->removePlace(entry.placeIndex);
            ++m_dead;
        }
        entry.action.clear();
    }

    void tellPlaces(std::size_t from)
    {
        for (std::size_t i = from; i < m_entries.size(); ++i) {
            const Entry &entry = m_entries[i];
            if (!entry.action.isDead()) {
                entry.action.receiver()->movePlace(entry.placeIndex, i);
            }
        }
    }

    const void *m_owner;
    ExActionWalks &m_walks;
    std::vector<Entry> m_entries;
    std::size_t m_dead = 0;
    std::uint64_t m_nextSerial = 0;
    std::uint64_t m_arrangement = 0;
};
