#pragma once

#include <mutex>

/// Mutual exclusion between threads; not recursive. Works with std::lock_guard and
/// std::unique_lock.
class McMutex
{
public:
    McMutex() = default;
    McMutex(const McMutex &) = delete;
    McMutex &operator=(const McMutex &) = delete;

    void lock() { m_mutex.lock(); }
    void unlock() { m_mutex.unlock(); }
    bool try_lock() { return m_mutex.try_lock(); }

private:
    std::mutex m_mutex;
};
