#pragma once

#include "framework/notification/ExNotifiable.h"
#include "framework/notification/ExNotifiables.h"

#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

/// Subscriber that writes "name:TYPE" to a log for everything it receives, and then does what the
/// test wants; it may destroy itself there.
class Recorder : public ExNotifiable
{
public:
    using Reaction = std::function<void(const ExNotification &)>;

    /// @param log shared by the recorders of a test; outlives them.
    Recorder(const QString &name, QStringList &log, std::vector<ExNotification::Type> types,
        Reaction reaction = {})
        : m_name(name)
        , m_log(log)
        , m_types(std::move(types))
        , m_reaction(std::move(reaction))
    { }

    void notified(const ExNotification &notification) override
    {
        m_log.append(
            m_name + u':' % QLatin1String(ExNotification::Type2String(notification.type())));
        if (const Reaction reaction = m_reaction) {
            reaction(notification);
        }
    }
    void addNotifications() override
    {
        for (const ExNotification::Type type : m_types) {
            ExNotifiables::getInstance().addNotification(this, type);
        }
        if (const auto act = whenAsked) {
            act();
        }
    }

    /// Called after it has subscribed.
    std::function<void()> whenAsked;

private:
    QString m_name;
    QStringList &m_log;
    std::vector<ExNotification::Type> m_types;
    Reaction m_reaction;
};
