// SPDX-License-Identifier: MIT
//
// Derived plots and secondary data in words. All work on gActivePlot, which must be an open plot.

#pragma once

#include <optional>
#include <string>

namespace quandrel {

/// Makes P and T axes: "0" on one plot, "1" on two, "2" on two with contours.
///
/// @param sense  "normal" or "reverse": that of faults none of whose rows tells theirs, which are
///               refused without; nothing where a row tells it
/// @return empty, or what is wrong; this of all of these
[[nodiscard]] std::string MakeAxes(const std::string& index,
                                   const std::optional<std::string>& sense = std::nullopt);

/// Makes the plot of the intersections of the two planes of each row.
[[nodiscard]] std::string MakeIntersections();

/// Plots the other set of the rows.
[[nodiscard]] std::string PlotOtherSet();

/// Lays the secondary data over the primary ones, "on", or takes them off, "off".
[[nodiscard]] std::string OverlaySecondarySet(const std::string& state);

/// Presses a symbol button 7 to 10: one that is up goes down, one that is down comes up.
[[nodiscard]] std::string PressSecondaryButton(int button);

} // namespace quandrel
