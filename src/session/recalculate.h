// SPDX-License-Identifier: MIT
//
// Recalculating plots at the user's request.

#pragma once

#include "core/formulas.h"

namespace quandrel {

/// Recalculates everything in gActivePlot and redraws it. Questions about a rose are asked again;
/// overlays of secondary data take the present values of the rows.
void RecalculateActivePlot();

/// Sets the formulas in force, recalculates the statistics of all open plots with them, and redraws
/// the plots.
void UseFormulas(Formulas formulas);

} // namespace quandrel
