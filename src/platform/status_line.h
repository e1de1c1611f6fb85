// SPDX-License-Identifier: MIT
//
// What a long step shows of its progress.

#pragma once

#include <cstdint>
#include <string_view>

namespace quandrel {

class StatusLine {
public:
    virtual ~StatusLine() = default;

    virtual void SetText(std::string_view text) = 0;

    /// Shows the progress of a step, done of a maximum above 0. SetProgress(0, 0) removes the bar.
    virtual void SetProgress(std::int64_t done, std::int64_t maximum) = 0;

    /// Shows or removes the busy pointer. Calls nest.
    virtual void SetBusy(bool busy) = 0;

    /// True after the user has asked for the current step to end. Polled at most a few times a
    /// second.
    [[nodiscard]] virtual bool CancelRequested() = 0;
};

/// Shows the busy pointer until the end of a block.
class BusyPointer {
public:
    explicit BusyPointer(StatusLine& status)
        : status_(status) {
        status_.SetBusy(true);
    }

    ~BusyPointer() { status_.SetBusy(false); }

    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    StatusLine& status_;
};

} // namespace quandrel
