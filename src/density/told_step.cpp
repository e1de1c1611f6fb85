// SPDX-License-Identifier: MIT

#include "density/told_step.h"

#include "platform/platform.h"

#include <algorithm>
#include <utility>

namespace quandrel {

ToldStep::ToldStep(std::string text, std::int64_t maximum, std::chrono::milliseconds patience)
    : text_(std::move(text))
    , progress_(std::max(maximum, std::int64_t{1}), patience) {}

ToldStep::~ToldStep() {
    if (told_) {
        gPlatform.status->SetText({});
    }
}

void ToldStep::Reach(std::int64_t done) {
    if (progress_.Reach(done) && !told_) {
        told_ = true;
        gPlatform.status->SetText(text_);
    }
}

} // namespace quandrel
