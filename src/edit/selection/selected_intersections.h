// SPDX-License-Identifier: MIT
//
// The selection in a plot of beta intersections. What is drawn is what is selected: a marquee takes
// the intersections within it, of all pairs of planes. They can be copied and nothing else.

#pragma once

#include "orientation/angles.h"
#include "platform/surface.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// The most pairs of planes that are gone through for a selection, and the most of their
/// intersections that can be selected.
inline constexpr std::int64_t kMostPairs = 50'000'000;
inline constexpr std::size_t kMostSelectedIntersections = 2'000'000;

struct SelectedIntersections {
    std::vector<Direction> lines; ///< downward, one for each pair, in the order of the rows
    std::vector<Point> places;    ///< where they are drawn, each place once
    bool tooMany = false;         ///< there are more than can be: nothing is selected
    std::int64_t pairs = 0;       ///< that were gone through
};

/// True for an open plot that draws the intersections of its main rows in place of the rows.
[[nodiscard]] bool ShowsIntersections(int slot);

/// The intersections selected in a plot that shows them: those within the marquee that stands on
/// it; without a marquee those between the selected rows. Worked out once until rows, marquee or
/// selection change. O(pairs).
[[nodiscard]] const SelectedIntersections& IntersectionsSelectedIn(int slot);

/// The intersections between the planes of some rows of a plot, one for each pair that has one.
/// O(pairs).
[[nodiscard]] std::vector<Direction> IntersectionsBetween(int slot,
                                                          std::span<const std::int32_t> rows);

/// Pairs among the valid main rows of a list.
[[nodiscard]] std::int64_t PairsOfRows(int slot, std::span<const std::int32_t> rows);

/// True when gActivePlot shows intersections, which can only be copied; tells so.
[[nodiscard]] bool RefusesBetaPlot();

} // namespace quandrel
