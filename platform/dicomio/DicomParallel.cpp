#include "platform/dicomio/DicomParallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

std::size_t numDicomThreads()
{
    constexpr unsigned most = 8;
    return std::clamp(std::thread::hardware_concurrency(), 1U, most);
}

void inParallel(std::size_t count, const std::function<void(std::size_t)> &work)
{
    std::atomic<std::size_t> next = 0;
    std::mutex mutex;
    std::exception_ptr thrown;
    const auto workOff = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++) {
                work(i);
            }
        } catch (...) {
            next = count;
            const std::lock_guard lock(mutex);
            thrown = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> helpers;
        for (std::size_t i = 1; i < std::min(count, numDicomThreads()); ++i) {
            helpers.emplace_back(workOff);
        }
        workOff();
    }
    if (thrown) {
        std::rethrow_exception(thrown);
    }
}
