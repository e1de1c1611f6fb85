// SPDX-License-Identifier: MIT
//
// How a plot begins and ends: its slot, its window, and which plot is active afterwards.

#pragma once

namespace quandrel {

/// A slot with a window for a new plot, made the active one. False, with a message, when all are
/// taken.
[[nodiscard]] bool PrepareNewPlotWindow();

/// Closes the plot of a slot without asking: its window goes and its slot becomes free. The open
/// plot with the highest slot comes into focus, or none.
void ClosePlot(int slot);

} // namespace quandrel
