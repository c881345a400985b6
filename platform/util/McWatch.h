#pragma once

#include "platform/util/McTickClock.h"

/// Stop watch. Runs from construction; any thread.
class McWatch
{
public:
    McWatch() = default;

    /// Seconds since the start. Single precision: over long times use ticks(), which loses nothing.
    [[nodiscard]] float getTime() const
    {
        return static_cast<float>(McTickClock::seconds(ticks()));
    }
    /// Ticks of McTickClock since the start.
    [[nodiscard]] std::int64_t ticks() const { return McTickClock::now() - m_start; }

private:
    std::int64_t m_start = McTickClock::now();
};
