// SPDX-License-Identifier: MIT
//
// The progress bar of a step that may take long.

#pragma once

#include "platform/status_line.h"

#include <chrono>
#include <cstdint>

namespace quandrel {

/// A drawing shows its progress from this on.
inline constexpr std::chrono::milliseconds kDrawingWithoutProgress{100};

/// Shows the bar once a step has taken some time, and takes it away at its own end.
class StepProgress {
public:
    /// @param maximum  value of the whole step, above 0
    /// @param patience  how long the bar stays away
    /// @param watcher   has the bar; without one nothing is shown
    StepProgress(std::int64_t maximum, std::chrono::milliseconds patience, StatusLine* watcher)
        : maximum_(maximum)
        , patience_(patience)
        , watcher_(watcher) {}

    ~StepProgress();

    StepProgress(const StepProgress&) = delete;
    StepProgress& operator=(const StepProgress&) = delete;

    /// Tells how far the step is. True once the bar is there.
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
