#pragma once

/// The plainest signal: one value, which is also the key under which its actions are kept.
template <typename Value>
struct ExSignalCore
{
    Value value{};

    [[nodiscard]] Value code() const { return value; }
    friend bool operator==(const ExSignalCore &, const ExSignalCore &) = default;
};
