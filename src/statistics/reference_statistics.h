// SPDX-License-Identifier: MIT
//
// Fabric statistics in full precision, with the textbook's formulas: a reference for the printed
// statistics, and values that these do not include.

#pragma once

#include "orientation/angles.h"
#include "stereo/distinct_lines.h"

#include <array>
#include <optional>
#include <span>

namespace quandrel {

struct WeightedDirections;

/// Statistics of directions by R. A. Fisher (1953), Proc. R. Soc. London A 217, 295-305.
struct FisherStatistics {
    double plunge = 0;    ///< of the mean direction, radians, negative upward; or kNoDirection
    double trend = 0;     ///< radians, for an upward mean that of its lower end
    double resultant = 0; ///< R, 0 to n

    /// Precision parameter, the estimate (n - 1) / (n - R); empty when all rows share a line.
    std::optional<double> kappa;

    /// Maximum likelihood: coth(kappa) - 1/kappa = R/n; empty when all rows share a line.
    std::optional<double> kappaMaximumLikelihood;
};

/// 95% confidence region of the principal axis: an ellipse for large samples, for any distribution.
///
/// Formula: M. J. Prentice (1984), Biometrika 71, 147-154; N. I. Fisher, T. Lewis, B. J. J.
/// Embleton, Statistical Analysis of Spherical Data (1987), ch. 6.
struct ConfidenceEllipse {
    double major = 0;         ///< semi-axis, radians, kPi/2 for the whole circle
    double minor = 0;         ///< semi-axis, radians
    Direction majorDirection; ///< at right angles to the principal axis, pointing down
};

/// Empty: a logarithm or a quotient failed, or equal eigenvalues leave the result undetermined.
struct ReferenceStatistics {
    double count = 0;                    ///< rows
    std::array<double, 3> eigenvalues{}; ///< ascending, accurate to 1e-12
    std::array<Direction, 3> axes{};     ///< of unit length, pointing down
    std::array<bool, 3> hasAxis{};       ///< false where another eigenvalue is equal

    double axialPlunge = 0;          ///< of the mean of the rows as downward axes, radians
    double axialTrend = 0;           ///< radians; both are kNoDirection without a direction
    double axialResultantLength = 0; ///< R/n of the same

    std::optional<double> logRatio12; ///< ln(E2/E1)
    std::optional<double> logRatio23; ///< ln(E3/E2)
    std::optional<double> gamma;
    std::optional<double> zeta;

    std::optional<double> fourthMoment;       ///< about the principal axis
    std::optional<double> symmetryStatistic;  ///< with 1 - 2 E3 + m4; may be infinite
    std::optional<double> standardError;      ///< of the principal axis; assumes symmetry
    std::optional<double> coneAngle;          ///< semi-angle of its 95% cone, radians
    std::optional<ConfidenceEllipse> ellipse; ///< empty without a single principal axis
    std::optional<FisherStatistics> fisher;   ///< of polar lines
};

/// Whether the rows are axes or directions.
enum class RowSense { kAxes, kPolarLines };

/// The statistics of directions with their weights. O(n).
///
/// @param axes   the rows as downward directions
/// @param polar  the same rows with their senses, for the Fisher statistics; may be empty
/// @return empty without weight
[[nodiscard]] std::optional<ReferenceStatistics>
ReferenceStatisticsOf(const WeightedDirections& axes, const WeightedDirections* polar);

/// The same from whole degrees. O(lines).
///
/// @param lines  the distinct lines with their rows
/// @return empty without rows
[[nodiscard]] std::optional<ReferenceStatistics>
ComputeReferenceStatistics(std::span<const DistinctLine> lines, RowSense sense);

/// The same from lines in whole degrees or measured.
[[nodiscard]] std::optional<ReferenceStatistics> ReferenceStatisticsOfLines(const RowLines& lines,
                                                                            RowSense sense);

/// The reference of the main rows of gActivePlot; in a plot of P and T axes that of P. Rows count
/// as they were measured, whether the plot uses decimals or not.
[[nodiscard]] std::optional<ReferenceStatistics> ReferenceStatisticsOfActivePlot();

/// Solves coth(kappa) - 1/kappa = R/n for kappa.
///
/// @param meanLength  R/n, 0 to below 1
[[nodiscard]] double FisherKappaOf(double meanLength);

} // namespace quandrel
