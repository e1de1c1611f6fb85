// SPDX-License-Identifier: MIT
//
// Watson's distributions of axes: normalising constant in full precision and fit by maximum
// likelihood.
//
// The density with respect to the uniform distribution is exp(kappa c^2)/M, c the component along
// the axis of the distribution, with a cluster about it for kappa > 0 and a girdle at right angles
// to it for kappa < 0.
//
// G. S. Watson (1965), Biometrika 52, 193-201. K. V. Mardia, P. E. Jupp, Directional Statistics
// (2000), 9.4 and 10.3.

#pragma once

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

} // namespace quandrel
