// SPDX-License-Identifier: MIT
//
// Probabilities of chi-square, by which tests are judged and regions are bounded.

#pragma once

namespace quandrel {

/// The probability that chi-square is above a value: 1 for values of 0 and less, 0 for infinity,
/// NaN for NaN. Accurate to about 1e-12 of itself.
///
/// @param degrees  of freedom, above 0
///
/// Formula: the incomplete gamma function Q(degrees/2, value/2), by its series below
/// degrees/2 + 1 and by its continued fraction above; M. Abramowitz, I. A. Stegun, Handbook of
/// Mathematical Functions (1964), 6.5.29, 6.5.31 and 26.4.19.
[[nodiscard]] double ChiSquareTail(double value, double degrees);

/// The value that chi-square with two degrees of freedom stays below at a level: -2 ln(1 - level).
///
/// @param level  0 to below 1
[[nodiscard]] double ChiSquareLimitOfTwo(double level);

} // namespace quandrel
