// SPDX-License-Identifier: MIT
//
// Takes rows out of a plot.

#pragma once

#include <cstdint>
#include <span>

namespace quandrel {

/// Takes rows out of a plot: out of its columns, its counts, its overlays and its table. An overlay
/// that has none left goes. Does not draw. O(rows of the plot).
///
/// @param rows  point indices in ascending order, without repeats
void RemoveRows(int slot, std::span<const std::int32_t> rows);

/// Works the range and the distinct values of the appended data of gActivePlot out anew.
void RecountAppendedRange();

} // namespace quandrel
