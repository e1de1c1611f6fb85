// SPDX-License-Identifier: MIT

#include "core/told_step.h"

#include <algorithm>
#include <utility>

namespace quandrel {

ToldStep::ToldStep(std::string text, std::int64_t maximum, StatusLine* watcher,
                   std::chrono::milliseconds patience)
    : text_(std::move(text))
    , watcher_(watcher)
    , progress_(std::max(maximum, std::int64_t{1}), patience, watcher) {}

ToldStep::~ToldStep() {
    if (told_) {
        watcher_->SetText({});
    }
}

void ToldStep::Reach(std::int64_t done) {
    if (progress_.Reach(done) && !told_) {
        told_ = true;
        watcher_->SetText(text_);
    }
}

} // namespace quandrel
