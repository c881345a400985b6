#include "client/app/NotificationWatch.h"

#include "framework/notification/ExNotifiables.h"

#include <utility>

NotificationWatch::NotificationWatch(std::vector<ExNotification::Type> types, React react)
    : m_types(std::move(types))
    , m_react(std::move(react))
{ }

void NotificationWatch::addNotifications()
{
    for (const ExNotification::Type type : m_types) {
        ExNotifiables::getInstance().addNotification(this, type);
    }
}

void NotificationWatch::notified(const ExNotification &notification)
{
    m_react(notification);
}
