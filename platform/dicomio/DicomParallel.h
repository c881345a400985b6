#pragma once

#include <cstddef>
#include <functional>

/// Threads that work on files at a time: one a processor, but no more than eight.
std::size_t numDicomThreads();

/// Calls @p work with each number below @p count, in the calling thread and in others beside it.
/// Returns when all calls have. What a call throws ends the work and is thrown from here.
/// @param work called from several threads at once.
void inParallel(std::size_t count, const std::function<void(std::size_t)> &work);
