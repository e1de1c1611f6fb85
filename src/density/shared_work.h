// SPDX-License-Identifier: MIT
//
// Work that several threads share.

#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <thread>
#include <vector>

namespace quandrel {

/// Splits numbers from 0 to before `count` into portions; each thread takes the next portion when
/// it has done its last one. The caller's thread is one of them. Returns when all are done.
///
/// @param atOnce   numbers in a portion, 1 or more
/// @param threads  1 or more
/// @param work     called with the number of the thread, 0 for the caller's, and the first and the
///                 end of a portion; must not throw
template <class Work>
void ShareWork(std::int64_t count, std::int64_t atOnce, unsigned threads, const Work& work) {
    std::atomic<std::int64_t> next = 0;
    const auto takePortions = [&](unsigned thread) {
        for (std::int64_t first = next.fetch_add(atOnce); first < count;
             first = next.fetch_add(atOnce)) {
            work(thread, first, std::min(first + atOnce, count));
        }
    };
    const std::int64_t portions = (count + atOnce - 1) / atOnce;
    std::vector<std::jthread> others; // their destructors wait for them
    for (unsigned thread = 1; thread < threads && thread < portions; ++thread) {
        others.emplace_back(takePortions, thread);
    }
    takePortions(0);
}

/// The same for places of arrays: `work` is called with the first and the end of a portion.
template <class Work>
void ShareRuns(std::size_t count, std::size_t atOnce, unsigned threads, const Work& work) {
    ShareWork(static_cast<std::int64_t>(count), static_cast<std::int64_t>(atOnce), threads,
              [&work](unsigned, std::int64_t first, std::int64_t end) {
                  work(static_cast<std::size_t>(first), static_cast<std::size_t>(end));
              });
}

} // namespace quandrel
