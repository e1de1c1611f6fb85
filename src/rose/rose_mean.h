// SPDX-License-Identifier: MIT
//
// The mean direction of a rose at its rim: an arrow, and the arc of its confidence.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

#include <vector>

namespace quandrel {

/// The arrows of the mean as azimuths in radians: both ends for axial data. Empty when the arrow is
/// not shown (RoseDisplay7), the rose does not have a mean direction, or the half drawn does not
/// show it.
[[nodiscard]] std::vector<double> RoseArrowAzimuths(const Plot& plot);

/// Draws the arrows just outside the rim, and the arcs on it (RoseDisplay8) where the confidence of
/// the rose is an interval.
void DrawRoseMean(const Plot& plot, const Drawing& drawing);

/// Extent of the arrows, plot units from the centre and to either side of their azimuth.
inline constexpr double kArrowLength = 91;
inline constexpr double kArrowHalfWidth = 17;

} // namespace quandrel
