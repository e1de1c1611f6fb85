// SPDX-License-Identifier: MIT
//
// A status line that is not shown: for tests, and for scripts.

#pragma once

#include "platform/status_line.h"

#include <cstddef>
#include <deque>
#include <string>

namespace quandrel {

class QuietStatusLine : public StatusLine {
public:
    /// @param textsKept  how many of the last texts are kept, at least 1
    explicit QuietStatusLine(std::size_t textsKept = 1)
        : textsKept_(textsKept) {}

    void SetText(std::string_view text) override {
        texts_.emplace_back(text);
        if (texts_.size() > textsKept_) {
            texts_.pop_front();
        }
    }

    void SetProgress(std::int64_t done, std::int64_t maximum) override {
        done_ = done;
        maximum_ = maximum;
    }

    void SetBusy(bool busy) override { busyDepth_ += busy ? 1 : -1; }

    [[nodiscard]] bool CancelRequested() override { return cancel_; }

    /// Makes every step from now on end, as if the user had asked for it.
    void RequestCancel() { cancel_ = true; }

    /// The last text, empty before the first.
    [[nodiscard]] std::string Text() const {
        return texts_.empty() ? std::string() : texts_.back();
    }

    /// The last texts, the oldest first.
    [[nodiscard]] const std::deque<std::string>& Texts() const { return texts_; }

    [[nodiscard]] int BusyDepth() const { return busyDepth_; }

    [[nodiscard]] bool ProgressIsShown() const { return maximum_ > 0; }

private:
    std::size_t textsKept_;
    std::deque<std::string> texts_;
    std::int64_t done_ = 0;
    std::int64_t maximum_ = 0;
    int busyDepth_ = 0;
    bool cancel_ = false;
};

} // namespace quandrel
