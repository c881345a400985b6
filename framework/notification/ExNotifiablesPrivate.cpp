#include "framework/notification/ExNotifiablesPrivate.h"

#include "framework/notification/DeliveryClock.h"
#include "framework/notification/ExNotificationEvent.h"

#include <QCoreApplication>
#include <QThread>

namespace {

class DepthGuard
{
public:
    explicit DepthGuard(int &depth)
        : m_depth(depth)
    {
        ++m_depth;
    }
    ~DepthGuard() { --m_depth; }
    DepthGuard(const DepthGuard &) = delete;
    DepthGuard &operator=(const DepthGuard &) = delete;

private:
    int &m_depth;
};

} // namespace

void NotificationMap::subscribe(ExNotifiable &subscriber, ExNotification::Type type)
{
    List &list = listOf(type);
    list.insert(Action::bound<&ExNotifiable::notified_>(
        ExSignalCore<ExNotification::Type>{type}, &subscriber));
    if (hasTableEntry(type)) {
        m_table[tableIndex(type)] = &list;
    }
}

void NotificationMap::deliver(ExNotification::Type type, const ExNotification &notification)
{
    List *const list = hasTableEntry(type) ? m_table[tableIndex(type)] : find(type);
    if (list != nullptr) {
        const DeliveryClock::Walk walk;
        walkForward(*list, notification);
    }
}

bool NotificationMap::hasTableEntry(ExNotification::Type type)
{
    return type >= ExNotification::firstType && type <= ExNotification::lastType;
}

std::size_t NotificationMap::tableIndex(ExNotification::Type type)
{
    return static_cast<std::size_t>(type - ExNotification::firstType);
}

ExNotifiablesPrivate::ExNotifiablesPrivate(DelayedQueue &queue)
    : m_queue(queue)
{
    // Whoever comes first, deliveries belong to the GUI thread.
    if (QCoreApplication::instance() != nullptr) {
        moveToThread(QCoreApplication::instance()->thread());
    }
    m_queue.setReceiver(this);
}

ExNotifiablesPrivate::~ExNotifiablesPrivate()
{
    m_queue.setReceiver(nullptr);
}

void ExNotifiablesPrivate::deliver(const ExNotification &notification)
{
    if (blocked) {
        return;
    }
    if (m_depth == 0) {
        m_removals = 0;
    }
    const DepthGuard guard(m_depth);
    if (m_depth == 1) {
        askPending();
    }
    const unsigned generation = m_generation;
    m_subscriptions->deliver(notification.type(), notification);
    if (generation == m_generation) {
        m_subscriptions->deliver(ExNotification::UNSPECIFIC, notification);
    }
}

void ExNotifiablesPrivate::askPending()
{
    // Being asked, a subscriber may create others, which are served in the same pass, and destroy
    // some.
    while (m_nextToAsk < m_pending.size()) {
        m_pending[m_nextToAsk++]->addNotifications();
    }
    m_pending.clear();
    m_nextToAsk = 0;
}

void ExNotifiablesPrivate::subscribe(ExNotifiable &subscriber, ExNotification::Type type)
{
    m_subscriptions->subscribe(subscriber, type);
}

void ExNotifiablesPrivate::append(ExNotifiable &subscriber)
{
    m_pending.append(&subscriber);
}

void ExNotifiablesPrivate::remove(ExNotifiable &subscriber)
{
    ++m_removals;
    const int pending = m_pending.lastIndexOf(&subscriber);
    if (pending >= 0) {
        m_pending.remove(pending);
        m_nextToAsk -= pending < m_nextToAsk ? 1 : 0;
    }
    // Also of one that was never asked: it may have subscribed by itself.
    m_subscriptions->removeReceiver(subscriber);
}

void ExNotifiablesPrivate::reset()
{
    ++m_generation;
    m_subscriptions = std::make_unique<NotificationMap>();
    m_pending.clear();
    m_nextToAsk = 0;
    blocked = false;
    m_queue.clear();
}

void ExNotifiablesPrivate::customEvent(QEvent *event)
{
    if (event->type() != ExNotificationEvent::number) {
        return;
    }
    const unsigned generation = m_generation;
    DelayedQueue::Delivery delivery(m_queue);
    while (const std::optional<ExNotification> notification = delivery.next()) {
        deliver(*notification);
        if (generation != m_generation) {
            return;
        }
    }
}
