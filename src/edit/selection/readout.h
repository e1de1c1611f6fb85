// SPDX-License-Identifier: MIT
//
// What the readout tells of the place under the mouse pointer, and the information line beside it.

#pragma once

#include "edit/selection/net_line.h"

#include <optional>
#include <string>

namespace quandrel {

/// The line under a position of a net, in whole plot units; nothing outside the net and on a rose.
/// A position on the primitive is on the net.
///
/// @param plotKind  a PlotKindCode
/// @param x,y       plot units
[[nodiscard]] std::optional<NetLine> LineUnder(int plotKind, double x, double y);

/// The text of panDipAzBox for a position over gActivePlot; empty outside the net and without a
/// plot.
///
/// On a net: plunge and trend in the notation in force, "30/120"; of a plot of planes the plane of
/// that pole, "30/120  (Pole to Plane: 60/300)"; with a density display the share of the rows
/// within its cone and their number, "  [12.50% : 3 data]". Where a grid of appended numbers is
/// shown its value stands in place of the number of rows.
///
/// On a rose: the azimuth, the edges of the sector in degrees, and the number of observations in
/// it, "045  [40 to 50: 7 data]". Beyond the sectors only the azimuth.
[[nodiscard]] std::string ReadoutText(double x, double y);

} // namespace quandrel
