// SPDX-License-Identifier: MIT
//
// A step with its text on the status line beside the progress bar.

#pragma once

#include "core/step_progress.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace quandrel {

/// Shows bar and text after a step has taken some time, and clears both in the destructor. A quick
/// step does not change the status line.
class ToldStep {
public:
    /// @param maximum   value of the whole step; 0 counts as 1
    /// @param watcher   the status line; without it nothing is shown
    /// @param patience  delay before the status line changes
    ToldStep(std::string text, std::int64_t maximum, StatusLine* watcher,
             std::chrono::milliseconds patience = kDrawingWithoutProgress);

    ~ToldStep();

    ToldStep(const ToldStep&) = delete;
    ToldStep& operator=(const ToldStep&) = delete;

    /// Reports the progress of the step.
    void Reach(std::int64_t done);

private:
    std::string text_;
    StatusLine* watcher_;
    StepProgress progress_;
    bool told_ = false;
};

} // namespace quandrel
