// SPDX-License-Identifier: MIT
//
// The sines and cosines of a line.

#pragma once

#include "stereo/measured_line.h"

namespace quandrel {

struct LineCosines {
    double sinePlunge = 0; ///< of the lower end
    double cosinePlunge = 1;
    double sineTrend = 0;
    double cosineTrend = 1;
};

/// As AxisOf computes them (measured_line.h).
[[nodiscard]] LineCosines CosinesOf(const MeasuredLine& line);

} // namespace quandrel
