#include "platform/render/PerfMon.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

std::atomic<bool> PerfMon::s_active = false;

class PerfMon::Private
{
public:
    struct Sensor
    {
        Reading reading;
        double sum = 0;
    };

    mutable std::mutex mutex;
    std::map<unsigned, std::vector<std::string>> names;
    std::map<std::pair<unsigned, unsigned>, Sensor> sensors;
};

PerfMon::PerfMon()
    : d(std::make_unique<Private>())
{ }

PerfMon::~PerfMon() = default;

void PerfMon::setActive(bool active)
{
    s_active.store(active, std::memory_order_relaxed);
}

void PerfMon::registerSensors(unsigned domain, const std::vector<std::string> &names)
{
    const std::lock_guard lock(d->mutex);
    d->names.insert_or_assign(domain, names);
}

void PerfMon::sensorValueSet(unsigned domain, unsigned sensor, std::int64_t value, bool accumulate)
{
    if (!isActive()) {
        return;
    }
    const std::lock_guard lock(d->mutex);
    Private::Sensor &target = d->sensors[{domain, sensor}];
    Reading &reading = target.reading;
    reading.last = value;
    if (!accumulate) {
        return;
    }
    reading.minimum = reading.count == 0 ? value : std::min(reading.minimum, value);
    reading.maximum = reading.count == 0 ? value : std::max(reading.maximum, value);
    ++reading.count;
    target.sum += static_cast<double>(value);
    reading.mean = target.sum / static_cast<double>(reading.count);
}

PerfMon::Reading PerfMon::reading(unsigned domain, unsigned sensor) const
{
    const std::lock_guard lock(d->mutex);
    const auto found = d->sensors.find({domain, sensor});
    return found == d->sensors.end() ? Reading() : found->second.reading;
}

std::vector<std::string> PerfMon::sensorNames(unsigned domain) const
{
    const std::lock_guard lock(d->mutex);
    const auto found = d->names.find(domain);
    return found == d->names.end() ? std::vector<std::string>() : found->second;
}

void PerfMon::reset()
{
    const std::lock_guard lock(d->mutex);
    d->sensors.clear();
}
