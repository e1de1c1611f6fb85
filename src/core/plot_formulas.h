// SPDX-License-Identifier: MIT
//
// The formulas that the results of a plot follow: the choice of the plot, or else that of the
// preferences.

#pragma once

#include "core/formulas.h"
#include "core/plot_record.h"

namespace quandrel {

/// The formulas that a plot has chosen, or `otherwise` for a plot without a choice of its own.
[[nodiscard]] Formulas FormulasOf(const PlotRecord& record, Formulas otherwise);

/// The same with the current preferences. Results, boxes, drawings, pages and dumps of a plot all
/// follow these formulas.
[[nodiscard]] Formulas FormulasInForce(const PlotRecord& record);

} // namespace quandrel
