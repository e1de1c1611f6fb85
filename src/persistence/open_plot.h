// SPDX-License-Identifier: MIT
//
// The open commands, from the user's wish to a plot on the screen.

#pragma once

#include <string>

namespace quandrel {

/// Opens a file, or an empty plot.
///
/// @param command  "New", "Merge", "Overlay" ask for the path; "Blank" needs none; "File" and a
/// path
///     behind it opens that path as a new plot
/// @return the command, kBinaryCommand for a binary plot file, or kLoadError when nothing was
///     opened or added
std::string OpenPlotFile(const std::string& command);

/// As OpenPlotFile with "New", "Merge" or "Overlay", with a path that is known.
std::string OpenPlotFile(const std::string& command, const std::string& path);

/// A slot with a window for a new plot, made the active one. False, with a message, when all are
/// taken.
[[nodiscard]] bool PrepareNewPlotWindow();

/// Closes the plot of a slot without asking: its window goes and its slot becomes free. The open
/// plot with the highest slot comes into focus, or none.
void ClosePlot(int slot);

} // namespace quandrel
