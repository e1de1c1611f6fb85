// SPDX-License-Identifier: MIT
//
// Recalculating plots at the user's request.

#pragma once

#include "core/formulas.h"

namespace quandrel {

/// Recalculates everything in gActivePlot and redraws it. Questions about a rose are asked again;
/// overlays of secondary data take the present values of the rows.
void RecalculateActivePlot();

/// Makes the results, drawings and readouts of a plot use the measured angles of its rows, or the
/// whole degrees that they round to: recomputes the positions of the rows, and redraws the plot
/// with all results. Rows and the user's girdles are unchanged, so that nothing needs saving. Does
/// nothing while a long loop runs (gBusy), and for a slot that is not open.
void UseDecimals(int slot, bool on);

/// Sets the formulas in force, recalculates the statistics of all open plots with them, and redraws
/// the plots.
void UseFormulas(Formulas formulas);

} // namespace quandrel
