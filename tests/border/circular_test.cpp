// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/circular.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

constexpr double kRounding = 1e-9;

std::vector<double> AzimuthsAbout(double centre, double width, std::size_t count,
                                  std::uint32_t seed) {
    RandomValues random(seed);
    std::vector<double> azimuths(count);
    for (double& azimuth : azimuths) {
        azimuth = centre + random.Between(-width, width);
    }
    return azimuths;
}

/// The mean of the azimuths, times a factor, as unit numbers of the complex plane.
std::complex<double> MeanOf(const std::vector<double>& azimuths, double factor) {
    std::complex<double> sum;
    for (const double azimuth : azimuths) {
        sum += std::polar(1.0, testing::Radians(factor * azimuth));
    }
    return sum / static_cast<double>(azimuths.size());
}

double Apart(double a, double b, double period) {
    return std::abs(std::remainder(a - b, period));
}

TEST(PublicCircular, MomentsAreThoseOfUnitNumbers) {
    for (const Sense sense : {Sense::kDirections, Sense::kAxes}) {
        const double factor = sense == Sense::kAxes ? 2 : 1;
        const std::vector<double> azimuths = AzimuthsAbout(-20, 60, 101, 20260801);
        const CircularStatistics result =
            CircularStatisticsOf(azimuths, sense).value_or(CircularStatistics{});
        const std::complex<double> first = MeanOf(azimuths, factor);
        const double r1 = std::abs(first);
        const double r2 = std::abs(MeanOf(azimuths, 2 * factor));
        EXPECT_EQ(result.count, 101);
        EXPECT_NEAR(result.resultantLength[0], r1, kRounding);
        EXPECT_NEAR(result.resultantLength[1], r2, kRounding);
        EXPECT_LT(Apart(*result.meanDirection, InDegrees(std::arg(first)) / factor, 360 / factor),
                  kRounding);
        EXPECT_NEAR(*result.dispersion, (1 - r2) / (2 * r1 * r1), kRounding);
        EXPECT_NEAR(*result.standardDeviation, InDegrees(std::sqrt(-2 * std::log(r1))) / factor,
                    kRounding);
        EXPECT_NEAR(result.rayleigh.statistic, 101 * r1 * r1, 1e-6);
        EXPECT_GE(*result.meanDirection, 0);
        EXPECT_LT(*result.meanDirection, 360 / factor);
    }
}

TEST(PublicCircular, NoDirectionHasALessMeanDistanceThanTheMedian) {
    const std::vector<double> azimuths = AzimuthsAbout(350, 100, 41, 20260802);
    const CircularStatistics result =
        CircularStatisticsOf(azimuths, Sense::kDirections).value_or(CircularStatistics{});
    const auto meanDistance = [&azimuths](double direction) {
        double sum = 0;
        for (const double azimuth : azimuths) {
            sum += Apart(azimuth, direction, 360);
        }
        return sum / static_cast<double>(azimuths.size());
    };
    EXPECT_NEAR(result.median.meanDeviation, meanDistance(result.median.median), kRounding);
    for (int tenth = 0; tenth < 3600; ++tenth) {
        EXPECT_GE(meanDistance(tenth / 10.0), result.median.meanDeviation - kRounding);
    }
}

TEST(PublicCircular, FractionsOfDegreesCount) {
    const auto result = CircularStatisticsOf(std::vector<double>{10.2, 10.4}, Sense::kDirections);
    EXPECT_NEAR(*result->meanDirection, 10.3, kRounding);
}

TEST(PublicCircular, WeightsAreRepeatedAzimuthsInTheMoments) {
    const std::vector<double> azimuths = {10, 40, 100};
    const auto weighted =
        CircularStatisticsOf(azimuths, Sense::kAxes, std::vector<double>{2, 1, 3});
    const auto repeated =
        CircularStatisticsOf(std::vector<double>{10, 10, 40, 100, 100, 100}, Sense::kAxes);
    EXPECT_NEAR(*weighted->meanDirection, *repeated->meanDirection, kRounding);
    EXPECT_NEAR(weighted->resultantLength[0], repeated->resultantLength[0], kRounding);
    EXPECT_EQ(weighted->count, 3);
}

TEST(PublicCircular, AnAxisIsItsOpposite) {
    std::vector<double> azimuths = AzimuthsAbout(30, 40, 20, 20260803);
    const auto before = CircularStatisticsOf(azimuths, Sense::kAxes);
    for (std::size_t i = 0; i < azimuths.size(); i += 2) {
        azimuths[i] += 180;
    }
    const auto after = CircularStatisticsOf(azimuths, Sense::kAxes);
    EXPECT_NEAR(*before->meanDirection, *after->meanDirection, kRounding);
    EXPECT_NEAR(before->median.median, after->median.median, kRounding);
    EXPECT_NEAR(before->kuiper.probability, after->kuiper.probability, kRounding);
}

TEST(PublicCircular, TheBootstrapHoldsTheTrueMeanNineteenTimesInTwenty) {
    int held = 0;
    for (std::uint32_t sample = 0; sample < 200; ++sample) {
        const std::vector<double> azimuths = AzimuthsAbout(0, 50, 20, sample);
        const auto mean = CircularStatisticsOf(azimuths, Sense::kDirections)->meanDirection;
        const auto halfWidth = BootstrapHalfWidthOf(azimuths, Sense::kDirections);
        held += Apart(*mean, 0, 360) <= *halfWidth ? 1 : 0;
    }
    // 190 of 200, with a standard deviation of 3.1.
    EXPECT_NEAR(held, 190, 12);
}

TEST(PublicCircular, TheBootstrapOfAxesIsHalfThatOfTheirDoubles) {
    std::vector<double> azimuths = AzimuthsAbout(30, 20, 15, 20260804);
    const double axes = *BootstrapHalfWidthOf(azimuths, Sense::kAxes);
    for (double& azimuth : azimuths) {
        azimuth *= 2;
    }
    EXPECT_NEAR(axes, *BootstrapHalfWidthOf(azimuths, Sense::kDirections) / 2, kRounding);
    std::reverse(azimuths.begin(), azimuths.end());
    EXPECT_NEAR(axes, *BootstrapHalfWidthOf(azimuths, Sense::kDirections) / 2, 0);
}

TEST(PublicCircular, WithoutAzimuthsOrWeightThereIsNone) {
    EXPECT_FALSE(CircularStatisticsOf({}, Sense::kAxes));
    EXPECT_FALSE(BootstrapHalfWidthOf({}, Sense::kAxes));
    EXPECT_FALSE(
        CircularStatisticsOf(std::vector<double>{3}, Sense::kAxes, std::vector<double>{0}));
    const auto opposite = CircularStatisticsOf(std::vector<double>{0, 180}, Sense::kDirections);
    EXPECT_FALSE(opposite->meanDirection || opposite->dispersion || opposite->standardDeviation);
    EXPECT_TRUE(
        std::isinf(CircularStatisticsOf(std::vector<double>{20, 20}, Sense::kDirections)->kappa));
}

TEST(PublicCircular, RefusesWhatIsNoAzimuth) {
    const std::vector<double> broken = {1, std::numeric_limits<double>::quiet_NaN()};
    EXPECT_THROW(static_cast<void>(CircularStatisticsOf(broken, Sense::kAxes)),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(BootstrapHalfWidthOf(broken, Sense::kAxes)),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(CircularStatisticsOf(std::vector<double>{1}, Sense::kAxes,
                                                        std::vector<double>{1, 2})),
                 std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
