// SPDX-License-Identifier: MIT
//
// Opening and closing a plot: its slot, its window, and which plot is active afterwards.

#pragma once

namespace quandrel {

/// Takes a slot with a window for a new plot and makes it active. False, with a message, when full.
[[nodiscard]] bool PrepareNewPlotWindow();

/// Closes the plot of a slot without asking: removes its window and frees its slot. The open plot
/// with the highest slot comes into focus, or none.
void ClosePlot(int slot);

} // namespace quandrel
