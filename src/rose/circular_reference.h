// SPDX-License-Identifier: MIT
//
// Circular statistics as textbooks have them, in full precision: what the printed ones are to be
// compared with, and the tests that they do not have.
//
// Angles are radians. Everything but the sense of the angles is as in N. I. Fisher, Statistical
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

/// Kappa corrected for its bias in samples of 15 and less, 4.5.5. Larger samples keep theirs.
///
/// @param kappa  by maximum likelihood
/// @param n      sample size, at least 1
[[nodiscard]] double CorrectedKappa(double kappa, double n);

/// A test of the hypothesis that directions are uniform.
struct UniformityTest {
    double statistic = 0;
    double probability = 1; ///< of a statistic as large or larger, 0 to 1
};

/// Rayleigh's test against a single preferred direction, 4.3.3: the statistic is n R^2.
///
/// @param meanLength  R, 0 to 1
[[nodiscard]] UniformityTest RayleighTest(double n, double meanLength);

/// Kuiper's test against any alternative.
struct KuiperResult {
    double range = 0;    ///< V, the sum of the largest deviations of the distribution either way
    UniformityTest test; ///< of V (sqrt n + 0.155 + 0.24 / sqrt n)
};

/// @param angles  any values, at least one
///
/// N. H. Kuiper (1960), Proc. Kon. Ned. Akad. Wet. A 63, 38-47; for small samples M. A. Stephens
/// (1970), J. R. Statist. Soc. B 32, 115-122. O(n log n).
[[nodiscard]] KuiperResult KuiperTest(std::span<const double> angles);

/// Median direction, the one with the least mean distance from the angles, 2.3.2.
struct LeastDeviation {
    double median = 0; ///< 0 to below 2 pi
    double deviation = 0;
};

/// @param angles         any values, at least one
/// @param meanDirection  of several medians the nearest to it is taken; nothing takes the first
///
/// Where all directions between two angles are medians it is the middle of them. O(n log n).
[[nodiscard]] LeastDeviation MedianOfLeastDeviation(std::span<const double> angles,
                                                    std::optional<double> meanDirection);

/// MedianOfLeastDeviation of grouped angles: each counts as its group does.
///
/// @param groups  with a count above 0 in all
[[nodiscard]] LeastDeviation MedianOfLeastDeviation(std::span<const AngleCount> groups,
                                                    std::optional<double> meanDirection);

/// The median of grouped azimuths by the textbook: that of least mean deviation, of axial data
/// found on doubled angles and halved.
///
/// @param meanDirection  of axial data not doubled
/// @return a median above 0 as of GroupedCircularMedian: at north it is kTwoPi. Both are 0 without
/// a
///         count
[[nodiscard]] LeastDeviation TextbookMedian(std::span<const AngleCount> groups,
                                            double meanDirection, AngleSense sense);

/// What the reference of a sample is worked out from.
struct CircularSample {
    std::array<double, 4> sums{};   ///< as of CircularStatistics
    double weight = 1;              ///< that the sums are over
    double count = 1;               ///< of data, under the weights of a bias correction
    std::span<const double> angles; ///< of the observations; may be empty
    AngleSense sense = AngleSense::kDirected;
};

/// Whatever fails, or has no meaning, is left out. Angles of axial data are halved, the rest of
/// their statistics but variance and standard deviation belongs to the doubled angles.
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
    double kappa = 0;          ///< by maximum likelihood; infinite of identical angles
    double correctedKappa = 0; ///< CorrectedKappa of it
    std::optional<LeastDeviation> median;
    std::optional<UniformityTest> rayleigh;
    std::optional<KuiperResult> kuiper;
};

/// @return nothing when the weight or the count is 0, or weights of both signs make a resultant
///         longer than 1. O(n log n).
[[nodiscard]] std::optional<CircularReference>
ComputeCircularReference(const CircularSample& sample);

} // namespace quandrel
