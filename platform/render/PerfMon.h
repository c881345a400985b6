#pragma once

#include "platform/MovaraPlatformExport.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// Performance monitor: domains of named sensors, each counting what is set on it. Off by default;
/// while it is off a caller pays for one flag. Switching and asking work in any thread, values may
/// be set from any thread.
class MOVARA_PLATFORM_EXPORT PerfMon
{
public:
    /// What a sensor has seen since it was reset.
    struct Reading
    {
        std::int64_t count = 0;
        std::int64_t last = 0;
        std::int64_t minimum = 0;
        std::int64_t maximum = 0;
        double mean = 0;
    };

    PerfMon();
    ~PerfMon();
    PerfMon(const PerfMon &) = delete;
    PerfMon &operator=(const PerfMon &) = delete;

    /// Whether values are collected.
    [[nodiscard]] static bool isActive() { return s_active.load(std::memory_order_relaxed); }
    static void setActive(bool active);

    /// Names the sensors of a domain, 0 to n - 1; readings of sensors that existed before stay.
    void registerSensors(unsigned domain, const std::vector<std::string> &names);
    /// Sets a sensor's value. Ignored while the monitor is off.
    /// @param sensor an index past the registered ones is kept and read back like any other,
    /// without a name.
    /// @param accumulate true to take the value into count, minimum, maximum and mean; false to set
    /// only the last value.
    void sensorValueSet(unsigned domain, unsigned sensor, std::int64_t value, bool accumulate);

    /// The readings of a sensor; all 0 for one that was never set.
    [[nodiscard]] Reading reading(unsigned domain, unsigned sensor) const;
    /// Names of a domain's sensors; empty for an unknown domain.
    [[nodiscard]] std::vector<std::string> sensorNames(unsigned domain) const;
    /// Forgets all readings; names stay.
    void reset();

private:
    class Private;
    std::unique_ptr<Private> d;

    static std::atomic<bool> s_active;
};
