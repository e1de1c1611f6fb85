// SPDX-License-Identifier: MIT
//
// Axes of any precision, sorted for counting within cones.
//
// Axes are undirected: an axis and its opposite are one, and the distance of two is their acute
// angle. They are sorted into cells of equal plunge and trend. A cone takes runs of cells that lie
// wholly within it by running totals, and looks at single axes only in the cells on its border. The
// counts are exactly those of looking at each axis: the same sums of products, the same bound.

#pragma once

#include "core/plot.h"
#include "density/cone_tests.h"
#include "density/ring_reach.h"
#include "stereo/measured_line.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace quandrel {

/// Axes `first` to before `end`, by their places in the order of their cells.
struct AxisRun {
    std::int32_t first = 0;
    std::int32_t end = 0;
};

class AxisCells {
public:
    /// Sorts axes. O(n); 44 bytes an axis, and up to 0.5 MB.
    ///
    /// @param lines    in either sense, at most 2^31 - 1
    /// @param threads  1 or more; the order does not depend on them
    explicit AxisCells(std::span<const MeasuredLine> lines, unsigned threads = 1);

    /// How many axes there are.
    [[nodiscard]] std::int32_t Count() const { return count_; }

    /// How many axes lie within a cone, the bound included.
    ///
    /// @param halfAngle  radians, 0 to kPi / 4
    [[nodiscard]] std::int32_t CountWithin(const MeasuredLine& centre, double halfAngle) const;

    /// Calls a function with the number of each axis within a cone, in the order of the cells.
    ///
    /// @param visit  takes the place of the axis in the constructor's order
    template <class Visit>
    void VisitWithin(const MeasuredLine& centre, double halfAngle, Visit visit) const {
        const Direction axis = AxisOf(centre);
        const double cosine = std::cos(halfAngle);
        Scan(
            centre, halfAngle,
            [&](const AxisRun& run) {
                for (std::int32_t place = run.first; place < run.end; ++place) {
                    visit(NumberAt(place));
                }
            },
            [&](const AxisRun& run) {
                for (std::int32_t place = run.first; place < run.end; ++place) {
                    if (AreWithin(AxisAt(place), axis, cosine)) {
                        visit(NumberAt(place));
                    }
                }
            });
    }

    /// How many axes of a run lie within a cone.
    ///
    /// @param cosine  of the half-angle
    [[nodiscard]] std::int32_t CountInRun(const AxisRun& run, const Direction& centre,
                                          double cosine) const;

    [[nodiscard]] const CellRings& Rings() const { return rings_; }

    /// The axes of cells `first` to before `end` of a ring.
    [[nodiscard]] AxisRun RunOf(int ring, int first, int end) const {
        const std::size_t base = static_cast<std::size_t>(ring) * Trends();
        return {starts_[base + static_cast<std::size_t>(first)],
                starts_[base + static_cast<std::size_t>(end)]};
    }

    /// The axis at a place of the order of the cells, pointing down.
    [[nodiscard]] Direction AxisAt(std::int32_t place) const {
        const SortedAxis& axis = axes_[static_cast<std::size_t>(place)];
        return {axis.north, axis.east, axis.down};
    }

    /// The number of the axis at a place in the constructor's order.
    [[nodiscard]] std::int32_t NumberAt(std::int32_t place) const {
        return axes_[static_cast<std::size_t>(place)].number;
    }

    /// The axes in single precision, in the order of the cells. kBeyond more may be read after the
    /// last one.
    [[nodiscard]] AxisColumns Columns() const {
        return {norths_.get(), easts_.get(), downs_.get()};
    }

    static constexpr std::size_t kBeyond = 16;

    /// Calls `visit` with the axes of cells `first` to before `end` of a ring, in one or two runs;
    /// cells may be numbered from one turn below 0 to one turn above the last.
    template <class Visit>
    void VisitArc(int ring, int first, int end, const Visit& visit) const {
        const int turn = rings_.Trends();
        const int shift = first < 0 ? turn : first >= turn ? -turn : 0;
        if (first >= end) {
            return;
        }
        visit(RunOf(ring, first + shift, std::min(end + shift, turn)));
        if (end + shift > turn) {
            visit(RunOf(ring, 0, end + shift - turn));
        }
    }

    /// Calls `inside` with runs of axes in cells that lie wholly within a cone, and `border` with
    /// runs of axes that may lie within it. All others lie outside.
    template <class Inside, class Border>
    void Scan(const MeasuredLine& centre, double halfAngle, const Inside& inside,
              const Border& border) const {
        ConeReach reach;
        const double place = centre.trend * rings_.CellsPerRadian();
        rings_.FindNear(centre.plunge, halfAngle, reach);
        ScanRings(reach, place, inside, border);
        rings_.FindFar(centre.plunge, halfAngle, reach);
        ScanRings(reach, place + rings_.Trends() / 2.0, inside, border);
    }

private:
    [[nodiscard]] std::size_t Trends() const { return static_cast<std::size_t>(rings_.Trends()); }

    template <class Inside, class Border>
    void ScanRings(const ConeReach& reach, double place, const Inside& inside,
                   const Border& border) const {
        int ring = reach.first;
        for (const Reach& one : reach.rings) {
            const CellArcs arcs = ArcsOf(one, place, rings_);
            VisitArc(ring, arcs.first, arcs.firstInside, border);
            VisitArc(ring, arcs.firstInside, arcs.endInside, inside);
            VisitArc(ring, arcs.endInside, arcs.end, border);
            ++ring;
        }
    }

    /// Without initial values, so that the threads that sort are the first to touch the memory.
    struct SortedAxis {
        double north;
        double east;
        double down;
        std::int32_t number; ///< in the constructor's order
    };

    struct LineOfRing;

    void SortRing(int ring, std::span<const LineOfRing> own);
    void Store(std::int32_t place, const MeasuredLine& line, std::int32_t number);

    CellRings rings_;
    std::int32_t count_;
    std::vector<std::int32_t> starts_; ///< the first axis of each cell, by ring and trend
    std::unique_ptr<SortedAxis[]> axes_;
    std::unique_ptr<float[]> norths_;
    std::unique_ptr<float[]> easts_;
    std::unique_ptr<float[]> downs_;
};

/// The measured axes of the main rows of a plot in cells, in the order of LinesOf. They are cached
/// with the plot. Null for a plot of whole degrees.
[[nodiscard]] const AxisCells* MeasuredCellsOf(Plot& plot);

/// How many axes lie within cones about some lines, one count for each. Several threads share the
/// work; the result does not depend on them.
///
/// @param halfAngle  radians, 0 to kPi / 4
/// @param threads    1 or more
/// @param onDone     called by the caller's thread from time to time with the cones that are done
[[nodiscard]] std::vector<std::int32_t>
CountsAbout(const AxisCells& axes, std::span<const MeasuredLine> centres, double halfAngle,
            unsigned threads, const std::function<void(std::int64_t)>& onDone);

} // namespace quandrel
