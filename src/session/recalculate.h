// SPDX-License-Identifier: MIT
//
// Working plots out anew at the user's wish.

#pragma once

#include "core/formulas.h"

namespace quandrel {

/// Works everything of gActivePlot out anew and draws it. What was asked and answered of a rose is
/// asked again; overlays of secondary data take over what the rows hold now.
void RecalculateActivePlot();

/// Takes the formulas as those in force, works the statistics of all open plots out by them, and
/// draws the plots.
void UseFormulas(Formulas formulas);

} // namespace quandrel
