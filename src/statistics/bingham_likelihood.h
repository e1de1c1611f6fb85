// SPDX-License-Identifier: MIT
//
// Watson's and Bingham's distributions of axes: normalising constants in full precision and fits by
// maximum likelihood.
//
// Densities are with respect to the uniform distribution: Watson's is exp(kappa c^2)/M, c the
// component along its axis, with a cluster about it for kappa > 0 and a girdle at right angles to
// it for kappa < 0. Bingham's is exp(k1 x1^2 + k2 x2^2)/c, x1, x2 the components along e1, e2;
// k1 <= k2 <= 0.
//
// G. S. Watson (1965), Biometrika 52, 193-201. C. Bingham (1974), Annals of Statistics 2,
// 1201-1225. K. V. Mardia, P. E. Jupp, Directional Statistics (2000), 9.4 and 10.3.

#pragma once

#include <array>
#include <optional>

namespace quandrel {

/// The greatest size of a concentration that is found. Axes that are more concentrated are equal to
/// measuring precision.
inline constexpr double kGreatestAxialConcentration = 1e6;

/// ln M(kappa) of Watson's distribution, M = 1F1(1/2; 3/2; kappa), the integral of exp(kappa u^2)
/// for u from 0 to 1. Relative precision of M about 1e-14.
[[nodiscard]] double WatsonLogConstant(double kappa);

/// The mean of c^2 in Watson's distribution: 1/3 for a kappa of 0, increasing with it.
[[nodiscard]] double WatsonMeanSquare(double kappa);

/// The concentration of greatest likelihood: WatsonMeanSquare solved for kappa.
///
/// @param meanSquare  mean c^2 of the data: the greatest eigenvalue for the best cluster, the least
///                    for the best girdle
/// @return empty where its size is beyond kGreatestAxialConcentration
[[nodiscard]] std::optional<double> WatsonConcentration(double meanSquare);

/// The constant of a Bingham distribution, and the moments of its squared components.
struct BinghamMoments {
    double constant = 1;                           ///< c
    std::array<double, 2> squares{};               ///< means of x1^2, x2^2
    std::array<std::array<double, 2>, 2> fourth{}; ///< means of xi^2 xj^2
};

/// Moments by integration: exact along x3, by the trapezoidal rule in the angle about it, refined
/// until nothing changes. About 1e-13 of each.
///
/// @param k  -kGreatestAxialConcentration to 0 each
[[nodiscard]] BinghamMoments BinghamMomentsOf(const std::array<double, 2>& k);

/// The concentrations of greatest likelihood.
///
/// @param t  eigenvalues of the orientation tensor, ascending, of sum 1
/// @return k1 <= k2 <= 0; empty where one is beyond kGreatestAxialConcentration: t1 is 0, or nearly
[[nodiscard]] std::optional<std::array<double, 2>>
BinghamConcentrations(const std::array<double, 3>& t);

} // namespace quandrel
