// SPDX-License-Identifier: MIT
//
// The mean direction of a rose at its rim: an arrow, and the arc of its confidence.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

#include <vector>

namespace quandrel {

/// Where the arrows of the mean stand, azimuths in radians: both ends of axial data. None when the
/// arrow is not shown (RoseDisplay7), the rose has no mean direction, or the half drawn does not
/// show it.
[[nodiscard]] std::vector<double> RoseArrowAzimuths(const Plot& plot);

/// Draws the arrows just outside the rim, and the arcs on it (RoseDisplay8) where the confidence of
/// the rose is an interval.
void DrawRoseMean(const Plot& plot, const Drawing& drawing);

/// Reach of the arrows, plot units from the centre and to either side of their azimuth.
inline constexpr double kArrowLength = 91;
inline constexpr double kArrowHalfWidth = 17;

} // namespace quandrel
