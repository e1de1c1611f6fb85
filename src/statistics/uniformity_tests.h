// SPDX-License-Identifier: MIT
//
// Tests of the hypothesis that axes or directions are uniform on the sphere.

#pragma once

#include "orientation/test_outcome.h"

#include <array>

namespace quandrel {

/// Bingham's test of axes: S = 15 n/2 times the sum of (t - 1/3)^2, corrected for small samples to
/// S (1 - (31/42 - 41/294 S + 20/5292 S^2)/n), which is chi-square with 5 degrees of freedom.
///
/// @param t  eigenvalues of the orientation tensor
/// @param n  number of axes, 1 or more
/// @return the corrected statistic. The correction is for small S: where it would decrease, S is so
///         large that the probability is below 1e-5, and its greatest value is given
///
/// C. Bingham (1974), Annals of Statistics 2, 1201-1225; correction: P. E. Jupp (2001), Journal
/// of Multivariate Analysis 77, 1-20.
[[nodiscard]] TestOutcome BinghamUniformity(const std::array<double, 3>& t, double n);

/// Rayleigh's test of directions: S = 3 n R^2, R the mean resultant length, corrected for small
/// samples to (1 - 1/(2 n)) S + S^2/(10 n), which is chi-square with 3 degrees of freedom.
///
/// @param meanLength  R, 0 to 1
/// @param n           number of directions, 1 or more
///
/// K. V. Mardia, P. E. Jupp, Directional Statistics (2000), 10.4.1.
[[nodiscard]] TestOutcome RayleighUniformity(double meanLength, double n);

} // namespace quandrel
