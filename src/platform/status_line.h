// SPDX-License-Identifier: MIT
//
// The signs of life during a long step.

#pragma once

#include <cstdint>
#include <string_view>

namespace quandrel {

class StatusLine {
public:
    virtual ~StatusLine() = default;

    virtual void SetText(std::string_view text) = 0;

    /// Shows how far a step has come, of a maximum above 0. SetProgress(0, 0) takes the bar away.
    virtual void SetProgress(std::int64_t done, std::int64_t maximum) = 0;

    /// Shows or takes away the busy pointer. Calls nest.
    virtual void SetBusy(bool busy) = 0;

    /// True once the user has asked for the step in work to end. Asked at most some times a second.
    [[nodiscard]] virtual bool CancelRequested() = 0;
};

/// The busy pointer for the length of a block.
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
