// SPDX-License-Identifier: MIT
//
// The standard normal distribution.

#pragma once

namespace quandrel {

/// The probability that a standard normal number is below a value.
[[nodiscard]] double NormalBelow(double value);

/// The value that a standard normal number is below with a probability: NormalBelow solved for its
/// value, to about 1e-13.
///
/// @param probability  above 0, below 1
///
/// Start: M. Abramowitz, I. A. Stegun, Handbook of Mathematical Functions (1964), 26.2.23; then the
/// iteration of E. Halley.
[[nodiscard]] double NormalQuantile(double probability);

} // namespace quandrel
