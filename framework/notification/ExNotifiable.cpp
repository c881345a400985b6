#include "framework/notification/ExNotifiable.h"

#include "framework/notification/DeliveryClock.h"
#include "framework/notification/ExNotifiables.h"
#include "platform/render/KxEngine.h"

#include <set>
#include <string>
#include <vector>

namespace {

constexpr unsigned overallDomain = 0;
constexpr unsigned callCountSensor = 10;
constexpr unsigned totalTimeSensor = 11;
constexpr unsigned typeDomain = 1;

/// The blocked subscribers. Never destroyed: subscribers may go after everything else.
std::set<const ExNotifiable *> &blockedSubscribers()
{
    static auto *const blocked = new std::set<const ExNotifiable *>;
    return *blocked;
}

void nameSensorsOnce(PerfMon &monitor)
{
    static bool toBeDone = true;
    if (!toBeDone) {
        return;
    }
    toBeDone = false;
    std::vector<std::string> names;
    for (int type = ExNotification::NONE; type <= ExNotification::lastType; ++type) {
        names.emplace_back(ExNotification::Type2String(static_cast<ExNotification::Type>(type)));
    }
    monitor.registerSensors(typeDomain, names);
}

void report(ExNotification::Type type, std::int64_t ticks)
{
    PerfMon &monitor = KxEngine::instance().perfMon();
    nameSensorsOnce(monitor);
    const std::int64_t microseconds = McTickClock::microseconds(ticks);
    // The wildcard's -1 becomes an index past all others: it has a sensor too, only no name.
    monitor.sensorValueSet(typeDomain, static_cast<unsigned>(type), microseconds, true);
    monitor.sensorValueSet(overallDomain, callCountSensor, 1, true);
    monitor.sensorValueSet(overallDomain, totalTimeSensor, microseconds, true);
}

} // namespace

ExNotifiable::ExNotifiable()
{
    ExNotifiables::getInstance().append(this);
}

ExNotifiable::~ExNotifiable()
{
    blockedSubscribers().erase(this);
    ExNotifiables::getInstance().remove(this);
}

bool ExNotifiable::notified_(const ExNotification &notification)
{
    if (blockedNotifications()) {
        return false;
    }
    const ExNotification::Type type = notification.type();
    DeliveryClock clock;
    notified(notification); // From here on this object may be gone.
    const std::int64_t ticks = clock.stop();
    if (PerfMon::isActive()) [[unlikely]] {
        report(type, ticks);
        DeliveryClock::skip();
    }
    return false;
}

void ExNotifiable::addNotifications() { }

void ExNotifiable::setBlockedNotifications(bool blocked)
{
    if (blocked) {
        blockedSubscribers().insert(this);
    } else {
        blockedSubscribers().erase(this);
    }
}

bool ExNotifiable::blockedNotifications() const
{
    const std::set<const ExNotifiable *> &blocked = blockedSubscribers();
    return !blocked.empty() && blocked.contains(this);
}

void ExNotifiable::notify(const ExNotification &notification)
{
    ExNotifiables::getInstance().notify(notification);
}

void ExNotifiable::notify(ExNotification::Type type)
{
    notify(ExNotification(type, nullptr, nullptr, nullptr));
}
