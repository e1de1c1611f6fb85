// SPDX-License-Identifier: MIT

#include "statistics/axis_regions.h"
#include "statistics/bootstrap_region.h"
#include "statistics/direction_regions.h"
#include "statistics/place_table.h"
#include "statistics/resample_moments.h"
#include "support/weighted_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quandrel {
namespace {

constexpr double kLevel = 0.95;
constexpr std::array kTargets = {RegionTarget::PrincipalAxis, RegionTarget::GirdlePole,
                                 RegionTarget::MeanDirection};

RegionSample SampleFor(RegionTarget target, int count, std::uint64_t seed = 5) {
    RandomStream random(seed);
    if (target == RegionTarget::MeanDirection) {
        return RegionSampleOf(
            WeightedSampleOf(random, count,
                             [](RandomStream& r) { return ElongatedDirection(r, 0.2, 0.5); }),
            RowsAre::Directions);
    }
    return RegionSampleOf(
        WeightedSampleOf(random, count,
                         [](RandomStream& r) { return BinghamDirection(r, -20, -5); }),
        RowsAre::Axes);
}

Resampled Drawn(const RegionSample& sample, RegionTarget target,
                const BootstrapOptions& options = {}) {
    auto resampled = Resample(sample, target, options);
    EXPECT_TRUE(resampled);
    return resampled.value_or(Resampled{});
}

bool AreSame(const Resampled& a, const Resampled& b) {
    const auto isSame = [](const Direction& one, const Direction& other) {
        return one.l == other.l && one.m == other.m && one.n == other.n;
    };
    return a.statistics == b.statistics
           && std::equal(a.centres.begin(), a.centres.end(), b.centres.begin(), b.centres.end(),
                         isSame);
}

// Places.

TEST(PlaceTable, DrawsPlacesAsOftenAsTheirWeights) {
    const std::vector<double> weights = {1, 5, 0.25, 3, 3, 0.01, 7.74};
    const PlaceTable table(weights);
    std::vector<double> counts(weights.size());
    constexpr std::uint32_t kStep = 1009; // evenly through all 2^32 values
    double draws = 0;
    for (std::uint64_t bits = 0; bits < (std::uint64_t{1} << 32U); bits += kStep) {
        counts[table.Place(static_cast<std::uint32_t>(bits))] += 1;
        ++draws;
    }
    for (std::size_t i = 0; i < weights.size(); ++i) {
        EXPECT_NEAR(counts[i] / draws, weights[i] / 20, 2e-6) << i;
    }
}

TEST(PlaceTable, OfEqualWeightsIsEven) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{3}, std::size_t{1000}}) {
        const PlaceTable table(std::vector<double>(size, 0.1));
        std::vector<int> counts(size);
        for (std::uint64_t bits = 0; bits < (std::uint64_t{1} << 32U); bits += 65521) {
            ++counts[table.Place(static_cast<std::uint32_t>(bits))];
        }
        const auto [least, greatest] = std::minmax_element(counts.begin(), counts.end());
        EXPECT_LE(*greatest - *least, 2) << size;
    }
}

// The statistic of a resample.

TEST(ResampleMoments, GiveTheStatisticOfTheEllipse) {
    // A sample as its own resample, seen in a frame whose last axis is a little off its centre. The
    // region that just holds that axis has the statistic as its limit.
    const Frame frame = FrameAbout(Scaled({0.10, -0.05, 1}, 1 / std::sqrt(1.0125)));
    const Frame pole = FrameAbout(Scaled({1, -0.05, 0.03}, 1 / std::sqrt(1.0034)));
    for (const RegionTarget target : kTargets) {
        const RegionSample sample = SampleFor(target, 40);
        const bool isLeast = target == RegionTarget::GirdlePole;
        const bool isDirected = target == RegionTarget::MeanDirection;
        const Frame& seen = isLeast ? pole : frame;
        AxisSums axes;
        DirectionSums directions;
        for (const Direction& row : sample.rows.directions) {
            const AxisSums ofAxis = AxisSums::Of(InFrame(seen, row));
            const DirectionSums ofDirection = DirectionSums::Of(InFrame(seen, row));
            for (std::size_t i = 0; i < axes.values.size(); ++i) {
                axes.values[i] += ofAxis.values[i];
            }
            for (std::size_t i = 0; i < directions.values.size(); ++i) {
                directions.values[i] += ofDirection.values[i];
            }
        }
        const ResampleCentre found =
            isDirected ? directions.CentreOf(40, false) : axes.CentreOf(40, isLeast);
        const ConfidenceRegion region = isDirected ? DirectionEllipseOf(sample, kLevel, 1)
                                                   : AxisEllipseOf(sample, target, kLevel, 1);
        double statistic = 0;
        for (std::size_t j = 0; j < 2; ++j) {
            const double along = DotProduct(seen[2], region.frame[j]) / region.components[j];
            statistic += along * along;
        }
        EXPECT_NEAR(40 * found.statistic, statistic, 1e-8 * statistic);
        const Direction centre = FromFrame(seen, found.centre);
        EXPECT_NEAR(std::abs(DotProduct(centre, region.centre)), 1, 1e-12);
        EXPECT_GT(statistic, 0.1);
    }
}

