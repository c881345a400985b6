#pragma once

#include <chrono>
#include <cstdint>
#include <string>

/// One line of the log, as those who show the log get it. A plain value.
struct McLogLine
{
    enum class Level { Note, Warning };

    std::uint64_t number = 0; ///< counted from 1 since the program began
    Level level = Level::Note;
    std::chrono::system_clock::time_point time;
    std::string text; ///< UTF-8; very long ones are cut off and end in "…"
};
