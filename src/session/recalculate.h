// SPDX-License-Identifier: MIT
//
// Recalculating plots at the user's request.

#pragma once

#include "core/formulas.h"

#include <cstdint>

namespace quandrel {

/// Recalculates everything in gActivePlot and redraws it. Questions about a rose are asked again;
/// overlays of secondary data take the present values of the rows.
void RecalculateActivePlot();

/// Makes the results, drawings and readouts of a plot use the measured angles of its rows, or the
/// whole degrees that they round to: recomputes the positions of the rows, and redraws the plot
/// with all results. Rows and the user's girdles are unchanged, so that nothing needs saving. Does
/// nothing while a long loop runs (gBusy), and for a slot that is not open.
void UseDecimals(int slot, bool on);

/// Sets the formulas of the preferences. Recalculates and redraws the open plots that have no
/// choice of their own.
void UseFormulas(Formulas formulas);

/// Sets the choice of a plot, a PlotFormulasCode: recalculates its statistics by the formulas that
/// are then in force for it, and redraws it. Rows are unchanged, so that nothing needs saving. Does
/// nothing while a long loop runs (gBusy), and for a slot that is not open.
void UsePlotFormulas(int slot, std::int16_t choice);

} // namespace quandrel