TEST(ResampleMoments, OfRowsThatAreAlikeGiveNoStatistic) {
    AxisSums axes;
    for (const std::array<double, 3>& axis : {std::array{0.0, 0.6, 0.8}, {0.0, -0.6, 0.8}}) {
        for (std::size_t i = 0; i < axes.values.size(); ++i) {
            axes.values[i] += AxisSums::Of(axis).values[i];
        }
    }
    EXPECT_TRUE(std::isinf(axes.CentreOf(2, false).statistic));
    EXPECT_TRUE(std::isinf(DirectionSums::Of({0.6, 0, 0.8}).CentreOf(1, false).statistic));
    EXPECT_TRUE(std::isinf(DirectionSums{}.CentreOf(1, false).statistic));
}

// Resamples.

TEST(Resample, GivesTheSameBytesOnAnyNumberOfThreads) {
    for (const RegionTarget target : kTargets) {
        const RegionSample sample = SampleFor(target, 33);
        BootstrapOptions options;
        options.resamples = 2050; // the last block is a short one
        const Resampled alone = Drawn(sample, target, options);
        EXPECT_EQ(alone.statistics.size(), 2050U);
        EXPECT_EQ(alone.centres.size(), 2050U);
        EXPECT_TRUE(std::is_sorted(alone.statistics.begin(), alone.statistics.end()));
        for (const unsigned threads : {2U, 3U, 7U}) {
            options.threads = threads;
            EXPECT_TRUE(AreSame(alone, Drawn(sample, target, options))) << threads;
        }
        ++options.seed;
        EXPECT_FALSE(AreSame(alone, Drawn(sample, target, options)));
    }
}

TEST(Resample, RepeatsFromItsSeedOnAnyMachine) {
    // A sample of exact components, whose resamples are counted: rows in ten of the first three
    // resamples, from the bits of the first random stream.
    const WeightedDirections rows = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {4, 3, 3}};
    const RegionSample sample = RegionSampleOf(rows, RowsAre::Directions);
    BootstrapOptions options;
    options.resamples = 3;
    const Resampled drawn = Drawn(sample, RegionTarget::MeanDirection, options);
    RandomStream random(options.seed, 0);
    const PlaceTable table(sample.rows.weights);
    for (int resample = 0; resample < 3; ++resample) {
        Direction sum;
        for (int pair = 0; pair < 5; ++pair) {
            const std::uint64_t bits = random.Bits();
            for (const std::uint64_t half : {bits & 0xffffffffU, bits >> 32U}) {
                const Direction& row =
                    sample.rows.directions[table.Place(static_cast<std::uint32_t>(half))];
                sum = Combined(sum, 1, row, 1);
            }
        }
        const Direction expected = Scaled(sum, 1 / LengthOf(sum));
        const Direction& found = drawn.centres[static_cast<std::size_t>(resample)];
        EXPECT_NEAR(DotProduct(expected, found), 1, 1e-12);
    }
}

TEST(Resample, GivesTheSameNumbersWithAnyCompiler) {
    // Components of right triangles with whole sides need no function to be computed. The values
    // are what this code gives; other compilers and machines must give no others.
    const WeightedDirections rows = {{{0.6, 0, 0.8},
                                      {-0.28, 0, 0.96},
                                      {0, 0.8, 0.6},
                                      {0, -0.6, 0.8},
                                      {0.48, 0.6, 0.64},
                                      {-0.48, 0.36, 0.8},
                                      {0, 0.28, 0.96},
                                      {0.36, -0.48, 0.8}},
                                     {1, 2, 1, 1, 1.5, 1, 1, 1}};
    const auto quantile = [&rows](RegionTarget target, RowsAre kind) {
        return QuantileOf(Drawn(RegionSampleOf(rows, kind), target), 0.9);
    };
    EXPECT_EQ(quantile(RegionTarget::PrincipalAxis, RowsAre::Axes), 0x1.823318cfce854p+3);
    EXPECT_EQ(quantile(RegionTarget::GirdlePole, RowsAre::Axes), 0x1.7e907229412edp+4);
    EXPECT_EQ(quantile(RegionTarget::MeanDirection, RowsAre::Directions), 0x1.4a34bdf7b1f6cp+3);
}

TEST(Resample, StopsWhenItIsToldAndReportsHowFarItIs) {
    const RegionSample sample = SampleFor(RegionTarget::PrincipalAxis, 20);
    BootstrapOptions options;
    options.resamples = 1950;
    std::vector<int> reports;
    options.onDone = [&reports](int done) {
        reports.push_back(done);
        return true;
    };
    EXPECT_TRUE(Resample(sample, RegionTarget::PrincipalAxis, options));
    EXPECT_EQ(reports.size(), 21U);
    EXPECT_EQ(reports[0], 0);
    EXPECT_EQ(reports[1], 100);
    EXPECT_EQ(reports.back(), 1950);
    options.onDone = [&reports](int done) {
        reports.push_back(done);
        return done < 300;
    };
    reports.clear();
    EXPECT_FALSE(Resample(sample, RegionTarget::PrincipalAxis, options));
    EXPECT_EQ(reports, (std::vector<int>{0, 100, 200, 300}));
    options.threads = 3;
    options.onDone = [](int /*done*/) { return false; };
    EXPECT_FALSE(Resample(sample, RegionTarget::PrincipalAxis, options));
}

