// SPDX-License-Identifier: MIT
//
// Where a fabric plots by its eigenvalues: in the diagram of log ratios and in the triangle of
// point, girdle and random shares.
//
// S1 >= S2 >= S3 are the eigenvalues of the orientation tensor, the greatest first, as the sources
// of both diagrams have them: the E3, E2 and E1 of fabric_kernels.h. They add up to 1.

#pragma once

#include "statistics/fabric_kernels.h"

#include <array>
#include <optional>

namespace quandrel {

/// S1, S2, S3.
using DescendingEigenvalues = std::array<double, 3>;

/// A place in the diagram of log ratios.
struct LogRatioPlace {
    double x = 0;            ///< ln(S2/S3), 0 or more
    double y = 0;            ///< ln(S1/S2), 0 or more
    std::optional<double> k; ///< shape, y / x: above 1 clusters, below 1 girdles; empty where S2
                             ///< and S3 count as equal
    double c = 0;            ///< strength, x + y = ln(S1/S3)
};

/// @return nothing where S3 counts as 0 (kLeastEigenvalue): x then has no bound
///
/// Formula: N. H. Woodcock (1977), Geol. Soc. America Bull. 88, 1231-1236.
[[nodiscard]] std::optional<LogRatioPlace> LogRatioPlaceOf(const DescendingEigenvalues& s);

/// The shares of a fabric, each 0 to 1; together they are 1.
struct FabricShares {
    double point = 0;  ///< P = S1 - S2
    double girdle = 0; ///< G = 2 (S2 - S3)
    double random = 0; ///< R = 3 S3
};

/// Formula: F. W. Vollmer (1990), Geol. Soc. America Bull. 102, 786-791.
[[nodiscard]] FabricShares SharesOf(const DescendingEigenvalues& s);

/// The cylindricity B = P + G: 1 for a cluster, a girdle and all between, 0 for a uniform fabric.
///
/// Formula: Vollmer (1990).
[[nodiscard]] double CylindricityOf(const FabricShares& shares);

} // namespace quandrel
