// SPDX-License-Identifier: MIT
//
// Circular statistics of azimuths: of directions, or of axes, which are treated by doubling their
// angles.
//
// Angles are degrees, azimuths of any size. Formulas without another source: N. I. Fisher,
// Statistical Analysis of Circular Data (1993).
//
// Example: strikes around north, as axes.
//
//     namespace qd = quandrel::api;
//     const std::vector<double> strikes = {350, 170, 10, 190, 5, 355};
//     const auto statistics = qd::CircularStatisticsOf(strikes, qd::Sense::kAxes);
//     const double mean = *statistics->meanDirection; // 0, or 180 less a rounding
//     std::cout << (std::abs(std::remainder(mean, 180)) < 1e-9) << '\n'; // -> 1
//     std::cout << (statistics->rayleigh.probability < 0.05) << '\n'; // -> 1

#pragma once

#include "quandrel/orientation.h"

#include <array>
#include <optional>
#include <span>

namespace quandrel::api {

/// A test of the hypothesis that all directions are equally likely.
struct UniformityTest {
    double statistic = 0;
    double probability = 1; ///< probability of a statistic as large or larger, 0 to 1
};

/// The direction with the smallest mean distance from the azimuths.
struct CircularMedian {
    double median = 0;        ///< 0 to below 360, for axes to below 180
    double meanDeviation = 0; ///< that distance
};

/// For axes, directions and distances are halved; variance and standard deviation are those of K.
/// V. Mardia, Statistics of Directional Data (1972), 2.6; the rest refers to the doubled angles.
/// Empty values are not determined by the data.
struct CircularStatistics {
    double count = 0;                        ///< n
    std::optional<double> meanDirection;     ///< 0 to below 360, for axes to below 180
    std::array<double, 2> resultantLength{}; ///< of the angles, and of the doubled angles, 0 to 1
    double variance = 0;                     ///< 0 to 1
    std::optional<double> standardDeviation;
    std::optional<double> dispersion;
    std::optional<double> standardError;       ///< of the mean direction, as a sine
    std::optional<double> confidenceHalfWidth; ///< 95%, for samples above 25, 4.4.4
    std::optional<double> skewness;
    std::optional<double> kurtosis;
    double kappa = 0;          ///< von Mises concentration, by maximum likelihood; infinite for
                               ///< equal azimuths
    double correctedKappa = 0; ///< the same, corrected for the bias of small samples, 4.5.5
    CircularMedian median;
    UniformityTest rayleigh; ///< against one preferred direction; the statistic is n R^2
    UniformityTest kuiper;   ///< against any; the statistic is V (sqrt n + 0.155 + 0.24 / sqrt n)
    double kuiperRange = 0;  ///< V
};

/// The statistics of n azimuths, used unrounded. O(n log n).
///
/// @param weights  n numbers >= 0, or empty for equal weights. They apply to the mean, the
///                 resultants and what is computed from these; median and tests use the azimuths
///                 alone
/// @return nothing without azimuths, or when all weights are 0
[[nodiscard]] std::optional<CircularStatistics>
CircularStatisticsOf(std::span<const double> azimuths, Sense sense,
                     std::span<const double> weights = {});

/// Half the 95% confidence interval of the mean direction by the bootstrap, for samples of 25 and
/// less: 2000 resamples from a seeded generator, so that the same azimuths give the same result on
/// any machine and in any order. O(n).
///
/// @param weights  as for CircularStatisticsOf
/// @return 0 to 90, for axes to 45; nothing when no interval holds 95%
///
/// Formula: 4.4.4 and 8.3; N. I. Fisher, P. Hall (1989), J. Amer. Statist. Assoc. 84, 996-1002.
[[nodiscard]] std::optional<double> BootstrapHalfWidthOf(std::span<const double> azimuths,
                                                         Sense sense,
                                                         std::span<const double> weights = {});

} // namespace quandrel::api
