// SPDX-License-Identifier: MIT
//
// The parts of a shared legend, in columns on the page of a figure sheet.

#pragma once

#include "drawing/figure_text_rule.h"
#include "sheet/shared_legend.h"

#include <cstddef>
#include <vector>

namespace quandrel {

/// Each entry and each bar as a legend of its own.
[[nodiscard]] std::vector<FigureLegend> PartsOf(SharedLegend shared);

/// The width of the widest part in one line.
[[nodiscard]] double WidestOf(const std::vector<FigureLegend>& parts, const TextRule& rule);

/// Adds parts to a layout, row by row.
///
/// @param room     its height does not count
/// @param columns  at least 1
/// @return the height of all rows
double PlaceParts(const std::vector<FigureLegend>& parts, const TextRule& rule,
                  const FigureBox& room, std::size_t columns, FigureLayout& legend);

} // namespace quandrel
