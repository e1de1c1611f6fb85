// SPDX-License-Identifier: MIT
//
// Formats suggested for tables with an orientation in one cell: "045/60NE".

#pragma once

#include "input/suggest/format_suggestion.h"
#include "input/suggest/table_columns.h"

#include <vector>

namespace quandrel {

/// Formats for the first column whose cells are mostly pairs of an azimuth and a dip or plunge.
/// Empty without one.
///
/// @param basis  what a suggestion does not say is as here
[[nodiscard]] std::vector<FormatSuggestion> SuggestionsOfPairs(const TextTable& table,
                                                               const FormatChoice& basis);

} // namespace quandrel
