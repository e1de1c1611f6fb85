// SPDX-License-Identifier: MIT
//
// The mean direction of a rose at its rim: an arrow, and the arc of its confidence.

#pragma once

#include "core/plot_record.h"

#include <optional>
#include <vector>

namespace quandrel {

/// Where the arrows of the mean stand, azimuths in radians: both ends of axial data. None when the
/// arrow is not shown (RoseDisplay7), the rose has no mean direction, or the half drawn does not
/// show it.
[[nodiscard]] std::vector<double> RoseArrowAzimuths(const PlotRecord& record);

/// Half the 95 % confidence interval of the mean direction, radians, 0 to pi/2 (pi/4 of axial
/// data; the whole of it for data so few or so dispersed that there is no interval); nothing when
/// the rose has no mean direction. Large-sample method: arc sin(1.9604 s), s the circular standard
/// error, the root of the dispersion over the number of data. N. I. Fisher, Statistical Analysis of
/// Circular Data (1993), 4.4.4.
[[nodiscard]] std::optional<double> RoseConfidenceHalfWidth(const PlotRecord& record);

/// Draws the arrows just outside the rim, and the arcs on it (RoseDisplay8) where there is an
/// interval.
void DrawRoseMean();

/// Reach of the arrows, plot units from the centre and to either side of their azimuth.
inline constexpr double kArrowLength = 91;
inline constexpr double kArrowHalfWidth = 17;

} // namespace quandrel
