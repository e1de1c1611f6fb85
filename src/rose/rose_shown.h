// SPDX-License-Identifier: MIT
//
// What the rose of each plot was made from when it was last worked out, so that it is counted again
// when that has changed, and can stay when the user refuses a change. All of it is of gActivePlot.

#pragma once

namespace quandrel {

/// Notes rows and settings as those of the rose shown.
void RememberRose();

/// True when rows or settings that the count depends on differ from those noted, or none were.
[[nodiscard]] bool IsRoseStale();

/// Puts the settings noted back into the record, whose rose then stays as it is until rows or
/// settings change again. False when none were noted of this plot.
[[nodiscard]] bool RestoreRose();

/// Notes that the user wants no rose of this sector size, and that there is none to stay.
void RefuseRose();

/// Forgets whatever is kept of the rose of a plot beside its record: to be called before another
/// one comes to the slot from a file.
void ForgetRoseOfPlot(int slot);

/// True while that holds: the plot has the same rows and size, and no rose.
[[nodiscard]] bool IsRoseRefused();

} // namespace quandrel
