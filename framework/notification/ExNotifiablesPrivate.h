#pragma once

#include "framework/dispatch/ExActionMap.h"
#include "framework/dispatch/ExSignalCore.h"
#include "framework/notification/DelayedQueue.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/util/McDArray.h"

#include <QObject>

#include <array>
#include <cstdint>
#include <memory>

/// Who receives which type. Beside the ordered map of lists a dense table by type serves the
/// look-up.
class NotificationMap
    : public ExActionMap<ExSignalCore<ExNotification::Type>, ExNotification::Type, ExNotification>
{
public:
    void subscribe(ExNotifiable &subscriber, ExNotification::Type type);
    void deliver(ExNotification::Type type, const ExNotification &notification);

private:
    [[nodiscard]] static bool hasTableEntry(ExNotification::Type type);
    static std::size_t tableIndex(ExNotification::Type type);

    std::array<List *, ExNotification::lastType - ExNotification::firstType + 1> m_table{};
};

/// The dispatcher's state, and the object to which the events of deferred notifications are posted.
class ExNotifiablesPrivate : public QObject
{
    Q_OBJECT

public:
    /// @param queue where deferred notifications wait; outlives this object.
    explicit ExNotifiablesPrivate(DelayedQueue &queue);
    ~ExNotifiablesPrivate() override;

    void deliver(const ExNotification &notification);
    void subscribe(ExNotifiable &subscriber, ExNotification::Type type);
    void append(ExNotifiable &subscriber);
    void remove(ExNotifiable &subscriber);
    void reset();

    bool blocked = false;

protected:
    void customEvent(QEvent *event) override;

private:
    void askPending();

    DelayedQueue &m_queue;
    std::unique_ptr<NotificationMap> m_subscriptions = std::make_unique<NotificationMap>();
    McDArray<ExNotifiable *> m_pending;
    /// Position of the next pending subscriber to be asked for its types, while they are being
    /// asked.
    int m_nextToAsk = 0;
    /// Counts removals since the current outermost delivery began; for diagnosis in the debugger,
    /// nothing reads it.
    std::int32_t m_removals = 0;
    /// Changes with every reset.
    unsigned m_generation = 0;
    int m_depth = 0;
};
