#include "tests/support/Recorder.h"

#include "framework/notification/ExNotifiables.h"

#include <utility>

Recorder::Recorder(const QString &name, QStringList &log, std::vector<ExNotification::Type> types,
    Reaction reaction)
    : m_name(name)
    , m_log(log)
    , m_types(std::move(types))
    , m_reaction(std::move(reaction))
{ }

void Recorder::notified(const ExNotification &notification)
{
    m_log.append(m_name + u':' % QLatin1String(ExNotification::Type2String(notification.type())));
    if (const Reaction reaction = m_reaction) {
        reaction(notification);
    }
}

void Recorder::addNotifications()
{
    for (const ExNotification::Type type : m_types) {
        ExNotifiables::getInstance().addNotification(this, type);
    }
    if (const auto act = whenAsked) {
        act();
    }
}
