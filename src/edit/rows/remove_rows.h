// SPDX-License-Identifier: MIT
//
// Removing rows from a plot.

#pragma once

#include <cstdint>
#include <span>

namespace quandrel {

/// Removes rows from a plot: from its columns, its counts, its overlays and its table. An overlay
/// without rows is removed. Does not draw. O(rows of the plot).
///
/// @param rows  point indices in ascending order, without repeats
void RemoveRows(int slot, std::span<const std::int32_t> rows);

/// Recomputes the range and the distinct values of the appended data of gActivePlot.
void RecountAppendedRange();

} // namespace quandrel
