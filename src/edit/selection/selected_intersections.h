// SPDX-License-Identifier: MIT
//
// The selection in a plot of beta intersections. A marquee selects the drawn intersections within
// it, of all pairs of planes. They can only be copied.

#pragma once

#include "orientation/angles.h"
#include "platform/surface.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// Largest number of pairs of planes examined for a selection, and of intersections that can be
/// selected.
inline constexpr std::int64_t kMostPairs = 50'000'000;
inline constexpr std::size_t kMostSelectedIntersections = 2'000'000;

struct SelectedIntersections {
    std::vector<Direction> lines; ///< downward, one for each pair, in row order
    std::vector<Point> places;    ///< their drawn positions, each once
    bool tooMany = false;         ///< the limits are exceeded: nothing is selected
    std::int64_t pairs = 0;       ///< number of pairs examined
};

/// True for an open plot that draws the intersections of its main rows instead of the rows.
[[nodiscard]] bool ShowsIntersections(int slot);

/// The selected intersections of a plot that shows them: those within the marquee on it; without a
/// marquee, those between the selected rows. Cached until rows, marquee or selection change.
/// O(pairs).
[[nodiscard]] const SelectedIntersections& IntersectionsSelectedIn(int slot);

/// The intersections between the planes of some rows of a plot, one for each pair that is not
/// parallel. O(pairs).
[[nodiscard]] std::vector<Direction> IntersectionsBetween(int slot,
                                                          std::span<const std::int32_t> rows);

/// Number of pairs of valid main rows in a list.
[[nodiscard]] std::int64_t PairsOfRows(int slot, std::span<const std::int32_t> rows);

/// True, with a message, when gActivePlot shows intersections, which can only be copied.
[[nodiscard]] bool RefusesBetaPlot();

} // namespace quandrel
