// SPDX-License-Identifier: MIT
//
// Bingham's distribution of axes: constant and moments in full precision and fit by maximum
// likelihood. Its density at x is exp(k1 x1^2 + k2 x2^2)/c with respect to the uniform
// distribution; x1, x2 are the components along e1 and e2, k3 is 0.
//
// C. Bingham (1974), Annals of Statistics 2, 1201-1225. c is the hypergeometric function
// 1F1(1/2; 3/2) of the matrix with the eigenvalues k1, k2, 0.

#pragma once

#include "statistics/watson_distribution.h"

#include <array>
#include <optional>

namespace quandrel {

/// The constant of a Bingham distribution, and the moments of its squared components.
struct BinghamMoments {
    double constant = 1;                 ///< c
    std::array<double, 2> squares{};     ///< means of x1^2, x2^2
    std::array<double, 3> covariances{}; ///< of x1^2 and x2^2: 11, 12, 22
};

/// Moments by integration over the sphere: c and the means to about 1e-15 of themselves, the
/// covariances to 1e-16 of the product of the means.
///
/// @param k  k1 and k2, in either order, -kGreatestAxialConcentration to 1
///
/// The angle about e3 is integrated exactly, c = integral of exp(k2 v) I0(h v) exp(-h v) over u
/// from 0 to 1, v = 1 - u^2, h = |k1 - k2|/2 and k2 the greater; the rest by the rule of Gauss
/// between powers of 2.
[[nodiscard]] BinghamMoments BinghamMomentsOf(const std::array<double, 2>& k);

/// The concentrations of greatest likelihood, to 1e-9 of themselves or 1e-9.
///
/// @param t1,t2  the lesser two eigenvalues of the orientation tensor, t1 <= t2 <= 1 - t1 - t2
/// @return k1 <= k2 <= 0; empty where one is beyond kGreatestAxialConcentration: t1 is 0, or nearly
[[nodiscard]] std::optional<std::array<double, 2>> BinghamConcentrations(double t1, double t2);

} // namespace quandrel
