// SPDX-License-Identifier: MIT
//
// Public lines as the statistics take rows: in whole degrees by their number, or measured.

#pragma once

#include "quandrel/orientation.h"
#include "stereo/distinct_lines.h"

#include <span>

namespace quandrel::api {

/// Checked lines, as many as a plot can have at most. They are in whole degrees if all are. O(n).
[[nodiscard]] RowLines RowLinesIn(std::span<const Line> lines);

/// A checked line in radians.
[[nodiscard]] MeasuredLine MeasuredIn(const Line& line);

} // namespace quandrel::api
