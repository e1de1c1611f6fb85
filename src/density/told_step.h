// SPDX-License-Identifier: MIT
//
// A step with its text on the status line beside the progress bar.

#pragma once

#include "core/step_progress.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace quandrel {

/// Shows bar and text once a step has taken some time, and clears both at its own end. A step that
/// is quick enough leaves the status line alone.
class ToldStep {
public:
    /// @param maximum   value of the whole step; 0 counts as 1
    /// @param watcher   the status line; without one nothing is shown
    /// @param patience  how long the status line stays as it is
    ToldStep(std::string text, std::int64_t maximum, StatusLine* watcher,
             std::chrono::milliseconds patience = kDrawingWithoutProgress);

    ~ToldStep();

    ToldStep(const ToldStep&) = delete;
    ToldStep& operator=(const ToldStep&) = delete;

    /// Tells how far the step is.
    void Reach(std::int64_t done);

private:
    std::string text_;
    StatusLine* watcher_;
    StepProgress progress_;
    bool told_ = false;
};

} // namespace quandrel
