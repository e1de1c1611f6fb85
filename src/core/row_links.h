// SPDX-License-Identifier: MIT
//
// The hook for code that refers to rows of plots by point indices, such as the links to tables. It
// is called when rows are removed, and when rows are restored by undo or redo. New rows come after
// the others.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace quandrel {

/// The follower of the rows. An empty function does nothing.
struct RowFollower {
    /// Rows of a linked plot are about to be removed: ascending point indices.
    std::function<void(int slot, std::span<const std::int32_t> rows)> leave = [](auto&&...) {};

    /// The rows after `last` have been removed.
    std::function<void(int slot, std::int32_t last)> cut = [](auto&&...) {};

    /// A snapshot of the follower's knowledge of a plot's rows; null where there is none.
    std::function<std::shared_ptr<const void>(int slot)> keep = [](int) { return nullptr; };

    /// The rows of the plot have been restored to the time of the snapshot `kept`.
    std::function<void(int slot, const std::shared_ptr<const void>& kept)> putBack = [](auto&&...) {
    };

    /// An edit has broken the link of a plot.
    std::function<void(int slot)> unlink = [](int) {};

    /// The edit that broke the link of a plot has been undone: the link at the time of the snapshot
    /// `kept` is restored, if its target still exists.
    std::function<void(int slot, const std::shared_ptr<const void>& kept)> linkAgain =
        [](auto&&...) {};

    /// The table to which a plot is linked; empty for none.
    std::function<std::string(int slot)> linkedTable = [](int) { return std::string(); };
};

/// Sets the follower of the rows; `{}` is none.
void ConnectRowFollower(RowFollower follower);

/// The follower of the rows.
[[nodiscard]] const RowFollower& FollowerOfRows();

/// Sets the function that is called before the plot of a slot closes; `{}` is none.
void ConnectClosing(std::function<void(int slot)> closing);

/// Reports that the plot of a slot is about to close.
void TellOfClosing(int slot);

} // namespace quandrel
