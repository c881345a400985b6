#pragma once

#include "framework/MovaraFrameworkExport.h"
#include "framework/notification/ExNotification.h"

class ExNotifiable;
class ExNotifiablesPrivate;

/// The process-wide dispatcher of notifications: delivers them to subscribers, at once or from the
/// event loop. GUI thread only, but for notifyDelayed() and removeDelayedNotifications(), which any
/// thread may call. Within a type subscribers are called in the order in which they subscribed. A
/// subscriber may publish, subscribe, and destroy itself or others from inside a delivery; who is
/// gone is not called, who is new is called from the next one on.
class MOVARA_FRAMEWORK_EXPORT ExNotifiables
{
public:
    /// The one dispatcher. The first call is to be made in the GUI thread. While the process ends
    /// it stays callable, and drops everything once its state has been destroyed.
    static ExNotifiables &getInstance();

    ExNotifiables(const ExNotifiables &) = delete;
    ExNotifiables &operator=(const ExNotifiables &) = delete;
    virtual ~ExNotifiables();

    /// Delivers at once: first to the subscribers of the type, then to those of UNSPECIFIC. A
    /// notification that is itself UNSPECIFIC therefore reaches the latter twice; that is part of
    /// the contract.
    void notify(const ExNotification &notification);
    /// Delivers from the event loop of the GUI thread. A notification that equals one that still
    /// waits is merged with it, at the earlier place. It is dropped when its viewer is destroyed
    /// before its turn. Any thread.
    void notifyDelayed(const ExNotification &notification);
    /// Drops the waiting notifications of a viewer; null drops those without a viewer. Any thread.
    void removeDelayedNotifications(ExBaseViewer *viewer);

    /// Subscribes to the notification's type; its other fields do not matter. A type subscribed to
    /// twice is delivered twice. A null subscriber is ignored.
    void addNotification(ExNotifiable *subscriber, const ExNotification &notification);
    /// Subscribes to several types: values of ExNotification::Type, ended by NONE. UNSPECIFIC may
    /// be among them.
    void addNotifications(ExNotifiable *subscriber, ...);

    /// While blocked, all deliveries are dropped, also the deferred ones whose turn comes
    /// meanwhile.
    void blockNotifications(bool block);
    [[nodiscard]] bool areNotificationsBlocked() const;

    /// Forgets everything: subscriptions, subscribers still to be asked, waiting notifications, the
    /// block. Subscribers that exist receive nothing until they subscribe again. May be called from
    /// inside a delivery, which then ends.
    void deleteAllTools();

private:
    friend class ExBaseViewer;
    friend class ExNotifiable;

    ExNotifiables();

    /// A viewer is going: its waiting notifications are dropped, and those of a deferred delivery
    /// under way. Any thread, and also while the process ends.
    static void forget(const ExBaseViewer *viewer);

    /// A new subscriber, still to be asked for its types.
    void append(ExNotifiable *subscriber);
    /// A subscriber is going.
    void remove(ExNotifiable *subscriber);

    ExNotifiablesPrivate *d;
};
