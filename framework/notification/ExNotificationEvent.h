#pragma once

#include <QEvent>

/// Tells the event loop that notifications wait; they themselves are in the queue.
class ExNotificationEvent : public QEvent
{
public:
    static constexpr auto number = static_cast<QEvent::Type>(QEvent::User + 1);

    ExNotificationEvent()
        : QEvent(number)
    { }
};
