// SPDX-License-Identifier: MIT
//
// Modified Bessel functions of the orders 0 and 1, without the exponential of their growth.

#pragma once

namespace quandrel {

/// Values at z >= 0, each times exp(-z).
struct ScaledBessel {
    double i0 = 1;               ///< I0(z)
    double i1 = 0;               ///< I1(z)
    double difference = 1;       ///< I0(z) - I1(z), without the loss of digits
    double i1OverArgument = 0.5; ///< I1(z)/z, 1/2 at 0
};

/// To about 1e-14 of each value, 1e-13 of the difference.
///
/// Formula: M. Abramowitz, I. A. Stegun, Handbook of Mathematical Functions (1964), 9.6.10 and, for
/// z > 30, where its terms fall below exp(-60), 9.7.1.
[[nodiscard]] ScaledBessel ScaledBesselOf(double z);

} // namespace quandrel
