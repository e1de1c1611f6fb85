// SPDX-License-Identifier: MIT
//
// Whether axes form a cluster, a girdle, or neither: which of the distributions of Watson and
// Bingham they are compatible with.
//
// Bingham's distribution includes both of Watson's. Twice the logarithm of a ratio of likelihoods
// is chi-square in large samples, here with two degrees of freedom: the difference of two
// concentrations, and the turn about the axis (K. V. Mardia, P. E. Jupp, Directional Statistics,
// 2000, 10.7). That of a cluster is multiplied by 1 - 2/n: for concentrated axes this is the
// correction of the test that the variances in a plane are equal, with the degrees of freedom that
// are left beside the mean (R. J. Muirhead, Aspects of Multivariate Statistical Theory, 1982, 8.3).
// That of a girdle is multiplied by 1 - 1/(2 n): for narrow girdles it is that of uniform azimuths,
// 2 n (R^2 + R^4/4 + ...) of doubled azimuths, whose mean is 2 (1 + 1/(2 n)).

#pragma once

#include "orientation/test_outcome.h"

#include <array>
#include <optional>

namespace quandrel {

/// The distributions of greatest likelihood. Logarithms of likelihoods are relative to the uniform
/// distribution.
struct FabricModels {
    double clusterConcentration = 0; ///< kappa of Watson's cluster about e3, above 0
    double girdleConcentration = 0;  ///< of his girdle at right angles to e1, below 0
    std::array<double, 2> bingham{}; ///< k1 <= k2 <= 0
    double clusterLikelihood = 0;    ///< logarithm
    double girdleLikelihood = 0;     ///< logarithm
    double binghamLikelihood = 0;    ///< logarithm, the greatest of the three
    TestOutcome cluster;             ///< of the hypothesis of Watson's cluster
    TestOutcome girdle;              ///< of the hypothesis of Watson's girdle
    TestOutcome uniform;             ///< of uniform axes (BinghamUniformity)
    double woodcock = 0;             ///< K, ln(t3/t2) / ln(t2/t1), as in FabricShape
};

/// @param t  eigenvalues of the orientation tensor, ascending, of sum 1
/// @param n  number of axes, 1 or more
/// @return empty where the axes are in one plane, or nearly: likelihoods have no bound
[[nodiscard]] std::optional<FabricModels> FabricModelsOf(const std::array<double, 3>& t, double n);

/// What tests at a level leave over.
enum class FabricKind {
    Uniform,   ///< uniform axes are not rejected
    Cluster,   ///< a cluster is not rejected, a girdle is
    Girdle,    ///< a girdle is not rejected, a cluster is
    Neither,   ///< both are rejected: the three eigenvalues differ
    Undecided, ///< neither is rejected: the axes are too few
};

/// @param level  probabilities below it reject; 0 to 1
[[nodiscard]] FabricKind KindOfFabric(const FabricModels& models, double level = kTestLevel);

} // namespace quandrel
