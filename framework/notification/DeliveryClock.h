#pragma once

#include "platform/util/McTickClock.h"

#include <cstdint>

/// Times the calls of subscribers with one clock reading a call: within a walk over subscribers the
/// end of one call is the start of the next. A reading is only taken over from the call just before
/// in the same walk; the first call of a walk, and a call made outside of any walk, read the clock
/// anew. GUI thread only.
class DeliveryClock
{
public:
    /// A walk over subscribers, for its scope.
    class Walk
    {
    public:
        Walk()
            : m_outer(s_state)
        {
            s_state = State::FirstOfWalk;
        }
        ~Walk() { s_state = m_outer; }
        Walk(const Walk &) = delete;
        Walk &operator=(const Walk &) = delete;

    private:
        friend class DeliveryClock;
        enum class State { Outside, FirstOfWalk, Following };
        inline static State s_state = State::Outside;
        inline static std::int64_t s_lastEnd = 0;

        State m_outer;
    };

    /// Starts timing a call.
    DeliveryClock()
        : m_state(Walk::s_state)
        , m_start(m_state == Walk::State::Following ? Walk::s_lastEnd : McTickClock::now())
    {
        // What the subscriber calls by itself is not part of the walk.
        Walk::s_state = Walk::State::Outside;
    }

    /// What has been done since the last call is not to be counted to the next one.
    static void skip()
    {
        if (Walk::s_state == Walk::State::Following) {
            Walk::s_state = Walk::State::FirstOfWalk;
        }
    }

    /// Ends timing. @return the ticks of McTickClock that the call took.
    std::int64_t stop()
    {
        const std::int64_t end = McTickClock::now();
        if (m_state != Walk::State::Outside) {
            Walk::s_state = Walk::State::Following;
            Walk::s_lastEnd = end;
        }
        const std::int64_t ticks = end - m_start;
        return ticks < 0 ? -ticks : ticks;
    }

private:
    Walk::State m_state;
    std::int64_t m_start;
};
