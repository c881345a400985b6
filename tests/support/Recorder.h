#pragma once

#include "framework/notification/ExNotifiable.h"

#include <QStringList>

#include <functional>
#include <vector>

/// Subscriber that writes "name:TYPE" to a log for everything it receives, and then does what the
/// test wants; it may destroy itself there.
class Recorder : public ExNotifiable
{
public:
    using Reaction = std::function<void(const ExNotification &)>;

    /// @param log shared by the recorders of a test; outlives them.
    Recorder(const QString &name, QStringList &log, std::vector<ExNotification::Type> types,
        Reaction reaction = {});

    void notified(const ExNotification &notification) override;
    void addNotifications() override;

    /// Called after it has subscribed.
    std::function<void()> whenAsked;

private:
    QString m_name;
    QStringList &m_log;
    std::vector<ExNotification::Type> m_types;
    Reaction m_reaction;
};
