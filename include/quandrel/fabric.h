// SPDX-License-Identifier: MIT
//
// Fabric statistics: the orientation tensor of lines, its axes, its shape, and their confidence.
//
// Angles are degrees. E1 <= E2 <= E3 are the eigenvalues of the tensor, which add up to 1; the
// arrays of three are in the order E1 to E3. Eigenvalues that differ by less than 1e-6 count as
// equal.
//
// Example: the girdle of some poles about a fold axis that plunges to the north.
//
//     namespace qd = quandrel::api;
//     const std::vector<qd::Line> poles = {{70, 180}, {50, 131}, {50, 229}, {20, 105}, {20, 255}};
//     const std::optional<qd::Fabric> fabric = qd::FabricOf(poles);
//     std::cout << fabric->count << ' ' << std::round(fabric->axes[0].plunge) << '\n'; // -> 5 27
//     std::cout << (*fabric->gamma < 1 ? "girdle" : "cluster") << '\n'; // -> girdle

#pragma once

#include "quandrel/orientation.h"

#include <array>
#include <optional>
#include <span>

namespace quandrel::api {

/// A symmetric matrix, [row][column] along north, east and down.
using Matrix3 = std::array<std::array<double, 3>, 3>;

/// The orientation tensor: the weighted mean of the outer products of the lines as unit vectors.
///
/// @param lines    n lines; the signs of the plunges are ignored
/// @param weights  n numbers >= 0, or empty for equal weights
/// @return of trace 1; nothing when the weights sum to 0. O(n).
///
/// Formula: A. E. Scheidegger (1965), USGS Prof. Paper 525-C, C164-C167.
[[nodiscard]] std::optional<Matrix3> OrientationTensorOf(std::span<const Line> lines,
                                                         std::span<const double> weights = {});

struct PrincipalAxes {
    std::array<double, 3> eigenvalues{}; ///< E1 to E3
    std::array<Line, 3> axes{};          ///< as axes, plunge 0 to 90
};

/// The eigenvalues and axes of the orientation tensor of n lines alone.
///
/// @param threads  1 or more; no result depends on them
/// @return nothing without lines. O(n)
[[nodiscard]] std::optional<PrincipalAxes> PrincipalAxesOf(std::span<const Line> lines,
                                                           unsigned threads = 1);

/// The same of n vectors of any length but 0.
[[nodiscard]] std::optional<PrincipalAxes> PrincipalAxesOf(std::span<const Vector> vectors,
                                                           unsigned threads = 1);

/// The 95% confidence region of the principal axis.
struct AxisEllipse {
    double major = 0; ///< semi-axis; 90 when the region is unbounded in that direction
    double minor = 0; ///< semi-axis
    Line towards;     ///< direction of the major semi-axis, at right angles to the principal axis
};

/// Statistics of directions.
struct FisherStatistics {
    std::optional<Line> mean; ///< nothing without a resultant
    double resultant = 0;     ///< R, 0 to n

    /// The precision parameter by the estimate (n - 1) / (n - R), and by maximum likelihood,
    /// coth(kappa) - 1/kappa = R/n. Nothing when all lines are equal.
    std::optional<double> kappa;
    std::optional<double> kappaMaximumLikelihood;
};

/// Empty values are not determined by the data: a quotient or logarithm of 0, an axis of equal
/// eigenvalues.
struct Fabric {
    double count = 0;                    ///< n, the sum of the counts
    std::array<double, 3> eigenvalues{}; ///< accurate to 1e-12
    std::array<Line, 3> axes{};          ///< as axes, plunge 0 to 90
    std::array<bool, 3> isDetermined{};  ///< false for an axis whose eigenvalue equals another

    std::optional<Line> meanOfAxes;   ///< the mean of the lines as downward vectors
    double resultantLengthOfAxes = 0; ///< R/n of the same, 0 to 1

    std::optional<double> logRatio12; ///< ln(E2/E1)
    std::optional<double> logRatio23; ///< ln(E3/E2)
    std::optional<double> gamma;      ///< shape, ln(E3/E2) / ln(E2/E1): above 1 clusters
    std::optional<double> zeta;       ///< strength, ln(E3/E1)

    std::optional<double> fourthMoment;      ///< m4, of the cosines to the principal axis
    std::optional<double> symmetryStatistic; ///< of rotational symmetry about it; may be infinite
    std::optional<double> standardError;     ///< of the principal axis, as a sine
    std::optional<double> coneAngle;         ///< half-angle of its 95% cone
    std::optional<AxisEllipse> ellipse;      ///< its 95% region for any distribution

    std::optional<FisherStatistics> fisher; ///< only for directions
};

/// The statistics of n lines. O(n).
///
/// @param lines   used unrounded; the signs of the plunges matter only for the Fisher statistics
/// @param counts  n numbers >= 0: measurements that share a line; empty for one each
/// @param sense   directions also have Fisher statistics
/// @return nothing without lines
///
/// standardError and coneAngle assume that the distribution is symmetric about its axis.
/// symmetryStatistic (2 n (E2 - E1)^2 / (1 - 2 E3 + m4)) rejects this above 5.99, the 95% point of
/// chi-square with two degrees of freedom. The ellipse does not need it. Formulas: N. H. Woodcock
/// (1977), Geol. Soc. America Bull. 88, 1231-1236; N. I. Fisher, T. Lewis, B. J. J. Embleton,
/// Statistical Analysis of Spherical Data (1987), ch. 6; of the ellipse M. J. Prentice (1984),
/// Biometrika 71, 147-154; R. A. Fisher (1953), Proc. R. Soc. London A 217, 295-305.
[[nodiscard]] std::optional<Fabric> FabricOf(std::span<const Line> lines,
                                             std::span<const double> counts = {},
                                             Sense sense = Sense::kAxes);

} // namespace quandrel::api
