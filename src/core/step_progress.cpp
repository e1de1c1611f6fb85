// SPDX-License-Identifier: MIT

#include "core/step_progress.h"

#include "platform/platform.h"

namespace quandrel {

namespace {

/// The eye sees no more; each showing paints the bar.
constexpr std::chrono::milliseconds kBetweenShowings{40};

} // namespace

StepProgress::~StepProgress() {
    if (shown_) {
        gPlatform.status->SetProgress(0, 0);
    }
}

bool StepProgress::Reach(std::int64_t done) {
    const Clock::time_point now = Clock::now();
    if (now - start_ < patience_) {
        return false;
    }
    if (!shown_ || now - lastShown_ >= kBetweenShowings) {
        shown_ = true;
        lastShown_ = now;
        gPlatform.status->SetProgress(done, maximum_);
    }
    return true;
}

} // namespace quandrel
