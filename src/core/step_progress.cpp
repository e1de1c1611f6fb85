// SPDX-License-Identifier: MIT

#include "core/step_progress.h"

namespace quandrel {

namespace {

/// More frequent updates are not visible; each one paints the bar.
constexpr std::chrono::milliseconds kBetweenShowings{40};

} // namespace

StepProgress::~StepProgress() {
    if (shown_) {
        watcher_->SetProgress(0, 0);
    }
}

bool StepProgress::Reach(std::int64_t done) {
    if (watcher_ == nullptr) {
        return false;
    }
    const Clock::time_point now = Clock::now();
    if (now - start_ < patience_) {
        return false;
    }
    if (!shown_ || now - lastShown_ >= kBetweenShowings) {
        shown_ = true;
        lastShown_ = now;
        watcher_->SetProgress(done, maximum_);
    }
    return true;
}

} // namespace quandrel
