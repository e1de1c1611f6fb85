// SPDX-License-Identifier: MIT
//
// Closing plots: which of them hold something that would be lost, the questions about those, and
// the end of a plot.

#pragma once

#include <map>
#include <string>

namespace quandrel {

/// What closes.
enum class Closing {
    OneWindow,
    AllWindows,
    Application, ///< with several plots open each question is one about all of them
};

/// True when the plot of a slot has rows that no file holds, or has been changed.
[[nodiscard]] bool HoldsUnsavedData(int slot);

/// True when an open plot holds data that closing it would lose.
[[nodiscard]] bool IsAnyPlotUnsaved();

/// The files that the open plots were opened from or saved to, by slots; empty for a plot without.
[[nodiscard]] std::map<int, std::string> FilesOfOpenPlots();

/// Asks about the unsaved data of a plot, whose window comes to the front, and saves it if the user
/// wishes.
/// @return false when the plot has to stay open: the user cancelled, or the plot was not saved
[[nodiscard]] bool QueryClose(int slot, Closing closing = Closing::OneWindow);

/// Closes a plot without asking; plots that were worked out from it stand on their own then.
void CloseWithLinks(int slot);

/// Asks about a plot, then closes it. False when it stays open.
bool ClosePlotWindow(int slot);

/// Asks about all open plots, the active one first, then closes all. False when they stay open, all
/// of them.
bool CloseAllPlots(Closing closing);

/// Saves all open plots that have unsaved data. A plot that could not be saved does not keep the
/// others from being saved; a cancelled question ends the run.
/// @return false when a plot is still unsaved
bool SaveAllPlots();

} // namespace quandrel
