#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/dispatch/ExActionHandler.h"
#include "framework/notification/ExNotification.h"
#include "platform/util/McHandableThreaded.h"

/// Base of everything that reacts to notifications. A new object waits until the next outermost
/// delivery, where it is asked once for the types it wants; from then on it receives them until it
/// is destroyed. GUI thread only, but for the reference count. A subscriber may destroy itself or
/// others while a notification is delivered.
class MOVARA_FRAMEWORK_EXPORT ExNotifiable : public ExActionHandler,
                                             public virtual McHandableThreaded
{
public:
    /// Enters the object among those whose subscriptions are still to be made; subscribing here is
    /// too early, since the derived part does not exist yet.
    ExNotifiable();
    /// Ends all subscriptions.
    ~ExNotifiable() override;
    ExNotifiable(const ExNotifiable &) = delete;
    ExNotifiable &operator=(const ExNotifiable &) = delete;

    /// Reacts to a notification that the object has subscribed to.
    virtual void notified(const ExNotification &notification) = 0;
    /// What the dispatcher calls: asks whether delivery is blocked, calls notified(), and tells the
    /// performance monitor how long that took. Always false, so that no subscriber can keep a
    /// notification from the others.
    virtual bool notified_(const ExNotification &notification);
    /// Called once, before the first delivery: subscribe here, through ExNotifiables. The base
    /// wants nothing.
    virtual void addNotifications();
    /// Blocks or unblocks delivery to this one object; its subscriptions stay.
    virtual void setBlockedNotifications(bool blocked);
    [[nodiscard]] virtual bool blockedNotifications() const;

    /// Publishes at once.
    static void notify(const ExNotification &notification);
    /// Publishes at once: no viewer, no sender, no data.
    static void notify(ExNotification::Type type);
};
