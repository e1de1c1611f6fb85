// SPDX-License-Identifier: MIT
//
// The concentration kappa of a distribution about a mean direction, on the circle or the sphere.

#pragma once

namespace quandrel {

/// The concentration with the given mean resultant length, found by bisection.
///
/// @param lengthOf    mean resultant length of a concentration: an increasing function. For a
///                    length R the concentration must be below 1 / (1 - R) + 1
/// @param meanLength  below 1; values of 0 and less give 0
template <class LengthOf>
[[nodiscard]] double ConcentrationOf(LengthOf lengthOf, double meanLength) {
    if (meanLength <= 0) {
        return 0;
    }
    double low = 0;
    double high = 1 / (1 - meanLength) + 1;
    for (int step = 0; step < 200 && high - low > 1e-15 * high; ++step) {
        const double middle = (low + high) / 2;
        (lengthOf(middle) < meanLength ? low : high) = middle;
    }
    return (low + high) / 2;
}

} // namespace quandrel
