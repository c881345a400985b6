#pragma once

#include "framework/notification/ExNotification.h"
#include "platform/util/McDArray.h"
#include "platform/util/McMutex.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class QObject;

/// Notifications that wait for the event loop, in order of arrival, without duplicates. Adding
/// takes the same time however long the queue is. Any thread.
class DelayedQueue
{
public:
    /// Sets the object to which an event is posted for every addition; null closes the queue:
    /// additions are dropped.
    void setReceiver(QObject *receiver);
    /// Appends the notification unless an equal one waits already, and posts an event in either
    /// case.
    void add(const ExNotification &notification);
    /// Drops all that wait with this viewer; the order of the others stays.
    void remove(const ExBaseViewer *viewer);
    /// A viewer is gone: drops its notifications also from what is being delivered.
    void forget(const ExBaseViewer *viewer);
    /// Drops all that wait.
    void clear();

    /// Takes everything that waits, to be delivered in order: the queue is empty afterwards. Lives
    /// in one thread; several may be under way there, one within the other.
    class Delivery
    {
    public:
        explicit Delivery(DelayedQueue &queue);
        ~Delivery();
        Delivery(const Delivery &) = delete;
        Delivery &operator=(const Delivery &) = delete;

        /// The next one, but for those of viewers that are gone by now; none at the end.
        [[nodiscard]] std::optional<ExNotification> next();

    private:
        friend class DelayedQueue;

        DelayedQueue &m_queue;
        McDArray<ExNotification> m_taken;
        int m_next = 0;
        /// With nothing to deliver it stays out of the queue's list.
        bool m_isListed = false;
    };

private:
    void removeWaiting(const ExBaseViewer *viewer);
    void append(const ExNotification &notification);
    void rebuild(std::size_t slots);
    [[nodiscard]] std::size_t slotFor(const ExNotification &notification) const;

    McMutex m_lock;
    QObject *m_receiver = nullptr;
    McDArray<ExNotification> m_waiting;
    /// Open-addressed hash table beside the queue: position + 1 in m_waiting, 0 for a free slot. A
    /// power of two, at most half full.
    std::vector<std::uint32_t> m_slots;
    /// Under way, each with something to deliver. What they have taken is under the lock, too.
    std::vector<Delivery *> m_deliveries;
};
