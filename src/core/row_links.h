// SPDX-License-Identifier: MIT
//
// For those that know rows of plots by their point indices, as the links to tables do: they are
// told here when the last rows go, and when the rows of a moment come back. Of rows that go from
// between others the edit tells itself. Rows that come stand behind the others.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace quandrel {

/// The one that follows the rows. Each may be empty.
struct RowFollower {
    /// The rows behind `last` have gone.
    std::function<void(int slot, std::int32_t last)> cut;

    /// What is known of the rows of a plot at the moment; nothing where that is nothing.
    std::function<std::shared_ptr<const void>(int slot)> keep;

    /// The rows of the plot are again those of the moment of `kept`.
    std::function<void(int slot, const std::shared_ptr<const void>& kept)> putBack;

    /// The edit that broke the link of a plot has been taken back: the link of the moment of `kept`
    /// is there again, if what it leads to is.
    std::function<void(int slot, const std::shared_ptr<const void>& kept)> linkAgain;

    /// The plot of a slot is closed.
    std::function<void(int slot)> closed;
};

extern RowFollower gRowFollower;

/// The table that a plot is linked to; empty for none. May be empty.
extern std::function<std::string(int slot)> gLinkedTable;

} // namespace quandrel
