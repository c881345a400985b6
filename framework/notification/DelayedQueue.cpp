#include "framework/notification/DelayedQueue.h"

#include "framework/notification/ExNotificationEvent.h"

#include <QCoreApplication>

#include <algorithm>
#include <bit>
#include <mutex>

namespace {

constexpr std::size_t smallestTable = 64;

/// Spreads notifications over the table, but keeps those together whose payloads lie in one page
/// of memory: what is allocated one after another is mostly queued one after another, and then the
/// table is read where the processor's cache has it already.
std::size_t hashOf(const ExNotification &notification)
{
    constexpr std::uint64_t odd = 0x9E3779B97F4A7C15U;
    constexpr int pageBits = 12;
    constexpr int alignmentBits = 4;
    const auto mix = [](std::uint64_t hash, std::uint64_t value) {
        return std::rotl((hash ^ value) * odd, 29);
    };
    const std::uint64_t data = std::bit_cast<std::uintptr_t>(notification.data());
    std::uint64_t hash = static_cast<std::uint32_t>(notification.type());
    hash = mix(hash, std::bit_cast<std::uintptr_t>(notification.viewer()));
    hash = mix(hash, std::bit_cast<std::uintptr_t>(notification.tool()));
    hash = mix(hash, data >> pageBits);
    const std::uint64_t inPage = (data & ((1U << pageBits) - 1)) >> alignmentBits;
    return static_cast<std::size_t>((hash * odd >> 20U) + inPage);
}

/// Removes those of a viewer from a position on; whether there were any.
bool removeFrom(McDArray<ExNotification> &notifications, int start, const ExBaseViewer *viewer)
{
    const auto end = std::remove_if(notifications.begin() + start, notifications.end(),
        [viewer](const ExNotification &each) { return each.viewer() == viewer; });
    const bool found = end != notifications.end();
    notifications.resize(static_cast<int>(end - notifications.begin()));
    return found;
}

} // namespace

void DelayedQueue::setReceiver(QObject *receiver)
{
    const std::lock_guard lock(m_lock);
    m_receiver = receiver;
}

void DelayedQueue::add(const ExNotification &notification)
{
    // Posted under the lock: the receiver goes only after the queue was closed, which takes the
    // lock too.
    const std::lock_guard lock(m_lock);
    if (m_receiver != nullptr) {
        append(notification);
        QCoreApplication::postEvent(m_receiver, new ExNotificationEvent);
    }
}

void DelayedQueue::append(const ExNotification &notification)
{
    if (static_cast<std::size_t>(m_waiting.size() + 1) * 2 > m_slots.size()) {
        rebuild(m_slots.empty() ? smallestTable : m_slots.size() * 2);
    }
    std::uint32_t &slot = m_slots[slotFor(notification)];
    if (slot == 0) {
        slot = static_cast<std::uint32_t>(m_waiting.append(notification)) + 1;
    }
}

void DelayedQueue::remove(const ExBaseViewer *viewer)
{
    const std::lock_guard lock(m_lock);
    removeWaiting(viewer);
}

void DelayedQueue::forget(const ExBaseViewer *viewer)
{
    const std::lock_guard lock(m_lock);
    removeWaiting(viewer);
    for (Delivery *const delivery : m_deliveries) {
        removeFrom(delivery->m_taken, delivery->m_next, viewer);
    }
}

void DelayedQueue::clear()
{
    const std::lock_guard lock(m_lock);
    m_waiting.clear();
    m_slots.clear();
}

void DelayedQueue::removeWaiting(const ExBaseViewer *viewer)
{
    if (removeFrom(m_waiting, 0, viewer)) {
        rebuild(m_slots.size());
    }
}

DelayedQueue::Delivery::Delivery(DelayedQueue &queue)
    : m_queue(queue)
{
    const std::lock_guard lock(queue.m_lock);
    if (queue.m_waiting.isEmpty()) {
        return;
    }
    queue.m_deliveries.push_back(this);
    m_isListed = true;
    m_taken.swap(queue.m_waiting);
    queue.m_slots.clear();
}

DelayedQueue::Delivery::~Delivery()
{
    if (m_isListed) {
        const std::lock_guard lock(m_queue.m_lock);
        std::erase(m_queue.m_deliveries, this);
    }
}

std::optional<ExNotification> DelayedQueue::Delivery::next()
{
    if (!m_isListed) {
        return std::nullopt;
    }
    const std::lock_guard lock(m_queue.m_lock);
    return m_next < m_taken.size() ? std::optional(m_taken[m_next++]) : std::nullopt;
}

void DelayedQueue::rebuild(std::size_t slots)
{
    m_slots.assign(slots, 0);
    for (int i = 0; i < m_waiting.size(); ++i) {
        m_slots[slotFor(m_waiting[i])] = static_cast<std::uint32_t>(i) + 1;
    }
}

/// The slot of an equal notification, or the free one where it belongs.
std::size_t DelayedQueue::slotFor(const ExNotification &notification) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t slot = hashOf(notification) & mask;
    while (
        m_slots[slot] != 0 && !(m_waiting[static_cast<int>(m_slots[slot] - 1)] == notification)) {
        slot = (slot + 1) & mask;
    }
    return slot;
}
