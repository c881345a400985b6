#include "platform/util/McTickClock.h"

#include <ratio>

#if MOVARA_HAS_TIME_STAMP_COUNTER
#include <cpuid.h>
#endif

namespace {

using SteadyClock = std::chrono::steady_clock;

bool hasInvariantCounter()
{
#if MOVARA_HAS_TIME_STAMP_COUNTER
    constexpr unsigned advancedPowerManagement = 0x80000007U;
    constexpr unsigned invariantBit = 1U << 8U;
    unsigned eax = 0;
    unsigned ebx = 0;
    unsigned ecx = 0;
    unsigned edx = 0;
    return __get_cpuid(advancedPowerManagement, &eax, &ebx, &ecx, &edx) != 0
        && (edx & invariantBit) != 0;
#else
    return false;
#endif
}

} // namespace

const bool McTickClock::s_invariantCounter = hasInvariantCounter();

namespace {

/// Ticks of the counter per second, measured against the steady clock over the time since the
/// library was loaded.
class Calibration
{
public:
    double ticksPerSecond()
    {
        using Seconds = std::chrono::duration<double>;
        constexpr Seconds longEnough(0.01);
        Seconds elapsed = SteadyClock::now() - m_startTime;
        while (elapsed < longEnough) {
            elapsed = SteadyClock::now() - m_startTime;
        }
        return static_cast<double>(McTickClock::now() - m_startTicks) / elapsed.count();
    }

private:
    SteadyClock::time_point m_startTime = SteadyClock::now();
    std::int64_t m_startTicks = McTickClock::now();
};

Calibration startOfProcess;

double ticksPerSecond()
{
    if (!McTickClock::usesTimeStampCounter()) {
        return static_cast<double>(SteadyClock::period::den)
            / static_cast<double>(SteadyClock::period::num);
    }
    static const double measured = startOfProcess.ticksPerSecond();
    return measured;
}

} // namespace

std::int64_t McTickClock::microseconds(std::int64_t ticks)
{
    return static_cast<std::int64_t>(seconds(ticks) * 1e6);
}

double McTickClock::seconds(std::int64_t ticks)
{
    return static_cast<double>(ticks) / ticksPerSecond();
}
