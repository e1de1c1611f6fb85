// SPDX-License-Identifier: MIT
//
// Tests of the hypothesis that azimuths are uniform, beside those of Rayleigh and of Kuiper for few
// data (rose/circular_reference).
//
// Angles are radians of any value, those of axes doubled; each counts once. Data are often whole
// degrees. With many of them the rounding decides the results of tests that look at single angles:
// their probabilities are found by rounded random samples.

#pragma once

#include "orientation/repeated_tries.h"
#include "orientation/test_outcome.h"

#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Angles without rounding, as a number of steps.
inline constexpr int kWithoutSteps = 0;

/// The number of steps of a full turn of whole degrees: of directions, and of doubled axes.
inline constexpr int kStepsOfDirections = 360;
inline constexpr int kStepsOfAxes = 180;

/// Above this number of rounded angles the probability of Kuiper's test is found by samples.
inline constexpr int kMostAnglesByFormula = 500;

/// Above this number of angles without rounding that of Rao's test is that of a normal
/// distribution.
inline constexpr int kMostAnglesBySpacings = 1000;

/// Watson's test against any alternative: U^2, corrected for small samples to
/// (U^2 - 0.1/n + 0.1/n^2) (1 + 0.8/n).
///
/// Below 30 angles the probability is accurate where it is below 10%. Equal angles count as if they
/// were spread evenly about their value, which is what rounded ones are.
///
/// @param angles  at least one. O(n log n)
///
/// G. S. Watson (1961), Biometrika 48, 109-114; correction: M. A. Stephens (1970), J. R. Statist.
/// Soc. B 32, 115-122.
[[nodiscard]] TestOutcome WatsonUniformity(std::span<const double> angles);

/// Kuiper's test, V (sqrt n + 0.155 + 0.24/sqrt n), as KuiperTest of rose/circular_reference; with
/// more than kMostAnglesByFormula rounded angles the probability is found by samples.
///
/// @param angles  at least one
/// @param steps   of a full turn to which they are rounded, or kWithoutSteps
/// @return empty when stopped. O(n tries); above 100,000 angles the tries are fewer, down to 999
[[nodiscard]] std::optional<TestOutcome> KuiperUniformity(std::span<const double> angles, int steps,
                                                          const Repetition& repetition);

/// Rao's test of the spacings between neighbours: half the sum of their deviations from a full turn
/// over n, radians, 0 to below 2 pi. It finds regular and clustered angles, also without a mean
/// direction. The probability is found by samples of the same steps.
///
/// @param angles  at least two
/// @param steps   of a full turn to which they are rounded, or kWithoutSteps
/// @return empty when stopped. O(n log n tries); above 100,000 angles the tries are fewer, down to
///         999
///
/// J. S. Rao (1969), doctoral thesis, Indian Statistical Institute; E. Batschelet, Circular
/// Statistics in Biology (1981), 4.5; for many angles without rounding: B. Sherman (1950), Annals
/// of Mathematical Statistics 21, 339-361.
[[nodiscard]] std::optional<TestOutcome> RaoSpacingTest(std::span<const double> angles, int steps,
                                                        const Repetition& repetition);

/// The probability that U^2 of Watson's tests is above a value in large samples:
/// 2 sum (-1)^(j-1) exp(-2 j^2 pi^2 U^2).
[[nodiscard]] double WatsonTail(double statistic);

} // namespace quandrel
