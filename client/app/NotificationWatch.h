#pragma once

#include "framework/notification/ExNotifiable.h"

#include <functional>
#include <vector>

/// Calls a function for every notification of some types, for objects that are no subscribers
/// themselves. Held by McHandle by whom it calls.
class NotificationWatch final : public ExNotifiable
{
public:
    using React = std::function<void(const ExNotification &)>;

    NotificationWatch(std::vector<ExNotification::Type> types, React react);

    void notified(const ExNotification &notification) override;
    void addNotifications() override;

private:
    std::vector<ExNotification::Type> m_types;
    React m_react;
};
