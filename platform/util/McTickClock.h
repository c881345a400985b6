#pragma once

#include "platform/MovaraPlatformExport.h"

#include <chrono>
#include <cstdint>

#if defined(__x86_64__) && defined(__GNUC__)
#include <x86intrin.h>
#define MOVARA_HAS_TIME_STAMP_COUNTER 1
#else
#define MOVARA_HAS_TIME_STAMP_COUNTER 0
#endif

/// Monotonic clock that is cheap enough to be read around every delivery of a notification.
/// Reads the processor's time-stamp counter where that counts at a constant rate on all cores, else
/// the steady clock. Any thread.
class MOVARA_PLATFORM_EXPORT McTickClock
{
public:
    /// Ticks since an unspecified start.
    static std::int64_t now()
    {
#if MOVARA_HAS_TIME_STAMP_COUNTER
        if (s_invariantCounter) [[likely]] {
            return static_cast<std::int64_t>(__rdtsc());
        }
#endif
        return std::chrono::steady_clock::now().time_since_epoch().count();
    }
    /// Whole microseconds in @p ticks, truncated; good to a microsecond however long the process
    /// runs.
    static std::int64_t microseconds(std::int64_t ticks);
    /// Seconds in @p ticks.
    static double seconds(std::int64_t ticks);
    /// Whether now() reads the time-stamp counter.
    static bool usesTimeStampCounter()
    {
        return s_invariantCounter;
    }

private:
    static const bool s_invariantCounter;
};
