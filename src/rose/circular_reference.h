// SPDX-License-Identifier: MIT
//
// Circular statistics by the textbook, in full precision: a reference for the printed ones, and
// tests that these do not include.
//
// Angles are radians. Everything except the sense of the angles is as in N. I. Fisher, Statistical
// Analysis of Circular Data (1993), where no other source is named.

#pragma once

#include "rose/circular_statistics.h"
#include "rose/rose_tables.h"

#include <array>
#include <optional>
#include <span>

namespace quandrel {

/// I1(kappa) / I0(kappa), the mean resultant length of a von Mises distribution.
///
/// @param kappa  0 or more
[[nodiscard]] double VonMisesLength(double kappa);

/// Concentration of a von Mises distribution by maximum likelihood: VonMisesLength solved for
/// kappa.
///
/// @param meanLength  0 to below 1
[[nodiscard]] double VonMisesKappa(double meanLength);

/// Kappa corrected for its bias in samples of 15 and fewer, 4.5.5. It is unchanged for larger
/// samples.
///
/// @param kappa  by maximum likelihood
/// @param n      sample size, at least 1
[[nodiscard]] double CorrectedKappa(double kappa, double n);

/// A test of the hypothesis that directions are uniform.
struct UniformityTest {
    double statistic = 0;
    double probability = 1; ///< of a statistic at least as large, 0 to 1
};

/// Rayleigh's test against a single preferred direction, 4.3.3: the statistic is n R^2.
///
/// @param meanLength  R, 0 to 1
[[nodiscard]] UniformityTest RayleighTest(double n, double meanLength);

/// Kuiper's test against any alternative.
struct KuiperResult {
    double range = 0;    ///< V, largest positive plus largest negative deviation
    UniformityTest test; ///< of V (sqrt n + 0.155 + 0.24 / sqrt n)
};

/// @param angles  any values, at least one
///
/// N. H. Kuiper (1960), Proc. Kon. Ned. Akad. Wet. A 63, 38-47; for small samples M. A. Stephens
/// (1970), J. R. Statist. Soc. B 32, 115-122. O(n log n).
[[nodiscard]] KuiperResult KuiperTest(std::span<const double> angles);

/// Median direction: the direction of least mean distance from the angles, 2.3.2.
struct LeastDeviation {
    double median = 0; ///< 0 to below 2 pi
    double deviation = 0;
};

/// @param angles         any values, at least one
/// @param meanDirection  if there are several medians, the one nearest to it is chosen; empty
///                       chooses the first
///
/// Where all directions between two angles are medians the result is their midpoint. O(n log n).
[[nodiscard]] LeastDeviation MedianOfLeastDeviation(std::span<const double> angles,
                                                    std::optional<double> meanDirection);

/// MedianOfLeastDeviation of grouped angles, each weighted by its group's count.
///
/// @param groups  with a total count above 0
[[nodiscard]] LeastDeviation MedianOfLeastDeviation(std::span<const AngleCount> groups,
                                                    std::optional<double> meanDirection);

/// The textbook's median of grouped azimuths: the one of least mean deviation, for axial data
/// computed on doubled angles and halved.
///
/// @param meanDirection  of axial data not doubled
/// @return a median above 0 as from GroupedCircularMedian: at north it is kTwoPi. 0 without a
///         count, as there
[[nodiscard]] LeastDeviation TextbookMedian(std::span<const AngleCount> groups,
                                            double meanDirection, AngleSense sense);

/// The input of the reference of a sample.
struct CircularSample {
    std::array<double, 4> sums{};   ///< as in CircularStatistics
    double weight = 1;              ///< the total weight of the sums
    double count = 1;               ///< of data, with the weights of a bias correction
    std::span<const double> angles; ///< of the observations; may be empty
    AngleSense sense = AngleSense::kDirected;
};

/// Results that fail or are meaningless are empty. Angles of axial data are halved; their other
/// statistics, except variance and standard deviation, refer to the doubled angles.
struct CircularReference {
    double count = 0;
    std::optional<double> meanDirection; ///< from 0, below 2 pi, of axial data below pi
    std::array<double, 2> resultant{};   ///< R1 and R2
    double variance = 0;
    std::optional<double> standardDeviation;
    std::optional<double> dispersion;
    std::optional<double> standardError;
    std::optional<double> confidenceHalfWidth; ///< 95 %, 4.4.4
    std::optional<double> skewness;
    std::optional<double> kurtosis;
    double kappa = 0;          ///< by maximum likelihood; infinite for identical angles
    double correctedKappa = 0; ///< CorrectedKappa of kappa
    std::optional<LeastDeviation> median;
    std::optional<UniformityTest> rayleigh;
    std::optional<KuiperResult> kuiper;
};

/// @return empty when the weight or the count is 0, or weights of both signs make a resultant
///         longer than 1. O(n log n).
[[nodiscard]] std::optional<CircularReference>
ComputeCircularReference(const CircularSample& sample);

} // namespace quandrel
