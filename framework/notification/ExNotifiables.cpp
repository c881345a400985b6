#include "framework/notification/ExNotifiables.h"

#include "framework/notification/ExNotifiablesPrivate.h"

#include <cstdarg>

namespace {

/// Where deferred notifications wait. Never destroyed: threads may still be running when the
/// process ends.
DelayedQueue &delayedQueue()
{
    static auto *const queue = new DelayedQueue;
    return *queue;
}

} // namespace

ExNotifiables::ExNotifiables()
    : d(new ExNotifiablesPrivate(delayedQueue()))
{ }

ExNotifiables::~ExNotifiables()
{
    delete d;
}

ExNotifiables &ExNotifiables::getInstance()
{
    // The dispatcher's state goes at process exit, the dispatcher itself never: static objects that
    // are subscribers may go later and still take their leave.
    static auto *const instance = new ExNotifiables;
    static const struct AtExit
    {
        ~AtExit()
        {
            delete instance->d;
            instance->d = nullptr;
        }
    } atExit;
    return *instance;
}

void ExNotifiables::notify(const ExNotification &notification)
{
    if (d != nullptr) {
        d->deliver(notification);
    }
}

void ExNotifiables::notifyDelayed(const ExNotification &notification)
{
    delayedQueue().add(notification);
}

void ExNotifiables::removeDelayedNotifications(ExBaseViewer *viewer)
{
    delayedQueue().remove(viewer);
}

void ExNotifiables::forget(const ExBaseViewer *viewer)
{
    delayedQueue().forget(viewer);
}

void ExNotifiables::addNotification(ExNotifiable *subscriber, const ExNotification &notification)
{
    if (d != nullptr && subscriber != nullptr) {
        d->subscribe(*subscriber, notification.type());
    }
}

void ExNotifiables::addNotifications(ExNotifiable *subscriber, ...)
{
    va_list types;
    va_start(types, subscriber);
    for (int type = va_arg(types, int); type != ExNotification::NONE; type = va_arg(types, int)) {
        addNotification(subscriber, ExNotification(static_cast<ExNotification::Type>(type)));
    }
    va_end(types);
}

void ExNotifiables::blockNotifications(bool block)
{
    if (d != nullptr) {
        d->blocked = block;
    }
}

bool ExNotifiables::areNotificationsBlocked() const
{
    return d != nullptr && d->blocked;
}

void ExNotifiables::deleteAllTools()
{
    if (d != nullptr) {
        d->reset();
    }
}

void ExNotifiables::append(ExNotifiable *subscriber)
{
    if (d != nullptr && subscriber != nullptr) {
        d->append(*subscriber);
    }
}

void ExNotifiables::remove(ExNotifiable *subscriber)
{
    if (d != nullptr) {
        d->remove(*subscriber);
    }
}
