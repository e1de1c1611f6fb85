// SPDX-License-Identifier: MIT
//
// Commands for derived plots and secondary data. All work on gActivePlot, which must be an open
// plot.

#pragma once

#include <optional>
#include <string>

namespace quandrel {

/// Makes P and T axes: "0" on one plot, "1" on two, "2" on two with contours.
///
/// @param sense  "normal" or "reverse": the sense of faults if no row states one; such faults are
///               refused without it. Must be absent if a row states a sense
/// @return empty, or an error message; the same for all functions below
[[nodiscard]] std::string MakeAxes(const std::string& index,
                                   const std::optional<std::string>& sense = std::nullopt);

/// Makes the plot of the intersections of the two planes of each row.
[[nodiscard]] std::string MakeIntersections();

/// Plots the other set of the rows.
[[nodiscard]] std::string PlotOtherSet();

/// Adds the secondary data to the primary data, "on", or removes them, "off".
[[nodiscard]] std::string OverlaySecondarySet(const std::string& state);

/// Presses a symbol button 7 to 10, which toggles it.
[[nodiscard]] std::string PressSecondaryButton(int button);

} // namespace quandrel
