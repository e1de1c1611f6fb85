// SPDX-License-Identifier: MIT
//
// Closing plots: which of them hold unsaved data, the questions about these, and the end of a plot.

#pragma once

#include <map>
#include <string>

namespace quandrel {

/// What is being closed.
enum class Closing {
    OneWindow,
    AllWindows,
    Application, ///< with several plots open each question is one about all of them
};

/// The state of closing.
struct ClosingState {
    bool isAsking = false; ///< a question is open; a second closing would ask about the same plots

    static ClosingState now;
};

/// True when the plot of a slot has rows that no file holds, or has been changed.
[[nodiscard]] bool HoldsUnsavedData(int slot);

/// True when an open plot holds data that closing it would lose.
[[nodiscard]] bool IsAnyPlotUnsaved();

/// The files that the open plots were opened from or saved to, by slot; empty for a plot without
/// one.
[[nodiscard]] std::map<int, std::string> FilesOfOpenPlots();

/// Brings the plot's window to the front, asks about its unsaved data, and saves it if the user
/// wishes.
/// @return false when the plot has to stay open: the user cancelled, or the plot was not saved
[[nodiscard]] bool QueryClose(int slot, Closing closing = Closing::OneWindow);

/// Closes a plot without asking; plots computed from it become independent.
void CloseWithLinks(int slot);

/// Asks about a plot, then closes it. False when the plot stays open.
bool ClosePlotWindow(int slot);

/// Asks about all open plots, the active one first, then closes all. False when they all stay open.
bool CloseAllPlots(Closing closing);

/// Saves all open plots that have unsaved data. When one plot cannot be saved, the others still
/// are; a cancelled question ends the run.
/// @return false when a plot is still unsaved
bool SaveAllPlots();

} // namespace quandrel
