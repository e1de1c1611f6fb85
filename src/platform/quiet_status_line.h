// SPDX-License-Identifier: MIT
//
// A status line that nobody sees: for tests, and for scripts.

#pragma once

#include "platform/status_line.h"

#include <string>

namespace quandrel {

class QuietStatusLine : public StatusLine {
public:
    void SetText(std::string_view text) override { text_ = std::string(text); }

    void SetProgress(std::int64_t done, std::int64_t maximum) override {
        done_ = done;
        maximum_ = maximum;
    }

    void SetBusy(bool busy) override { busyDepth_ += busy ? 1 : -1; }

    [[nodiscard]] bool CancelRequested() override { return cancel_; }

    /// From now on the user wants every step to end.
    void RequestCancel() { cancel_ = true; }

    [[nodiscard]] const std::string& Text() const { return text_; }

    [[nodiscard]] int BusyDepth() const { return busyDepth_; }

    [[nodiscard]] bool ProgressIsShown() const { return maximum_ > 0; }

private:
    std::string text_;
    std::int64_t done_ = 0;
    std::int64_t maximum_ = 0;
    int busyDepth_ = 0;
    bool cancel_ = false;
};

} // namespace quandrel
