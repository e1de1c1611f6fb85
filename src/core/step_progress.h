// SPDX-License-Identifier: MIT
//
// The progress bar of a step that may take a long time.

#pragma once

#include "platform/status_line.h"

#include <chrono>
#include <cstdint>

namespace quandrel {

/// The number of items from which a drawing shows its progress.
inline constexpr std::chrono::milliseconds kDrawingWithoutProgress{100};

/// Shows the bar after a step has taken some time, and removes it in the destructor.
class StepProgress {
public:
    /// @param maximum  value of the whole step, above 0
    /// @param patience  delay before the bar appears
    /// @param watcher   owns the bar; without it nothing is shown
    StepProgress(std::int64_t maximum, std::chrono::milliseconds patience, StatusLine* watcher)
        : maximum_(maximum)
        , patience_(patience)
        , watcher_(watcher) {}

    ~StepProgress();

    StepProgress(const StepProgress&) = delete;
    StepProgress& operator=(const StepProgress&) = delete;

    /// Reports the progress of the step. True when the bar is shown.
    bool Reach(std::int64_t done);

private:
    using Clock = std::chrono::steady_clock;

    std::int64_t maximum_;
    std::chrono::milliseconds patience_;
    StatusLine* watcher_;
    Clock::time_point start_ = Clock::now();
    Clock::time_point lastShown_;
    bool shown_ = false;
};

} // namespace quandrel
