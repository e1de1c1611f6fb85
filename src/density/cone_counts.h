// SPDX-License-Identifier: MIT
//
// Counting rows within a cone. Lines are undirected: a line counts when it, or its opposite, is
// within the cone, including its boundary. The counts equal those of AngleBetweenLines for each
// row.
//
// Rows are whole degrees, so they are first counted by plunge and trend. A cone then costs two
// differences of running totals for each ring of equal plunge that it meets, whatever the number of
// rows.

#pragma once

#include "density/cone_scan.h"
#include "stereo/distinct_lines.h"

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace quandrel {

/// Half-angle of the counting cone, radians: its cosine is 0.98.
// Kept: both ends of the cone together are 2% of the sphere, and the one on the net 2% of the net.
// What is called the density in 1% of the area is the share of the rows in this cone.
inline constexpr double kCountCone = 0.200334842323118;

/// The same for nodes of a grid: a 32-bit number, about 1e-8 wider. A vertical line whose cone ends
/// on a node of the equal area net counts there.
inline constexpr double kGridCountCone = 0.20033485;

/// Sum of the rows of some lines.
[[nodiscard]] std::int32_t RowsOf(std::span<const DistinctLine> lines);

/// Rows by plunge and trend, with running totals along each ring of equal plunge. 0.4 MB.
class LineHistogram {
public:
    /// O(lines).
    explicit LineHistogram(std::span<const DistinctLine> lines);

    /// Rows of one line, plunge 0 to 90; trend 0 and 360 are separate.
    [[nodiscard]] std::int32_t At(int plunge, int trend) const {
        return (*rows_)[Place(plunge)][Place(trend)];
    }

    /// Rows of a ring.
    [[nodiscard]] std::int32_t OnRing(int plunge) const { return OnArc(plunge, 0, 359); }

    /// Rows of a ring, trends `first` to `last` in -kArcReach to 360 + kArcReach, a full turn at
    /// most.
    [[nodiscard]] std::int32_t OnArc(int plunge, int first, int last) const {
        const Totals& totals = (*running_)[Place(plunge)];
        return totals[Place(last + 1 + kArcReach)] - totals[Place(first + kArcReach)];
    }

    /// Running total of a ring: the rows below a trend, from -kArcReach. Consecutive trends are
    /// consecutive elements.
    [[nodiscard]] const std::int32_t* Below(int plunge, int trend) const {
        return (*running_)[Place(plunge)].data() + Place(trend + kArcReach);
    }

private:
    static constexpr std::size_t kTotals = 360 + 2 * kArcReach + 2;

    using Totals = std::array<std::int32_t, kTotals>;

    static std::size_t Place(int value) { return static_cast<std::size_t>(value); }

    std::unique_ptr<std::array<std::array<std::int32_t, kRingTrends>, kRings>> rows_;
    std::unique_ptr<std::array<Totals, kRings>> running_;
};

/// Rows within a cone about a line.
///
/// @param plunge, trend  of the axis, radians; the sign of the plunge is ignored
/// @param cone           half-angle, radians, below kPi / 4
[[nodiscard]] std::int32_t CountWithin(const LineHistogram& rows, double plunge, double trend,
                                       double cone);

/// Rows within kCountCone of each line, including itself; one count for each line, in order.
/// O(lines) plus a third of a millisecond.
[[nodiscard]] std::vector<std::int32_t> CountsOfLines(std::span<const DistinctLine> lines);

} // namespace quandrel
