// SPDX-License-Identifier: MIT
//
// Tests of the hypothesis that two samples of azimuths have the same distribution.
//
// Angles are radians of any value, those of axes doubled; each counts once. Both tests depend on
// the order of the angles around the circle alone. Samples of up to kMostAnglesInPermutations
// angles together have probabilities by random permutations, which are right for any number of
// equal angles; larger ones those of large samples.

#pragma once

#include "orientation/repeated_tries.h"
#include "orientation/test_outcome.h"

#include <optional>
#include <span>

namespace quandrel {

/// Samples together above which the probability is that of large samples.
inline constexpr std::size_t kMostAnglesInPermutations = 1000;

/// The fewest angles of a sample in these tests.
inline constexpr std::size_t kFewestAnglesOfSample = 2;

/// Watson's test against any difference: U^2 of two samples, with equal angles taken as one place
/// of the pooled sample.
///
/// @return empty when stopped, for fewer than kFewestAnglesOfSample angles in a sample, and where
///         all angles are equal. O(N tries)
///
/// G. S. Watson (1962), Biometrika 49, 57-63; equal angles: E. J. Burr (1964), Annals of
/// Mathematical Statistics 35, 1091-1098.
[[nodiscard]] std::optional<TestOutcome> WatsonTwoSamples(std::span<const double> first,
                                                          std::span<const double> second,
                                                          const Repetition& repetition);

/// The uniform-scores test of Mardia, Watson and Wheeler, strongest against a difference of mean
/// directions or of spread: W = 2 sum (C^2 + S^2)/n of cosines and sines of ranks, chi-square with
/// 2 degrees of freedom in large samples. Equal angles have the mean of the cosines and sines of
/// their ranks, and W is scaled by the variances that these leave.
///
/// @return empty when stopped, for fewer than kFewestAnglesOfSample angles in a sample, and for
///         fewer than three different angles. O(N tries)
///
/// K. V. Mardia (1972), J. R. Statist. Soc. B 34, 102-113; S. Wheeler, G. S. Watson (1964),
/// Biometrika 51, 256-257.
[[nodiscard]] std::optional<TestOutcome> MardiaWatsonWheeler(std::span<const double> first,
                                                             std::span<const double> second,
                                                             const Repetition& repetition);

} // namespace quandrel
