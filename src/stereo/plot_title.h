// SPDX-License-Identifier: MIT
//
// The caption of a plot's window.

#pragma once

#include <string>

namespace quandrel {

/// What is said of gActivePlot: its title, the set shown, the kind of data.
[[nodiscard]] std::string TitleOfPlot();

/// The same, with the table that the plot is linked to.
[[nodiscard]] std::string CaptionOfPlot();

/// Writes CaptionOfPlot to the window of gActivePlot.
void UpdateTitle();

} // namespace quandrel
