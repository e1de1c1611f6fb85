// SPDX-License-Identifier: MIT
//
// The text about the position of the mouse pointer, for the readout and the information line beside
// it.

#pragma once

#include "edit/selection/net_line.h"

#include <optional>
#include <string>

namespace quandrel {

/// The line at a position on a net, in whole plot units; nothing outside the net and on a rose. A
/// position on the primitive is on the net.
///
/// @param plotKind  a PlotKindCode
/// @param x,y       plot units
[[nodiscard]] std::optional<NetLine> LineUnder(int plotKind, double x, double y);

/// The text of panDipAzBox for a position over gActivePlot; empty outside the net and without a
/// plot.
///
/// Angles are whole degrees; in a plot that uses decimals they have one decimal.
///
/// On a net: plunge and trend in the notation in force, "30/120"; for a plot of planes also the
/// plane with that pole, "30/120  (Pole to Plane: 60/300)"; with a density display also the share
/// of the rows within its cone and their number, "  [12.50% : 3 data]". If a grid of appended
/// numbers is shown, its value replaces the number of rows.
///
/// On a rose: the azimuth, the edges of the sector in degrees, and the number of observations in
/// it, "045  [40 to 50: 7 data]". Outside the sectors only the azimuth.
[[nodiscard]] std::string ReadoutText(double x, double y);

} // namespace quandrel
