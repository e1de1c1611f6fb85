// SPDX-License-Identifier: MIT
//
// What the rose of a plot was made from when it was last worked out, so that it is counted again
// when that has changed, and can stay when the user refuses a change.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"

namespace quandrel {

/// Notes rows and settings of a plot as those of the rose shown, and the formulas of its circular
/// statistics.
void RememberRose(Plot& plot, Formulas formulas);

/// True when rows, formulas, or settings that the count depends on differ from those noted, or none
/// were.
[[nodiscard]] bool IsRoseStale(const Plot& plot, Formulas formulas);

/// Puts the settings noted back into the record, whose rose then stays as it is until rows,
/// formulas or settings change again. False when none were noted of this plot.
[[nodiscard]] bool RestoreRose(Plot& plot, Formulas formulas);

/// Notes that the user wants no rose of this sector size, and that there is none to stay.
void RefuseRose(Plot& plot);

/// True while that holds: the plot has the same rows and size, and no rose.
[[nodiscard]] bool IsRoseRefused(const Plot& plot);

/// Forgets whatever is kept of the rose of a plot beside its record: to be called before another
/// one comes from a file.
void ForgetRose(Plot& plot);

} // namespace quandrel
