// SPDX-License-Identifier: MIT

#include "density/direct_density.h"
#include "density/kernel_width.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace quandrel {
namespace {

/// A row with the whole degrees that it is left out with.
struct LeftOutRow {
    Direction direction;
    double weight = 1;
    std::pair<long, long> place;
};

/// The nearest whole degrees, one pair for all names of an axis or direction.
std::pair<long, long> PlaceOf(const MeasuredLine& line, LineSense sense) {
    long plunge = std::lround(RadToDeg(line.plunge));
    long trend = std::lround(RadToDeg(line.trend)) % 360;
    if (sense == LineSense::Axes) {
        plunge = std::abs(plunge);
        trend = plunge == 0 ? trend % 180 : trend;
    }
    return {plunge, std::abs(plunge) == 90 ? 0 : trend};
}

std::vector<LeftOutRow> LeftOutRowsOf(const std::vector<MeasuredLine>& rows, LineSense sense) {
    std::vector<LeftOutRow> leftOut;
    for (const MeasuredLine& row : rows) {
        leftOut.push_back({DirectionOf(row), 1, PlaceOf(row, sense)});
    }
    return leftOut;
}

/// The logarithm of the likelihood as it is defined: the density of each row from those elsewhere.
double LogOfLikelihood(const std::vector<LeftOutRow>& rows, LineSense sense, double kappa) {
    const double scale = KernelScale(kappa, sense);
    double sum = 0;
    for (const LeftOutRow& row : rows) {
        double density = 0;
        for (const LeftOutRow& other : rows) {
            const double c = row.direction.l * other.direction.l
                             + row.direction.m * other.direction.m
                             + row.direction.n * other.direction.n;
            const double exponent = sense == LineSense::Axes ? c * c - 1 : c - 1;
            density += other.place != row.place ? other.weight * std::exp(kappa * exponent) : 0;
        }
        sum += row.weight * std::log(scale * density);
    }
    return sum;
}

/// The best kappa of even steps of its logarithm, then of finer ones about it.
double BruteForce(const std::vector<LeftOutRow>& rows, LineSense sense) {
    double low = std::log(KappaOfHalfWidth(kLargestKernelWidth, sense));
    double high = std::log(KappaOfHalfWidth(kSmallestKernelWidth, sense));
    for (const int steps : {60, 30, 30, 30}) {
        const double step = (high - low) / steps;
        double best = low;
        double greatest = -HUGE_VAL;
        for (int i = 0; i <= steps; ++i) {
            const double value = LogOfLikelihood(rows, sense, std::exp(low + i * step));
            if (value > greatest) {
                greatest = value;
                best = low + i * step;
            }
        }
        low = std::max(low, best - step);
        high = std::min(high, best + step);
    }
    return std::exp((low + high) / 2);
}

TEST(LikelyKappa, IsThatOfBruteForce) {
    for (const LineSense sense : kSenses) {
        for (const Fabric fabric : kFabrics) {
            for (const Precision precision : kPrecisions) {
                const auto rows = RowsOf(fabric, sense, precision, 50, 61);
                const auto kappa = LikelyKappa(rows, {}, sense, 2);
                ASSERT_TRUE(kappa.has_value());
                const double expected = BruteForce(LeftOutRowsOf(rows, sense), sense);
                EXPECT_NEAR(*kappa / expected, 1, 1e-4);
            }
        }
    }
}

/// Rows about two places of which one is a girdle's, in 5 to 10 whole degrees each way.
std::vector<MeasuredLine> ManyRows(LineSense sense) {
    RandomLines random(62);
    std::vector<MeasuredLine> rows;
    for (std::size_t row = 0; row < kMostMeasuredRows + 500; ++row) {
        rows.push_back(row % 2 == 0 ? random.Near({0.1, 6.2}, 4, sense)
                                    : random.Near({DegToRad(86), 2}, 2, sense));
    }
    rows.push_back({DegToRad(40), DegToRad(100)}); // far from all others
    return rows;
}

// With many rows the densities of others are differences; those of single rows far from all others
// are too small for that.
TEST(LikelyKappa, OfManyRowsIsThatOfTheirWholeDegrees) {
    for (const LineSense sense : kSenses) {
        const std::vector<MeasuredLine> rows = ManyRows(sense);
        std::map<std::pair<long, long>, LeftOutRow> places;
        for (const MeasuredLine& row : rows) {
            const MeasuredLine whole = InWholeDegrees(row);
            const auto place = PlaceOf(row, sense);
            const auto [at, isNew] = places.try_emplace(place, LeftOutRow{{}, 0, place});
            at->second.direction = sense == LineSense::Axes ? AxisOf(whole) : DirectionOf(whole);
            at->second.weight += 1;
        }
        std::vector<LeftOutRow> leftOut;
        for (const auto& [place, row] : places) {
            leftOut.push_back(row);
        }
        const auto kappa = LikelyKappa(rows, {}, sense, 2);
        ASSERT_TRUE(kappa.has_value());
        EXPECT_NEAR(*kappa / BruteForce(leftOut, sense), 1, 1e-4);
    }
}

// Without leaving them out together, each row would have its twin at distance 0, and the likelihood
// would grow with kappa without end.
TEST(LikelyKappa, IsNotDrivenToItsLimitByRowsAtTheSamePlace) {
    for (const LineSense sense : kSenses) {
        auto rows = RowsOf(Fabric::Even, sense, Precision::WholeDegrees, 60, 63);
        const auto once = LikelyKappa(rows, {}, sense, 1);
        rows.insert(rows.end(), rows.begin(), rows.begin() + 60);
        const auto twice = LikelyKappa(rows, {}, sense, 1);
        ASSERT_TRUE(once && twice);
        EXPECT_NEAR(*once / *twice, 1, 1e-4);
        EXPECT_LT(*once, 0.5 * KappaOfHalfWidth(kSmallestKernelWidth, sense));
    }
}

TEST(LikelyKappa, TakesWeightsAndCountsAsSoManyRows) {
    const std::vector<DistinctLine> lines = {{20, 12, 3}, {25, 15, 2}, {22, 20, 1},  {-28, 8, 2},
                                             {0, 190, 1}, {3, 12, 4},  {15, 350, 2}, {70, 100, 1}};
    std::vector<MeasuredLine> rows;
    std::vector<double> weights;
    std::vector<MeasuredLine> repeated;
    for (const DistinctLine& line : lines) {
        rows.push_back({DegToRad(line.plunge), DegToRad(line.trend)});
        weights.push_back(line.rows);
        repeated.insert(repeated.end(), static_cast<std::size_t>(line.rows), rows.back());
    }
    for (const LineSense sense : kSenses) {
        const auto expected = LikelyKappa(repeated, {}, sense, 1);
        const auto weighted = LikelyKappa(rows, weights, sense, 1);
        const auto counted = LikelyKappa(lines, sense, 1);
        ASSERT_TRUE(expected && weighted && counted);
        EXPECT_NEAR(*weighted / *expected, 1, 1e-4);
        EXPECT_NEAR(*counted / *expected, 1, 1e-4);
    }
}

TEST(LikelyKappa, StaysWithinItsLimits) {
    // Rows in pairs one degree of trend apart ask for the narrowest kernel, even ones for the
    // widest.
    const std::vector<MeasuredLine> pairs = {{0.5, DegToRad(10)},  {0.5, DegToRad(11)},
                                             {0.5, DegToRad(100)}, {0.5, DegToRad(101)},
                                             {0.5, DegToRad(200)}, {0.5, DegToRad(201)}};
    const auto rows = RowsOf(Fabric::Even, LineSense::Axes, Precision::WholeDegrees, 1000, 64);
    const auto narrow = LikelyKappa(pairs, {}, LineSense::Axes, 1);
    const auto wide = LikelyKappa(rows, {}, LineSense::Axes, 2);
    ASSERT_TRUE(narrow && wide);
    EXPECT_NEAR(*narrow / KappaOfHalfWidth(DegToRad(2), LineSense::Axes), 1, 1e-4);
    EXPECT_NEAR(*wide / KappaOfHalfWidth(DegToRad(60), LineSense::Axes), 1, 1e-4);
}

TEST(LikelyKappa, NeedsRowsAtTwoPlaces) {
    EXPECT_FALSE(LikelyKappa(std::vector<MeasuredLine>{}, {}, LineSense::Axes, 1));
    // All vertical, whatever their trends; and the two ends of a level axis.
    const std::vector<MeasuredLine> vertical = {{kPi / 2, 0}, {kPi / 2, 2}, {DegToRad(89.9), 4}};
    EXPECT_FALSE(LikelyKappa(vertical, {}, LineSense::Axes, 1));
    const std::vector<MeasuredLine> level = {{0, DegToRad(30)}, {0, DegToRad(210)}};
    EXPECT_FALSE(LikelyKappa(level, {}, LineSense::Axes, 1));
    EXPECT_TRUE(LikelyKappa(level, {}, LineSense::Directions, 1));
}

TEST(LikelyKappa, IsTheSameForAnyNumberOfThreads) {
    const auto few = RowsOf(Fabric::Girdle, LineSense::Axes, Precision::Decimals, 100, 65);
    EXPECT_EQ(LikelyKappa(few, {}, LineSense::Axes, 3), LikelyKappa(few, {}, LineSense::Axes, 1));
}

} // namespace
} // namespace quandrel
