// SPDX-License-Identifier: MIT
//
// Confidence of a mean direction of few data by the bootstrap.

#pragma once

#include <optional>
#include <span>

namespace quandrel {

/// The number of resamples for an interval.
inline constexpr int kBootstrapResamples = 2000;

/// An angle, radians, with its weight in the resultant.
struct WeightedAngle {
    double angle = 0;
    double weight = 1;
};

/// Half the 95% confidence interval of the mean direction of a sample.
///
/// Samples of the same size are drawn from it with replacement. For each, the sine of the deviation
/// of its mean direction is divided by its own standard error. The interval holds 95% of these
/// quotients, times the standard error of the data, to either side. The generator has the same seed
/// at each call, and its numbers become indexes of the sample by integer arithmetic: the result is
/// the same on any machine.
///
/// @param sample  axial data with doubled angles
/// @return radians, 0 to pi/2; 0 for equal angles. Empty without a resultant, for a single angle,
///         and where no interval holds 95%: more than 5% of the resamples are of equal angles, or
///         the data are too few and too dispersed
///
/// O(kBootstrapResamples n). Formula: N. I. Fisher, Statistical Analysis of Circular Data (1993),
/// 4.4.4 and 8.3; the pivotal quotient: N. I. Fisher, P. Hall (1989), J. Amer. Statist. Assoc. 84,
/// 996-1002.
[[nodiscard]] std::optional<double> BootstrapHalfWidth(std::span<const WeightedAngle> sample);

} // namespace quandrel
