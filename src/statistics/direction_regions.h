// SPDX-License-Identifier: MIT
//
// Confidence regions of the mean of directions, which have a sense.
//
// Each is computed whether its conditions hold or not (region_choice.h). R is the length of the
// resultant of n rows. A region is undefined without a mean, and where the rows share a line.

#pragma once

#include "statistics/confidence_region.h"
#include "statistics/region_sample.h"

namespace quandrel {

/// Fisher's cone: cos(a) = 1 - (n - R)/R ((1/p)^(1/(n - 1)) - 1), p = 1 - level; for directions
/// with rotational symmetry about the mean and a concentration k = (n - 1)/(n - R) of at least
/// kLeastFisherConcentration.
///
/// A cone of a right angle and more is undefined.
///
/// Formula: R. A. Fisher (1953), Proc. R. Soc. London A 217, 295-305.
[[nodiscard]] ConfidenceRegion FisherCone(const RegionSample& sample, double level);

/// The concentration from which Fisher's cone is that of Fisher's distribution.
inline constexpr double kLeastFisherConcentration = 4;

/// The ellipse of directions, for any distribution: n d' V^-1 d <= chi-square, d the components at
/// right angles to the mean, V the covariance of those of the rows over (R/n)^2. For
/// kLeastCountOfEllipse rows and more.
///
/// Formula: N. I. Fisher, T. Lewis, B. J. J. Embleton, Statistical Analysis of Spherical Data
/// (1987), ch. 5.
[[nodiscard]] ConfidenceRegion DirectionEllipse(const RegionSample& sample, double level);

/// The number of rows from which the distribution of the mean is that of large samples.
inline constexpr double kLeastCountOfEllipse = 100;

/// The same ellipse with another limit for n d' V^-1 d, which may be infinite.
[[nodiscard]] ConfidenceRegion DirectionEllipseOf(const RegionSample& sample, double level,
                                                  double limit);

} // namespace quandrel
