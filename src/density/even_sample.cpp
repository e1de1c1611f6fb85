// SPDX-License-Identifier: MIT

#include "density/even_sample.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace quandrel {

namespace {

/// A number of a Poisson distribution, by inversion.
std::int32_t SmallPoisson(RandomStream& random, double mean) {
    const double share = random.Uniform();
    double term = std::exp(-mean);
    double sum = term;
    std::int32_t number = 0;
    while (sum < share && term > 0) {
        term *= mean / ++number;
        sum += term;
    }
    return number;
}

/// A number of a Poisson distribution, as the sum of some of smaller means.
std::int32_t Poisson(RandomStream& random, double mean) {
    constexpr double kMostAtOnce = 500; // exp(-500) is still a normal number
    std::int32_t number = 0;
    for (; mean > kMostAtOnce; mean -= kMostAtOnce) {
        number += SmallPoisson(random, kMostAtOnce);
    }
    return number + SmallPoisson(random, mean);
}

double WholeDegrees(double radians) {
    return DegToRad(RoundToEven(RadToDeg(radians)));
}

} // namespace

std::vector<Direction> EvenDirections(std::int64_t rows, RandomStream& random, bool wholeDegrees,
                                      LineSense sense) {
    std::vector<Direction> drawn;
    drawn.reserve(static_cast<std::size_t>(rows));
    for (std::int64_t i = 0; i < rows; ++i) {
        const double share = random.Uniform();
        double plunge = std::asin(sense == LineSense::Axes ? share : 2 * share - 1);
        double trend = kTwoPi * random.Uniform();
        if (wholeDegrees) {
            plunge = WholeDegrees(plunge);
            trend = WholeDegrees(trend);
        }
        const double across = std::cos(plunge);
        drawn.push_back({across * std::cos(trend), across * std::sin(trend), std::sin(plunge)});
    }
    return drawn;
}

EvenSample::EvenSample(std::vector<Direction> rows, LineSense sense, double reach)
    : reach_(reach)
    , height_(std::max(std::acos(std::clamp(reach, -1.0, 1.0)), 0.01)) {
    const std::size_t count = rows.size();
    if (sense == LineSense::Axes) {
        // The other ends of axes that a place on the net may reach.
        const double highest = std::sin(std::min(height_, kPi / 2));
        for (std::size_t i = 0; i < count; ++i) {
            if (rows[i].n <= highest) {
                rows.push_back({-rows[i].l, -rows[i].m, -rows[i].n});
            }
        }
    }
    Sort(rows);
}

int EvenSample::RingOf(double down) const {
    const double plunge = std::asin(std::clamp(down, -1.0, 1.0));
    return std::clamp(static_cast<int>((plunge + kPi / 2) / height_), 0, Rings() - 1);
}

int EvenSample::CellOf(const Direction& row, int ring) const {
    const int cells = cellsOfRing_[static_cast<std::size_t>(ring)];
    const double turn = std::atan2(row.m, row.l) / kTwoPi + 0.5;
    return std::clamp(static_cast<int>(turn * cells), 0, cells - 1);
}

void EvenSample::Sort(const std::vector<Direction>& rows) {
    const int rings = static_cast<int>(kPi / height_) + 1;
    std::size_t buckets = 0;
    for (int ring = 0; ring < rings; ++ring) {
        // Near a pole, a cone of the reach may take any trend.
        const double low = ring * height_ - kPi / 2;
        const double steepest = std::max(std::abs(low), std::abs(low + height_)) + height_;
        const double width =
            steepest >= kPi / 2
                ? kTwoPi
                : 2 * std::asin(std::min(1.0, std::sin(height_ / 2) / std::cos(steepest)));
        firstOfRing_.push_back(buckets);
        cellsOfRing_.push_back(std::max(1, static_cast<int>(kTwoPi / width)));
        buckets += static_cast<std::size_t>(cellsOfRing_.back());
    }
    std::vector<std::size_t> bucketOf;
    bucketOf.reserve(rows.size());
    starts_.assign(buckets + 1, 0);
    for (const Direction& row : rows) {
        const int ring = RingOf(row.n);
        bucketOf.push_back(firstOfRing_[static_cast<std::size_t>(ring)]
                           + static_cast<std::size_t>(CellOf(row, ring)));
        ++starts_[bucketOf.back() + 1];
    }
    std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
    std::vector<std::size_t> next(starts_.begin(), starts_.end() - 1);
    rows_.resize(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows_[next[bucketOf[i]]++] = rows[i];
    }
}

std::vector<DistinctLine> EvenCells(std::int64_t rows, RandomStream& random, LineSense sense) {
    constexpr int kTurn = 360;
    constexpr int kPole = 90;
    const bool areAxes = sense == LineSense::Axes;
    std::vector<DistinctLine> cells;
    for (int plunge = areAxes ? 0 : -kPole; plunge <= kPole; ++plunge) {
        const double top = std::max(plunge - 0.5, areAxes ? 0.0 : -90.0);
        const double bottom = std::min(plunge + 0.5, 90.0);
        const double share =
            (std::sin(DegToRad(bottom)) - std::sin(DegToRad(top))) / (areAxes ? 1 : 2);
        for (int trend = 0; trend < kTurn; ++trend) {
            const std::int32_t number = Poisson(random, static_cast<double>(rows) * share / kTurn);
            if (number > 0) {
                cells.push_back(
                    {static_cast<std::int16_t>(plunge), static_cast<std::int16_t>(trend), number});
            }
        }
    }
    return cells;
}

} // namespace quandrel
