// SPDX-License-Identifier: MIT
//
// The lines of chosen rows, main ones and those of overlays.

#pragma once

#include "core/plot.h"
#include "stereo/distinct_lines.h"
#include "stereo/row_drawing.h"

#include <cstdint>
#include <functional>

namespace quandrel {

/// The lines of chosen rows as the plot shows them, without error rows: one for each row in a plot
/// that uses decimals, else the distinct ones in the order of their numbers. O(rows).
///
/// @param isWanted  of a point index
[[nodiscard]] RowLines LinesOfRows(const Plot& plot,
                                   const std::function<bool(std::int32_t row)>& isWanted);

/// The same of the rows of a set at their positions, hidden ones included.
[[nodiscard]] RowLines LinesOfRows(const Plot& plot, const RowSet& set);

} // namespace quandrel
