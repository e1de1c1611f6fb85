// SPDX-License-Identifier: MIT
//
// Texts beside the symbols of rows.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"
#include "stereo/row_drawing.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// A layer with more rows than this has no texts: nobody could read them.
inline constexpr std::int64_t kMostLabelledRows = 500;

/// The text of a row: its appended text, else its number in the plot.
[[nodiscard]] std::string LabelOfRow(const Plot& plot, std::int32_t row);

/// Writes the text of each row that is not hidden beside its position, in the order of the table. A
/// text that would lie on an earlier one is left out, and none reaches beyond the net in the east,
/// where figures may end.
void DrawRowLabels(const Plot& plot, const Drawing& drawing, const RowSet& rows);

} // namespace quandrel