TEST(Resample, CentresAreSpreadAsTheEllipseSays) {
    // The cloud of a sample has the covariance of the mean itself, V/n.
    const RegionSample sample = SampleFor(RegionTarget::MeanDirection, 500);
    const ConfidenceRegion region = DirectionEllipseOf(sample, kLevel, 1);
    const Resampled drawn = Drawn(sample, RegionTarget::MeanDirection, {.resamples = 4000});
    std::array<double, 2> squares{};
    for (const Direction& centre : drawn.centres) {
        for (std::size_t j = 0; j < 2; ++j) {
            squares[j] += std::pow(DotProduct(centre, region.frame[j]), 2) / 4000;
        }
    }
    for (std::size_t j = 0; j < 2; ++j) {
        // 3.5 standard deviations of a variance of 4000 values.
        EXPECT_NEAR(squares[j] / std::pow(region.components[j], 2), 1, 0.08) << j;
    }
}

TEST(Resample, DrawsWeightedRowsAsOftenAsTheirWeights) {
    // A sample of weights that are worth 200 rows, against the ellipse of the same number.
    RegionSample sample = SampleFor(RegionTarget::PrincipalAxis, 300);
    for (std::size_t i = 0; i < sample.rows.weights.size(); ++i) {
        sample.rows.weights[i] = 1.0 + static_cast<double>(i % 3);
    }
    sample.total = TotalWeight(sample.rows.weights);
    sample.count = 200;
    const ConfidenceRegion region = AxisEllipseOf(sample, RegionTarget::PrincipalAxis, kLevel, 1);
    const Resampled drawn = Drawn(sample, RegionTarget::PrincipalAxis, {.resamples = 4000});
    double square = 0;
    for (const Direction& centre : drawn.centres) {
        square += std::pow(DotProduct(centre, region.frame[0]), 2) / 4000;
    }
    EXPECT_NEAR(square / std::pow(region.components[0], 2), 1, 0.12);
}

TEST(QuantileOf, IsTheValueInItsPlace) {
    Resampled resampled;
    for (int i = 1; i <= 99; ++i) {
        resampled.statistics.push_back(i);
    }
    EXPECT_EQ(QuantileOf(resampled, 0.95), 95);
    EXPECT_EQ(QuantileOf(resampled, 0.945), 95);
    EXPECT_EQ(QuantileOf(resampled, 0.005), 1);
    EXPECT_TRUE(std::isinf(QuantileOf(resampled, 0.995)));
    EXPECT_TRUE(std::isinf(QuantileOf({}, 0.95)));
}

TEST(BootstrapRegion, OfManyRowsIsTheEllipse) {
    for (const RegionTarget target : kTargets) {
        const RegionSample sample = SampleFor(target, 1500);
        const Resampled drawn = Drawn(sample, target);
        for (const double level : {0.63, 0.9, 0.95}) {
            const ConfidenceRegion region = BootstrapRegion(sample, target, drawn, level);
            const ConfidenceRegion ellipse = target == RegionTarget::MeanDirection
                                                 ? DirectionEllipse(sample, level)
                                                 : AxisEllipse(sample, target, level);
            EXPECT_EQ(region.method, RegionMethod::Bootstrap);
            EXPECT_EQ(region.resamples, 2000);
            EXPECT_EQ(region.level, level);
            for (std::size_t j = 0; j < 2; ++j) {
                EXPECT_NEAR(region.components[j] / ellipse.components[j], 1, 0.06) << level;
            }
        }
    }
}

TEST(BootstrapRegion, OfFourRowsHasNoBounds) {
    // A third of all resamples of four rows hold two of them or fewer, which lie on a circle.
    const RegionSample sample = SampleFor(RegionTarget::PrincipalAxis, 4);
    const Resampled drawn = Drawn(sample, RegionTarget::PrincipalAxis);
    EXPECT_TRUE(std::isinf(QuantileOf(drawn, kLevel)));
    EXPECT_TRUE(std::isfinite(QuantileOf(drawn, 0.5)));
    const ConfidenceRegion region =
        BootstrapRegion(sample, RegionTarget::PrincipalAxis, drawn, kLevel);
    EXPECT_EQ(region.state, RegionState::Undefined);
    EXPECT_EQ(region.reason, RegionReason::WithoutBounds);
    const auto infinite = std::count_if(drawn.statistics.begin(), drawn.statistics.end(),
                                        [](double value) { return std::isinf(value); });
    EXPECT_NEAR(static_cast<double>(infinite) / 2000, (4 + 6 * 14) / 256.0, 0.04);
}

} // namespace
} // namespace quandrel
