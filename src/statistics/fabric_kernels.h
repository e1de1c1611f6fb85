// SPDX-License-Identifier: MIT
//
// The arithmetic of fabric statistics, in doubles: sums over directions, the orientation tensor,
// its axes, and what describes the shape of a distribution by them.
//
// Directions are unit vectors along north, east and down. Rows that share a line come as one
// direction with their number as its weight: results are those of the single rows. E1 <= E2 <= E3
// are the eigenvalues of the orientation tensor, which add up to 1; e1, e2, e3 their axes.

#pragma once

#include "core/formulas.h"
#include "orientation/angles.h"
#include "orientation/eigen.h"
#include "stereo/distinct_lines.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Stands for a result that could not be worked out.
inline constexpr double kFailedResult = 99999;

/// Stands for the standard error of a distribution that is not symmetric about its axis.
inline constexpr double kNotSymmetric = -1;

/// Plunge and trend of a mean that has no direction.
inline constexpr double kNoDirection = 9999;

/// Eigenvalues below this count as 0, and differences of eigenvalues too: the results are kept in
/// 32 bits.
inline constexpr double kLeastEigenvalue = 1e-6;

/// A resultant shorter than this for each direction has no direction: the rest is rounding.
inline constexpr double kLeastMeanLength = 1e-9;

/// Directions with their weights, as parallel arrays.
struct WeightedDirections {
    std::vector<Direction> directions;
    std::vector<double> weights;
};

/// How lines turn into directions.
enum class LinePolarity {
    /// As axes: a negative plunge counts as a positive one, the direction points down.
    kAxial,
    /// As directions: the trend beside a negative plunge is that of the lower end, and the
    /// direction points the other way.
    kDirected,
};

/// The directions of lines, their rows as weights. O(lines), without trigonometry for each.
[[nodiscard]] WeightedDirections DirectionsOf(std::span<const DistinctLine> lines,
                                              LinePolarity polarity);

/// The sum of the weights.
[[nodiscard]] double TotalWeight(std::span<const double> weights);

/// The resultant: the weighted sum of directions. Components that are nothing but rounding of the
/// sum are 0: directions that cancel, or are all vertical, leave none.
///
/// @param weights  one for each direction
[[nodiscard]] Direction ResultantOf(std::span<const Direction> directions,
                                    std::span<const double> weights);

/// Length of a vector.
[[nodiscard]] double LengthOf(const Direction& vector);

/// Orientation tensor: the weighted mean of the outer products. O(n).
///
/// @param weights  one for each direction, >= 0
/// @return symmetric, of trace 1; nothing when the weights sum to 0
/// Formula: A. E. Scheidegger (1965), USGS Prof. Paper 525-C, C164-C167.
[[nodiscard]] std::optional<Matrix3> OrientationTensor(std::span<const Direction> directions,
                                                       std::span<const double> weights);

/// The weighted mean of the fourth power of the cosine between the directions and an axis.
///
/// @return nothing when the weights sum to 0
[[nodiscard]] std::optional<double> FourthMoment(std::span<const Direction> directions,
                                                 std::span<const double> weights,
                                                 const Direction& axis);

/// Eigenvalues in ascending order with their unit axes.
struct FabricAxes {
    std::array<double, 3> values{};
    std::array<Direction, 3> axes{};
};

/// Sorts an eigensystem and turns its vectors down; a horizontal one points north, or east.
///
/// The greatest and the least are found by comparison: of equal values the first one is taken, and
/// three equal ones keep their order.
[[nodiscard]] FabricAxes SortedAxes(const EigenSystem3& system);

/// Plunge (0 to kPi/2) and trend of a direction as an axis: of an upward one those of its mirror.
void AxisToLine(const Direction& axis, double& plunge, double& trend);

/// A direction as plunge and trend: one that points up has a negative plunge and the trend of its
/// lower end, as in LinePolarity::kDirected.
void DirectedLine(const Direction& direction, double& plunge, double& trend);

/// Shape and strength of a fabric; kFailedResult where a logarithm of 0 or a division by 0 stood in
/// the way.
///
/// Formula: N. H. Woodcock (1977), Geol. Soc. America Bull. 88, 1231-1236.
struct FabricShape {
    double ratio12 = kFailedResult; ///< ln(E2/E1)
    double ratio23 = kFailedResult; ///< ln(E3/E2)
    double gamma = kFailedResult;   ///< shape: ratio23 / ratio12, above 1 clusters, below girdles
    double zeta = kFailedResult;    ///< strength: ln(E3/E1)
};

[[nodiscard]] FabricShape ShapeOf(const std::array<double, 3>& eigenvalues);

/// What the tests of the principal axis take.
struct AxisSample {
    double count = 0;                    ///< number of rows, 1 or more
    std::array<double, 3> eigenvalues{}; ///< ascending
    double fourthMoment = 0;             ///< of the rows about e3
};

/// Beyond this the hypothesis of rotational symmetry is given up: -2 ln(0.05), the 95% point of
/// chi-square with two degrees of freedom.
inline constexpr double kSymmetryLimit = 5.99146454710798;

/// Test of rotational symmetry about e3, 2 n (E2 - E1)^2 / (1 - E3 + m4), m4 the fourth moment;
/// kFailedResult when the denominator is 0.
[[nodiscard]] double SymmetryStatistic(const AxisSample& sample);

/// The test as textbooks have it, with 1 - 2 E3 + m4 below the stroke; infinite when that is 0 and
/// E1 and E2 differ, 0 when they do not.
///
/// Formula: N. I. Fisher, T. Lewis, B. J. J. Embleton, Statistical Analysis of Spherical Data
/// (1987), ch. 6.
[[nodiscard]] double TextbookSymmetryStatistic(const AxisSample& sample);

/// Whether the hypothesis of rotational symmetry about e3 stands: SymmetryStatistic, in the
/// textbook TextbookSymmetryStatistic, is kSymmetryLimit at most.
///
/// @param sample  for the textbook's statistic in doubles throughout: of concentrated axes what
///                stands below its stroke is smaller than the rounding of 32 bits
[[nodiscard]] bool IsSymmetricAboutAxis(const AxisSample& sample, Formulas formulas);

/// The sample of directions in doubles; nothing without weight.
[[nodiscard]] std::optional<AxisSample> AxisSampleOf(const WeightedDirections& axes);

/// Spherical standard error of e3, sqrt((E3 - m4) / n) / (E3 - E2). Rows that all share one line
/// have 0.
///
/// @return kFailedResult for a single row, and when E2 and E3 are equal
/// Formula: Fisher, Lewis, Embleton (1987), ch. 6, large samples with rotational symmetry.
[[nodiscard]] double SphericalStandardError(const AxisSample& sample);

/// Turns a standard error into the sine of the semi-angle of the 95% cone: sqrt(-ln 0.05), which
/// the program's own formula has rounded.
[[nodiscard]] constexpr double ConeFactor(Formulas formulas) {
    return formulas == Formulas::Textbook ? 1.7308183826022854 : 1.731;
}

/// Whether eigenvalues leave no doubt about an axis: none of the others counts as equal to its own.
///
/// @param axis  1 of the least to 3 of the greatest
[[nodiscard]] bool IsAxisDetermined(const std::array<double, 3>& eigenvalues, std::size_t axis);

} // namespace quandrel
