// SPDX-License-Identifier: MIT
//
// Rows of different plots that belong together: the rows of a plot, and the kinematic axes or
// intersection lines derived from them. Rows selected in one plot are highlighted in the others.

#pragma once

#include "platform/surface.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// The rows of a plot that belong to rows of another one, ascending. Empty for unrelated plots, and
/// for those whose parent has been closed.
///
/// Derived lines are identified by their orientation: the rows of the derived plot that equal the
/// lines computed from a row belong to it; rows with coinciding lines share them. In two plots of
/// axes of one parent, the rows of P and T with the same number belong together.
[[nodiscard]] std::vector<std::int32_t> RowsLinkedTo(std::int32_t slot, std::int32_t source,
                                                     std::span<const std::int32_t> rows);

/// The highlighted rows of a plot: those selected in it, or linked to rows selected elsewhere.
[[nodiscard]] std::vector<std::int32_t> LitRows(std::int32_t slot);

/// The positions of the highlighted rows of a plot that are drawn as points, each once; in a plot
/// of beta intersections, those of the selected ones. Cached until rows or selection change.
[[nodiscard]] const std::vector<Point>& LitPlaces(std::int32_t slot);

/// The poles of the highlighted rows of a plot that are drawn as great circles. Cached as above.
[[nodiscard]] const std::vector<Point>& LitArcs(std::int32_t slot);

} // namespace quandrel
