// SPDX-License-Identifier: MIT
//
// Whether directions are a sample of Fisher's distribution: three tests about their mean direction,
// each with the points of its quantile plot.
//
// N. I. Fisher, T. Lewis, B. J. J. Embleton, Statistical Analysis of Spherical Data (1987), 5.3.2.
// For concentrations of 5 and more.

#pragma once

#include "orientation/angles.h"
#include "orientation/test_outcome.h"

#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// The fewest directions of these tests.
inline constexpr std::size_t kFewestDirectionsOfFit = 7;

/// A point of a quantile plot: if the hypothesis holds, the points are near a line through (0, 0).
struct QuantilePoint {
    double expected = 0; ///< of the distribution at (i - 1/2)/n
    double found = 0;    ///< the i-th value of the sample in ascending order
};

/// A test with its quantile plot.
struct FitTest {
    TestOutcome outcome;
    std::vector<QuantilePoint> points;
};

/// The tests of a sample. Statistics are those of Kolmogorov, D, or of Kuiper, V, modified so that
/// their probabilities hardly depend on n and on the concentration.
struct FisherFit {
    double concentration = 0; ///< (n - 1)/(n - R), R the length of the resultant

    /// 1 - cos of the angles to the mean, against the exponential distribution of their mean;
    /// expected values are of the mean 1, the line has the slope 1/concentration.
    FitTest colatitudes;

    /// Azimuths about the mean as shares of a turn, against the uniform distribution.
    FitTest longitudes;

    /// Longitudes times sqrt(sin colatitude) about a pole at right angles to the mean, against the
    /// normal distribution of the mean 0; the line has the slope 1/sqrt(concentration). The
    /// longitudes lie along the horizontal line at right angles to the mean, or along north if the
    /// mean is vertical: other poles give other values.
    FitTest twoVariables;
};

/// @return empty for fewer than kFewestDirectionsOfFit directions, equal ones, and without a mean.
///         O(n log n)
///
/// The probabilities are from simulations of the limit of concentrated directions, 400,000 samples
/// for each of nine sizes from 7 to 300 (fewer for the large ones), as the mean direction is that
/// of the sample. Between tabulated values they are interpolated.
[[nodiscard]] std::optional<FisherFit> FitFisher(std::span<const Direction> directions);

} // namespace quandrel
