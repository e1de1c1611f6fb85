// SPDX-License-Identifier: MIT
//
// Dawson's integral.

#pragma once

namespace quandrel {

/// Dawson's integral, exp(-x^2) times the integral of exp(t^2) from 0 to x.
///
/// @param x  any finite value; the function is odd
///
/// Accurate to 1e-15 of the largest value, 0.541. Below 0.5 by the power series (M. Abramowitz, I.
/// A. Stegun, Handbook of Mathematical Functions (1964), ch. 7), else by sampling (G. B. Rybicki,
/// Computers in Physics 3 (1989), 85).
[[nodiscard]] double Dawson(double x);

} // namespace quandrel
