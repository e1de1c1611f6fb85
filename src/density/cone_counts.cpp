// SPDX-License-Identifier: MIT

#include "density/cone_counts.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kDegree = kPi / 180;

// Cosines this close to that of the cone are decided by the exact rule.
constexpr double kUnsureCosine = 1e-12;

struct RowTotal {
    const LineHistogram& rows;
    std::int32_t sum = 0;

    void AddRing(int plunge) { sum += rows.OnRing(plunge); }

    void AddArc(int plunge, int first, int last) { sum += rows.OnArc(plunge, first, last); }

    void AddLine(int plunge, int trend) { sum += rows.At(plunge, trend); }
};

/// The trends, relative to that of a line, at which the lines of another ring are within the
/// counting cone: up to `near` on either side, and up to `far` around the opposite trend. -1 means
/// none, 180 all.
struct Reach {
    int near = -1;
    int far = -1;
};

/// Half the width of an arc in whole degrees; `bound` is its cosine.
int HalfWidth(double bound) {
    if (bound > 1) {
        return -1;
    }
    return bound <= -1 ? 180 : static_cast<int>(std::acos(bound) / kDegree);
}

/// No two whole-degree lines have a cosine within 1e-9 of the cone's, so no tolerance is needed.
Reach ReachOf(int plunge, int otherPlunge) {
    const WholeDegrees& degrees = WholeDegreeTable();
    const auto from = static_cast<std::size_t>(plunge);
    const auto to = static_cast<std::size_t>(otherPlunge);
    const double bound = std::cos(kCountCone);
    const double height = degrees.sine[from] * degrees.sine[to];
    const double product = degrees.cosine[from] * degrees.cosine[to];
    return {HalfWidth((bound - height) / product), HalfWidth((bound + height) / product)};
}

using RingCounts = std::array<std::int32_t, 360>;

/// Adds the rows of a ring to the counts of cones about the lines of another ring.
void AddRing(const LineHistogram& rows, int ring, const Reach& reach, RingCounts& counts) {
    if (reach.near >= 180) {
        const std::int32_t all = rows.OnRing(ring);
        for (std::int32_t& count : counts) {
            count += all;
        }
        return;
    }
    // Neighbouring cones read neighbouring totals: one sequential run for the whole ring.
    const auto addArcs = [&](int centre, int halfWidth) {
        const std::int32_t* const upper = rows.Below(ring, centre + halfWidth + 1);
        const std::int32_t* const lower = rows.Below(ring, centre - halfWidth);
        for (std::size_t trend = 0; trend < counts.size(); ++trend) {
            counts[trend] += upper[trend] - lower[trend];
        }
    };
    if (reach.near >= 0) {
        addArcs(0, reach.near);
    }
    if (reach.far >= 0) {
        addArcs(180, reach.far);
    }
}

/// Counts of cones about the 360 lines of one plunge.
RingCounts CountsOfRing(const LineHistogram& rows, int plunge) {
    constexpr int kReach = 12; // degrees, more than the cone's half-angle
    RingCounts counts{};
    for (int ring = std::max(plunge - kReach, 0); ring <= std::min(plunge + kReach, kRings - 1);
         ++ring) {
        AddRing(rows, ring, ReachOf(plunge, ring), counts);
    }
    return counts;
}

} // namespace

const WholeDegrees& WholeDegreeTable() {
    static const WholeDegrees table = [] {
        WholeDegrees made;
        for (std::size_t degree = 0; degree < made.sine.size(); ++degree) {
            made.sine[degree] = std::sin(DegToRad(static_cast<double>(degree)));
            made.cosine[degree] = std::cos(DegToRad(static_cast<double>(degree)));
        }
        return made;
    }();
    return table;
}

CountingCone::CountingCone(double plunge, double trend, double angle)
    : plunge_(std::abs(plunge))
    , trend_(trend)
    , angle_(angle)
    , cosAngle_(std::cos(angle))
    , sinPlunge_(std::sin(plunge_))
    , cosPlunge_(std::cos(plunge_))
    , sinTrend_(std::sin(trend))
    , cosTrend_(std::cos(trend))
    , trendDegrees_(WrappedAngle(trend) / kDegree)
    , firstRing_(
          std::max(static_cast<int>(std::ceil((plunge_ - angle) / kDegree - kUnsureDegrees)), 0))
    , lastRing_(std::min(static_cast<int>(std::floor((plunge_ + angle) / kDegree + kUnsureDegrees)),
                         kRings - 1)) {}

bool CountingCone::Contains(int plungeDegrees, int trendDegrees) const {
    const WholeDegrees& degrees = WholeDegreeTable();
    const auto plunge = static_cast<std::size_t>(plungeDegrees);
    const auto trend = static_cast<std::size_t>(trendDegrees);
    const double cosine = (cosTrend_ * degrees.cosine[trend] + sinTrend_ * degrees.sine[trend])
                              * cosPlunge_ * degrees.cosine[plunge]
                          + sinPlunge_ * degrees.sine[plunge];
    const double excess = std::abs(cosine) - cosAngle_;
    if (std::abs(excess) > kUnsureCosine) {
        return excess > 0;
    }
    double between = 0;
    AngleBetweenLines(plunge_, trend_, DegToRad(plungeDegrees), DegToRad(trendDegrees), between,
                      LineAngle::kAcute);
    return between <= angle_;
}

std::int32_t RowsOf(std::span<const DistinctLine> lines) {
    std::int32_t rows = 0;
    for (const DistinctLine& line : lines) {
        rows += line.rows;
    }
    return rows;
}

LineHistogram::LineHistogram(std::span<const DistinctLine> lines)
    : rows_(std::make_unique<std::array<std::array<std::int32_t, kRingTrends>, kRings>>())
    , running_(std::make_unique<std::array<Totals, kRings>>()) {
    std::array<bool, kRings> hasLines{};
    for (const DistinctLine& line : lines) {
        (*rows_)[Place(std::abs(line.plunge))][Place(line.trend)] += line.rows;
        hasLines[Place(std::abs(line.plunge))] = true;
    }
    for (std::size_t ring = 0; ring < rows_->size(); ++ring) {
        if (!hasLines[ring]) {
            continue; // empty ring
        }
        const std::array<std::int32_t, kRingTrends>& rows = (*rows_)[ring];
        Totals& totals = (*running_)[ring];
        std::size_t trend = 360 - kArcReach;
        for (std::size_t place = 0; place + 1 < totals.size(); ++place) {
            totals[place + 1] = totals[place] + rows[trend] + (trend == 0 ? rows.back() : 0);
            trend = trend == 359 ? 0 : trend + 1;
        }
    }
}

std::int32_t CountWithin(const LineHistogram& rows, double plunge, double trend, double cone) {
    RowTotal total{rows};
    CountingCone(plunge, trend, cone).Scan(total);
    return total.sum;
}

std::vector<std::int32_t> CountsOfLines(std::span<const DistinctLine> lines) {
    const LineHistogram rows(lines);
    std::array<RingCounts, kRings> counts;
    std::array<bool, kRings> known{};
    std::vector<std::int32_t> result;
    result.reserve(lines.size());
    for (const DistinctLine& line : lines) {
        const auto ring = static_cast<std::size_t>(std::abs(line.plunge));
        if (!known[ring]) {
            counts[ring] = CountsOfRing(rows, static_cast<int>(ring));
            known[ring] = true;
        }
        result.push_back(counts[ring][static_cast<std::size_t>(line.trend % 360)]);
    }
    return result;
}

} // namespace quandrel
