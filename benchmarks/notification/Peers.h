#pragma once

#include "framework/notification/ExNotifiable.h"
#include "framework/notification/ExNotifiables.h"

#include <QObject>

#include <cstdint>

/// Counts what it is told. The sum keeps the compiler from leaving the work out.
class CountingSubscriber final : public ExNotifiable
{
public:
    void addNotifications() override
    {
        ExNotifiables::getInstance().addNotification(this, ExNotification::SLICE_CHANGED);
    }
    void notified(const ExNotification &notification) override { count += notification.type(); }

    std::int64_t count = 0;
};

class QtSender : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void published(const ExNotification &notification);
};

class QtReceiver : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void receive(const ExNotification &notification) { count += notification.type(); }

public:
    std::int64_t count = 0;
};

/// A receiver for the libraries that call plain member functions.
class PlainReceiver
{
public:
    virtual ~PlainReceiver() = default;
    virtual void receive(const ExNotification &notification) { count += notification.type(); }

    std::int64_t count = 0;
};
