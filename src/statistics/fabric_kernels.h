// SPDX-License-Identifier: MIT
//
// The arithmetic of fabric statistics, in doubles: sums over directions, the orientation tensor,
// its axes, and the parameters of the shape of a distribution.
//
// Directions are unit vectors along north, east and down. Rows that share a line are one direction
// with their number as its weight: results equal those of the single rows. E1 <= E2 <= E3 are the
// eigenvalues of the orientation tensor, which add up to 1; e1, e2, e3 are their axes.

#pragma once

#include "core/formulas.h"
#include "orientation/angles.h"
#include "orientation/direction_vectors.h"
#include "orientation/eigen.h"
#include "stereo/distinct_lines.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// The value of a result that could not be computed.
inline constexpr double kFailedResult = 99999;

/// The value of the standard error of a distribution that is not symmetric about its axis.
inline constexpr double kNotSymmetric = -1;

/// Plunge and trend of a mean without a direction.
inline constexpr double kNoDirection = 9999;

/// Eigenvalues, and their differences, below this count as 0: results are stored in 32 bits.
inline constexpr double kLeastEigenvalue = 1e-6;

/// A resultant shorter than this per direction has no direction: it is rounding error.
inline constexpr double kLeastMeanLength = 1e-9;

/// Directions with their weights, as parallel arrays.
struct WeightedDirections {
    std::vector<Direction> directions;
    std::vector<double> weights;
};

/// How lines are converted to directions.
enum class LinePolarity {
    /// As axes: a negative plunge counts as a positive one, the direction points down.
    kAxial,
    /// As directions: the trend of a line with a negative plunge is that of the lower end, and the
    /// direction points the other way.
    kDirected,
};

/// The directions of lines, with their rows as weights. O(lines), without trigonometry per line.
[[nodiscard]] WeightedDirections DirectionsOf(std::span<const DistinctLine> lines,
                                              LinePolarity polarity);

/// The same of lines in whole degrees or measured. O(rows) for measured ones.
[[nodiscard]] WeightedDirections DirectionsOf(const RowLines& lines, LinePolarity polarity);

/// The sum of the weights.
[[nodiscard]] double TotalWeight(std::span<const double> weights);

/// The resultant: the weighted sum of directions. Components that are only rounding errors are 0:
/// directions that cancel, or are all vertical, leave none.
///
/// @param weights  one for each direction
[[nodiscard]] Direction ResultantOf(std::span<const Direction> directions,
                                    std::span<const double> weights);

/// Orientation tensor: the weighted mean of the outer products. O(n).
///
/// @param weights  one for each direction, >= 0
/// @return symmetric, of trace 1; empty when the weights sum to 0
///
/// Formula: A. E. Scheidegger (1965), USGS Prof. Paper 525-C, C164-C167.
[[nodiscard]] std::optional<Matrix3> OrientationTensor(std::span<const Direction> directions,
                                                       std::span<const double> weights);

/// The weighted mean of the fourth power of the cosine between the directions and an axis.
///
/// @return empty when the weights sum to 0
[[nodiscard]] std::optional<double> FourthMoment(std::span<const Direction> directions,
                                                 std::span<const double> weights,
                                                 const Direction& axis);

/// Eigenvalues in ascending order with their unit axes.
struct FabricAxes {
    std::array<double, 3> values{};
    std::array<Direction, 3> axes{};
};

/// Sorts an eigensystem and makes its vectors point down; a horizontal one points north, or east.
///
/// The greatest and the least are found by comparison: of equal values the first one is taken, and
/// three equal ones keep their order.
[[nodiscard]] FabricAxes SortedAxes(const EigenSystem3& system);

/// Plunge (0 to kPi/2) and trend of a direction as an axis: an upward one is reversed.
void AxisToLine(const Direction& axis, double& plunge, double& trend);

/// A direction as plunge and trend: an upward one has a negative plunge and the trend of its lower
/// end, as in LinePolarity::kDirected.
void DirectedLine(const Direction& direction, double& plunge, double& trend);

/// Shape and strength of a fabric; kFailedResult where a logarithm of 0 or a division by 0 would be
/// needed.
///
/// Formula: N. H. Woodcock (1977), Geol. Soc. America Bull. 88, 1231-1236.
struct FabricShape {
    double ratio12 = kFailedResult; ///< ln(E2/E1)
    double ratio23 = kFailedResult; ///< ln(E3/E2)
    double gamma = kFailedResult;   ///< shape: ratio23 / ratio12; clusters above 1, girdles below 1
    double zeta = kFailedResult;    ///< strength: ln(E3/E1)
};

[[nodiscard]] FabricShape ShapeOf(const std::array<double, 3>& eigenvalues);

/// The input of the tests of the principal axis.
struct AxisSample {
    double count = 0;                    ///< number of rows, 1 or more
    std::array<double, 3> eigenvalues{}; ///< ascending
    double fourthMoment = 0;             ///< of the rows about e3
};

/// Above this the hypothesis of rotational symmetry is rejected: -2 ln(0.05), the 95% point of
/// chi-square with two degrees of freedom.
inline constexpr double kSymmetryLimit = 5.99146454710798;

/// Test of rotational symmetry about e3: 2 n (E2 - E1)^2 / (1 - E3 + m4), m4 the fourth moment;
/// kFailedResult when the denominator is 0.
[[nodiscard]] double SymmetryStatistic(const AxisSample& sample);

/// The test by the textbook, with the denominator 1 - 2 E3 + m4. When that is 0, it is infinite if
/// E1 and E2 differ, else 0.
///
/// Formula: N. I. Fisher, T. Lewis, B. J. J. Embleton, Statistical Analysis of Spherical Data
/// (1987), ch. 6.
[[nodiscard]] double TextbookSymmetryStatistic(const AxisSample& sample);

/// Whether the hypothesis of rotational symmetry about e3 is accepted: SymmetryStatistic, or by the
/// textbook TextbookSymmetryStatistic, is at most kSymmetryLimit.
///
/// @param sample  in doubles throughout for the textbook's statistic: for concentrated axes its
///                denominator is smaller than the rounding error of 32 bits
[[nodiscard]] bool IsSymmetricAboutAxis(const AxisSample& sample, Formulas formulas);

/// The sample of directions in doubles; empty without weight.
[[nodiscard]] std::optional<AxisSample> AxisSampleOf(const WeightedDirections& axes);

/// Spherical standard error of e3: sqrt((E3 - m4) / n) / (E3 - E2). It is 0 for rows that all share
/// one line.
///
/// @return kFailedResult for a single row, and when E2 and E3 are equal
///
/// Formula: Fisher, Lewis, Embleton (1987), ch. 6, large samples with rotational symmetry.
[[nodiscard]] double SphericalStandardError(const AxisSample& sample);

/// The factor from a standard error to the sine of the semi-angle of the 95% cone: sqrt(-ln 0.05),
/// rounded in the program's own formula.
[[nodiscard]] constexpr double ConeFactor(Formulas formulas) {
    return formulas == Formulas::Textbook ? 1.7308183826022854 : 1.731;
}

/// Whether the eigenvalues determine an axis: no other eigenvalue counts as equal to its own.
///
/// @param axis  1 for the least to 3 for the greatest
[[nodiscard]] bool IsAxisDetermined(const std::array<double, 3>& eigenvalues, std::size_t axis);

} // namespace quandrel
