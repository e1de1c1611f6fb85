// SPDX-License-Identifier: MIT
//
// Bounds of the counts within cones about the axes of a cell, from the numbers of axes in cells.
//
// Seen from a cell, the cells that lie in every cone about a point of it, and those that lie in
// some, are the same for all cells of a ring. A ring of bounds is therefore a sum of differences of
// running totals, over arcs that move with the cell.

#pragma once

#include "density/axis_cells.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quandrel {

/// Running totals of axes along each ring, over one turn below and two turns above the first cell.
class RingTotals {
public:
    RingTotals(const AxisCells& axes, unsigned threads);

    /// The total before a cell, -Trends to 2 Trends. Totals of consecutive cells follow one
    /// another.
    [[nodiscard]] const std::int32_t* Before(int ring, int cell) const {
        return &totals_[static_cast<std::size_t>(ring) * Width()
                        + static_cast<std::size_t>(cell + turn_)];
    }

private:
    static constexpr int kTurns = 3;

    [[nodiscard]] std::size_t Width() const { return static_cast<std::size_t>(kTurns * turn_) + 1; }

    void FillRing(const AxisCells& axes, int ring);

    int turn_;
    std::vector<std::int32_t> totals_;
};

/// The cells of a ring that cones about the points of a cell reach, numbered from that cell: those
/// in every cone, and on both sides of them those in some or in part.
struct ArcsOfRing {
    int ring = 0;
    CellArcs arcs;
};

/// The arcs of the cones about the points of a cell, the same for all cells of its ring.
///
/// @param halfAngle  radians, 0 to kPi / 6
[[nodiscard]] std::vector<ArcsOfRing> ConesAbout(const CellRings& rings, int ring,
                                                 double halfAngle);

/// The bounds of the counts about the axes of each cell of a ring.
///
/// @param cones  of the ring
[[nodiscard]] std::vector<CountBounds>
BoundsOfRing(const RingTotals& totals, const std::vector<ArcsOfRing>& cones, int cells);

} // namespace quandrel
