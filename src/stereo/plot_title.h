// SPDX-License-Identifier: MIT
//
// The caption of a plot's window.

#pragma once

#include <string>

namespace quandrel {

/// The description of gActivePlot: its title, the set shown, the kind of data.
[[nodiscard]] std::string TitleOfPlot();

/// The same, with the table to which the plot is linked.
[[nodiscard]] std::string CaptionOfPlot();

/// Writes CaptionOfPlot to the window of gActivePlot.
void UpdateTitle();

} // namespace quandrel
