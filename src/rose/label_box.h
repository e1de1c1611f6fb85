// SPDX-License-Identifier: MIT
//
// Boxes of labels on a rose, plot units with +y up.

#pragma once

#include <algorithm>
#include <cmath>

namespace quandrel {

struct RoseLabelBox {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
};

/// Whether two boxes overlap.
[[nodiscard]] inline bool Meet(const RoseLabelBox& a, const RoseLabelBox& b) {
    return a.left < b.right && b.left < a.right && a.bottom < b.top && b.bottom < a.top;
}

/// Whether a part of a box is within a circle about the centre.
[[nodiscard]] inline bool ReachesIntoCircle(const RoseLabelBox& box, double radius) {
    return std::hypot(std::clamp(0.0, box.left, box.right), std::clamp(0.0, box.bottom, box.top))
           < radius;
}

} // namespace quandrel
