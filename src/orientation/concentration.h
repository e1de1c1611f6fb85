// SPDX-License-Identifier: MIT
//
// The concentration kappa of a distribution about a mean direction, on the circle or the sphere.

#pragma once

namespace quandrel {

/// The concentration whose mean resultant length is the one given, by halving.
///
/// @param lengthOf    mean resultant length of a concentration; grows with it, and for a length R
///                    the concentration is below 1 / (1 - R) + 1
/// @param meanLength  below 1; 0 and less give 0
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
