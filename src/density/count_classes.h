// SPDX-License-Identifier: MIT
//
// Classes of the counts within cones about axes, without counting where the class is clear.

#pragma once

#include "density/axis_cells.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace quandrel {

/// What the cones about axes hold.
struct CountClasses {
    std::vector<std::int32_t>
        ofAxis;                ///< by the order of the axes in the constructor of their cells
    std::int32_t greatest = 0; ///< the greatest count; 0 without axes
};

/// Finds the class of the count within a cone about each axis, itself included, and the greatest
/// count. Each cell of axes has bounds of its counts, from running totals along the rings. Where
/// these differ in class, or exceed the greatest count found, groups of its axes get bounds of
/// their own, from single axes; only in groups of which the same is true are axes counted.
///
/// @param halfAngle  radians, 0 to kPi / 6
/// @param classOf    the class of a count; must not fall as the count rises. Called by `threads`
///                   threads at once
/// @param threads    1 or more; the result does not depend on it
[[nodiscard]] CountClasses ClassesOfCounts(const AxisCells& axes, double halfAngle,
                                           const std::function<std::int32_t(std::int32_t)>& classOf,
                                           unsigned threads);

} // namespace quandrel
