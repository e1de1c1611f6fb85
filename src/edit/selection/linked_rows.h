// SPDX-License-Identifier: MIT
//
// Rows of different plots that belong together: the rows of a plot and what is made of them, the
// kinematic axes of faults or the lines in which two planes meet. What is selected in one is lit in
// the others.

#pragma once

#include "platform/surface.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// The rows of a plot that belong to rows of another one. Ascending; none for plots that have
/// nothing to do with each other, or whose parent has been closed.
///
/// Derived lines are known by their orientation: those of a row, as they are worked out from it,
/// are the rows of the derived plot, and rows whose lines fall together share them. Of two plots of
/// axes of one parent, the rows of P and T with one number belong together.
[[nodiscard]] std::vector<std::int32_t> RowsLinkedTo(std::int32_t slot, std::int32_t source,
                                                     std::span<const std::int32_t> rows);

/// The rows of a plot that are lit: those selected in it, or linked to rows selected elsewhere.
[[nodiscard]] std::vector<std::int32_t> LitRows(std::int32_t slot);

/// Where the lit rows of a plot that are drawn as points are plotted, each place once; of a plot of
/// beta intersections, where the selected ones are. Kept from call to call while rows and selection
/// stay.
[[nodiscard]] const std::vector<Point>& LitPlaces(std::int32_t slot);

/// The poles of the lit rows of a plot that are drawn as great circles. Kept likewise.
[[nodiscard]] const std::vector<Point>& LitArcs(std::int32_t slot);

} // namespace quandrel
