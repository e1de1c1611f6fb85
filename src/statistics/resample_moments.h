// SPDX-License-Identifier: MIT
//
// What a bootstrap sums over the rows of a resample, and its statistic from the sums. All is in the
// frame of the sample, whose centre is the last axis, so that small components keep their digits.

#pragma once

#include "orientation/direction_vectors.h"

#include <array>
#include <limits>

namespace quandrel {

/// The centre of a resample in the frame of the sample, and how far the sample's is from it.
struct ResampleCentre {
    std::array<double, 3> centre{};                             ///< unit, or 0 without one
    double statistic = std::numeric_limits<double>::infinity(); ///< d' E^-1 d, without the factor n
};

/// Fourth moments of axes: those of second order are their sums. Padded to full vectors.
struct AxisSums {
    std::array<double, 16> values{};

    /// The products of an axis by its components.
    [[nodiscard]] static AxisSums Of(const std::array<double, 3>& axis);

    /// @param total    number of axes in the sums
    /// @param isLeast  whether the centre is the axis of the least eigenvalue, else of the greatest
    [[nodiscard]] ResampleCentre CentreOf(double total, bool isLeast) const;
};

/// First and second moments of directions. Padded to full vectors.
struct DirectionSums {
    std::array<double, 10> values{};

    /// The products of a direction by its components.
    [[nodiscard]] static DirectionSums Of(const std::array<double, 3>& direction);

    /// @param total    number of directions in the sums
    /// @param isLeast  has no meaning for directions
    [[nodiscard]] ResampleCentre CentreOf(double total, bool isLeast) const;
};

} // namespace quandrel
