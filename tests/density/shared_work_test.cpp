// SPDX-License-Identifier: MIT

#include "density/shared_work.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace quandrel {
namespace {

TEST(SharedWork, EachNumberIsDoneOnce) {
    for (const unsigned threads : {1U, 2U, 5U}) {
        for (const std::int64_t count : {0, 1, 7, 1000}) {
            std::vector<std::atomic<int>> done(static_cast<std::size_t>(count));
            std::atomic<bool> isPortion = true;
            ShareWork(
                count, 7, threads, [&](unsigned thread, std::int64_t first, std::int64_t end) {
                    isPortion = isPortion && thread < threads && first < end && end - first <= 7;
                    for (std::int64_t i = first; i < end; ++i) {
                        ++done[static_cast<std::size_t>(i)];
                    }
                });
            EXPECT_TRUE(isPortion);
            for (const std::atomic<int>& times : done) {
                ASSERT_EQ(times, 1);
            }
        }
    }
}

TEST(SharedWork, OnlyThreadNoughtIsTheCallersThread) {
    const std::thread::id caller = std::this_thread::get_id();
    std::atomic<bool> isSo = true;
    ShareWork(1000, 1, 3, [&](unsigned thread, std::int64_t, std::int64_t) {
        isSo = isSo && (thread == 0) == (std::this_thread::get_id() == caller);
    });
    EXPECT_TRUE(isSo);
}

} // namespace
} // namespace quandrel
