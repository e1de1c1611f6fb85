// SPDX-License-Identifier: MIT
//
// Moves the rows of a plot together where some go, and apart where some come: the cells of all
// columns, the texts and the error lines. Counts, overlays and the table are left to the caller.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// Of rows 1 to count, those that are not among some others, ascending. O(count).
///
/// @param others  ascending, without repeats
[[nodiscard]] std::vector<std::int32_t> RowsBeside(std::span<const std::int32_t> others,
                                                   std::int32_t count);

/// Moves the rows after each of some rows up, over these. The cells after the last row keep what
/// they held. O(rows).
///
/// @param rows   ascending, without repeats, 1 to count
/// @param count  rows of the plot before
void CloseGaps(int slot, std::span<const std::int32_t> rows, std::int32_t count);

/// Moves rows down, so that some rows are between them whose cells are to be written: the inverse
/// of CloseGaps. Their texts are empty, and they have no error lines. Throws std::bad_alloc, before
/// anything has been moved but texts.
///
/// @param rows   ascending, without repeats, 1 to count
/// @param count  rows of the plot after it
void OpenGaps(int slot, std::span<const std::int32_t> rows, std::int32_t count);

} // namespace quandrel
