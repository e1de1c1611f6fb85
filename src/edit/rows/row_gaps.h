// SPDX-License-Identifier: MIT
//
// Closing gaps where rows of a plot are removed, and opening them where rows are added: for the
// cells of all columns, the texts and the error lines. Counts, overlays and the table are left to
// the caller.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// Those of the rows 1 to count that are not in `others`, ascending. O(count).
///
/// @param others  ascending, without repeats
[[nodiscard]] std::vector<std::int32_t> RowsBeside(std::span<const std::int32_t> others,
                                                   std::int32_t count);

/// Moves the rows after each of some rows up over it. The cells after the last row are unchanged.
/// O(rows).
///
/// @param rows   ascending, without repeats, 1 to count
/// @param count  number of rows of the plot before
void CloseGaps(int slot, std::span<const std::int32_t> rows, std::int32_t count);

/// Moves rows down to make room for some rows, whose cells have to be written: the inverse of
/// CloseGaps. Their texts are empty, and they have no error lines. Throws std::bad_alloc before
/// anything but texts has been moved.
///
/// @param rows   ascending, without repeats, 1 to count
/// @param count  number of rows of the plot after
void OpenGaps(int slot, std::span<const std::int32_t> rows, std::int32_t count);

} // namespace quandrel
