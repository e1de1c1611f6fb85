// SPDX-License-Identifier: MIT
//
// The input from which the rose of a plot was last computed. It is counted again when that input
// has changed, and can stay when the user refuses a change.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"

namespace quandrel {

/// Stores rows, settings and the formulas of circular statistics of a plot, for the rose shown.
void RememberRose(Plot& plot, Formulas formulas);

/// Whether rows, formulas, or settings of the count differ from those stored, or none were stored.
[[nodiscard]] bool IsRoseStale(const Plot& plot, Formulas formulas);

/// Restores the stored settings to the record. Its rose then stays unchanged until rows, formulas
/// or settings change again. False when none were stored for this plot.
[[nodiscard]] bool RestoreRose(Plot& plot, Formulas formulas);

/// Records that the user rejects a rose of this sector size, and that there is no former rose.
void RefuseRose(Plot& plot);

/// Whether this still holds: the plot has the same rows and size, and no rose.
[[nodiscard]] bool IsRoseRefused(const Plot& plot);

/// Clears all stored state of the rose of a plot besides its record. Call it before another rose is
/// read from a file.
void ForgetRose(Plot& plot);

} // namespace quandrel
