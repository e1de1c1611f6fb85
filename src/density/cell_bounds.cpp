// SPDX-License-Identifier: MIT

#include "density/cell_bounds.h"

#include "density/shared_work.h"

namespace quandrel {

namespace {

/// Adds the arcs of one end of the cones.
///
/// @param narrow,wide  the reaches of the cones less and more the radius of a cell
/// @param place        of the middle of the arcs in cells, relative to the cell
void AddEnd(const CellRings& rings, const ConeReach& narrow, const ConeReach& wide, double place,
            std::vector<ArcsOfRing>& cones) {
    int ring = wide.first;
    for (const Reach& outer : wide.rings) {
        const int inNarrow = ring - narrow.first;
        const bool isInNarrow = inNarrow >= 0 && inNarrow < static_cast<int>(narrow.rings.size());
        const double inner =
            isInNarrow ? narrow.rings[static_cast<std::size_t>(inNarrow)].inner : -1;
        const CellArcs arcs = ArcsOf({inner, outer.outer}, place, rings);
        if (arcs.first < arcs.end) {
            cones.push_back({ring, arcs});
        }
        ++ring;
    }
}

/// Adds the axes from one cell to before another, about each cell of a ring.
void AddTotals(const RingTotals& totals, int ring, int first, int end,
               std::vector<std::int32_t>& sums) {
    const std::int32_t* const upper = totals.Before(ring, end);
    const std::int32_t* const lower = totals.Before(ring, first);
    for (std::size_t cell = 0; cell < sums.size(); ++cell) {
        sums[cell] += upper[cell] - lower[cell];
    }
}

} // namespace

RingTotals::RingTotals(const AxisCells& axes, unsigned threads)
    : turn_(axes.Rings().Trends())
    , totals_(static_cast<std::size_t>(axes.Rings().Rings()) * Width()) {
    ShareWork(axes.Rings().Rings(), 1, threads, [&](unsigned, std::int64_t ring, std::int64_t) {
        FillRing(axes, static_cast<int>(ring));
    });
}

void RingTotals::FillRing(const AxisCells& axes, int ring) {
    std::int32_t* const totals = &totals_[static_cast<std::size_t>(ring) * Width()];
    const std::int32_t first = axes.RunOf(ring, 0, 0).first;
    const std::int32_t all = axes.RunOf(ring, 0, turn_).end - first;
    for (int cell = 0; cell <= turn_; ++cell) {
        const std::int32_t total = axes.RunOf(ring, cell, cell).first - first;
        for (int turns = 0; turns < kTurns; ++turns) {
            totals[turns * turn_ + cell] = total + turns * all;
        }
    }
}

std::vector<ArcsOfRing> ConesAbout(const CellRings& rings, int ring, double halfAngle) {
    const double plunge = rings.MiddleOf(ring);
    const double radius = rings.RadiusOfCell(ring);
    std::vector<ArcsOfRing> cones;
    ConeReach narrow;
    ConeReach wide;
    rings.FindNear(plunge, halfAngle + radius, wide);
    if (halfAngle > radius) {
        rings.FindNear(plunge, halfAngle - radius, narrow);
    }
    AddEnd(rings, narrow, wide, 0.5, cones);
    rings.FindFar(plunge, halfAngle + radius, wide);
    narrow = {};
    if (halfAngle > radius) {
        rings.FindFar(plunge, halfAngle - radius, narrow);
    }
    AddEnd(rings, narrow, wide, 0.5 + rings.Trends() / 2.0, cones);
    return cones;
}

std::vector<CountBounds> BoundsOfRing(const RingTotals& totals,
                                      const std::vector<ArcsOfRing>& cones, int cells) {
    std::vector<std::int32_t> least(static_cast<std::size_t>(cells));
    std::vector<std::int32_t> most(least.size());
    for (const auto& [ring, arcs] : cones) {
        if (arcs.firstInside < arcs.endInside) {
            AddTotals(totals, ring, arcs.firstInside, arcs.endInside, least);
        }
        AddTotals(totals, ring, arcs.first, arcs.end, most);
    }
    std::vector<CountBounds> bounds(least.size());
    for (std::size_t cell = 0; cell < bounds.size(); ++cell) {
        bounds[cell] = {least[cell], most[cell]};
    }
    return bounds;
}

} // namespace quandrel
