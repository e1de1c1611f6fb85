// SPDX-License-Identifier: MIT
//
// Tests of rotational symmetry about the centre of a distribution.
//
// With y the component of a row at right angles to the centre, as a complex number, symmetry means
// that y^2 has the mean 0. P = 2 n |mean(y^2)|^2 / mean(|y|^4) is then chi-square with two degrees
// of freedom in large samples: N. I. Fisher, T. Lewis, B. J. J. Embleton, Statistical Analysis of
// Spherical Data (1987), ch. 5 and 6.

#pragma once

#include "orientation/test_outcome.h"
#include "statistics/region_sample.h"

namespace quandrel {

/// A hypothesis with a probability below this is rejected.
inline constexpr double kSymmetryLevel = 0.05;

/// The test of axes about the last axis of a frame: the statistic is P. It is 0 where all rows are
/// along that axis. O(n).
///
/// Along eigenvectors, |mean(y^2)| is the difference of the other two eigenvalues.
[[nodiscard]] TestOutcome SymmetryTestOfAxes(const RegionSample& sample, const AxisFrame& frame);

/// The same of directions about their mean.
[[nodiscard]] TestOutcome SymmetryTestOfDirections(const RegionSample& sample,
                                                   const MeanFrame& frame);

/// The probabilities of these tests.
[[nodiscard]] double SymmetryOfAxes(const RegionSample& sample, const AxisFrame& frame);
[[nodiscard]] double SymmetryOfDirections(const RegionSample& sample, const MeanFrame& frame);

} // namespace quandrel
