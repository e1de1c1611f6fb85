// SPDX-License-Identifier: MIT
//
// Test of the hypothesis that two samples of axes, or of directions, have the same mean.

#pragma once

#include "orientation/angles.h"
#include "orientation/repeated_tries.h"
#include "orientation/test_outcome.h"
#include "statistics/fabric_kernels.h"

#include <optional>
#include <span>

namespace quandrel {

/// The fewest rows of each sample in the test of equal means.
inline constexpr std::size_t kFewestRowsOfMean = 5;

/// The test by permutations of rows.
///
/// The statistic G is the least eigenvalue of A1 + A2: the least sum, over all axes, of what speaks
/// against an axis as the mean of each sample. A = n F E^-1 F'. Of axes, F holds the eigenvectors
/// of the lesser two eigenvalues, p are the components along the eigenvectors, t3 the greatest
/// eigenvalue, and Ejk = mean(pj pk p3^2)/((t3 - tj)(t3 - tk)). Of directions, F holds two
/// directions at right angles to the mean, and E is the covariance of the components along them
/// over the square of the mean resultant length; means of directions that are more than a right
/// angle apart have a G of infinity.
///
/// Neither symmetry nor equal concentrations are assumed. For the probability, each sample is
/// turned so that its mean is that of all rows, and rows are exchanged between the samples at
/// random.
///
/// @param first,second  unit vectors; kFewestRowsOfMean or more, each counts once. The order of the
///                      rows does not matter, nor does the sense of axes
/// @return empty when stopped, for too few rows, and where a sample does not have a mean with an
///         uncertainty: rows in one plane or along one line, t3 = t2, or no resultant. O(rows
///         tries)
///
/// M. J. Prentice (1984), Biometrika 71, 19-27, for E; G and its use with permutations: G. J. A.
/// Amaral, I. L. Dryden, A. T. A. Wood (2007), J. Amer. Statist. Assoc. 102, 695-707.
[[nodiscard]] std::optional<TestOutcome> EqualMeansTest(std::span<const Direction> first,
                                                        std::span<const Direction> second,
                                                        LinePolarity polarity,
                                                        const Repetition& repetition);

} // namespace quandrel
