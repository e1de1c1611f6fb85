// SPDX-License-Identifier: MIT
//
// The sense of a row, by which it has the style of its kind or that of upward rows.
//
// Rows keep the style of their whole degrees. A nearly level line that points up is level in whole
// degrees; where its plot uses decimals, it is drawn in the style of upward rows.

#pragma once

#include "core/plot.h"
#include "core/style_tables.h"

#include <cstdint>

namespace quandrel {

/// Whether a row keeps the style of rows that point upward: by the sign of the orientation shown in
/// whole degrees, whether the plot uses decimals or not. False for a row that cannot be plotted.
[[nodiscard]] bool IsStyledUpward(const Plot& plot, std::int32_t row);

/// The drawing code that a new row of a plot takes.
///
/// @param overlay  the overlay of the row, or 0
/// @param upward   the row's dip or plunge is negative
[[nodiscard]] SymbolCode CodeOfNewRow(const Styles& styles, const PlotRecord& record, int overlay,
                                      bool upward);

/// The drawing code by which a row is drawn: its own, unless its own is the style of a sense that
/// it does not have as it is shown.
[[nodiscard]] SymbolCode CodeShown(const Plot& plot, const Styles& styles, std::int32_t row);

} // namespace quandrel
