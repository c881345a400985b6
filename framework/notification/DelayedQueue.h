#pragma once

#include "framework/notification/ExNotification.h"
#include "platform/util/McDArray.h"
#include "platform/util/McMutex.h"

#include <cstddef>
#include <cstdint>
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
    /// Drops all notifications with this viewer; the order of the others stays.
    void remove(const ExBaseViewer *viewer);
    /// Gives everything that waits, in order, and is empty afterwards.
    [[nodiscard]] McDArray<ExNotification> take();

private:
    void append(const ExNotification &notification);
    void rebuild(std::size_t slots);
    [[nodiscard]] std::size_t slotFor(const ExNotification &notification) const;

    McMutex m_lock;
    QObject *m_receiver = nullptr;
    McDArray<ExNotification> m_waiting;
    /// Open-addressed hash table beside the queue: position + 1 in m_waiting, 0 for a free slot. A
    /// power of two, at most half full.
    std::vector<std::uint32_t> m_slots;
};
