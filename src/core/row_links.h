// SPDX-License-Identifier: MIT
//
// For those that know rows of plots by their point indices, as the links to tables do: they are
// told here when rows go, and when the rows of a moment come back. Rows that come stand after the
// others.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace quandrel {

/// The one that follows the rows. What it leaves out does nothing.
struct RowFollower {
    /// Rows of a linked plot are about to go: ascending point indices.
    std::function<void(int slot, std::span<const std::int32_t> rows)> leave = [](auto&&...) {};

    /// The rows after `last` have gone.
    std::function<void(int slot, std::int32_t last)> cut = [](auto&&...) {};

    /// What is known of the rows of a plot at the moment; nothing where that is nothing.
    std::function<std::shared_ptr<const void>(int slot)> keep = [](int) { return nullptr; };

    /// The rows of the plot are again those of the moment of `kept`.
    std::function<void(int slot, const std::shared_ptr<const void>& kept)> putBack = [](auto&&...) {
    };

    /// An edit has broken the link of a plot.
    std::function<void(int slot)> unlink = [](int) {};

    /// The edit that broke the link of a plot has been taken back: the link of the moment of `kept`
    /// is there again, if what it leads to is.
    std::function<void(int slot, const std::shared_ptr<const void>& kept)> linkAgain =
        [](auto&&...) {};

    /// The table that a plot is linked to; empty for none.
    std::function<std::string(int slot)> linkedTable = [](int) { return std::string(); };
};

/// Says who follows the rows; `{}` is nobody.
void ConnectRowFollower(RowFollower follower);

/// The one that follows the rows.
[[nodiscard]] const RowFollower& FollowerOfRows();

/// Says who is told that the plot of a slot closes, while it is open; `{}` is nobody.
void ConnectClosing(std::function<void(int slot)> closing);

/// Tells that the plot of a slot closes.
void TellOfClosing(int slot);

} // namespace quandrel
