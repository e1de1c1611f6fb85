// SPDX-License-Identifier: MIT
//
// The two texts of the statistics beside a rose. Lines end in CR LF, numbers have a decimal point,
// angles are degrees. A number that could not be computed is written unchanged (99999).

#pragma once

#include "core/formulas.h"
#include "core/plot.h"

#include <string>

namespace quandrel {

/// The normal text of the rose of a plot as last computed: its data, scale, largest sectors and
/// mean direction. Lines of the mean direction are left out for kinds without one.
///
/// @param formulas  of the statistics in the record
[[nodiscard]] std::string RoseStatsShort(const Plot& plot, Formulas formulas);

/// The advanced text: RoseStatsShort, a line, and all circular statistics with their sources. The
/// statistics are left out where the rose does not have any.
[[nodiscard]] std::string RoseStatsFull(const Plot& plot, Formulas formulas);

/// Those of gActivePlot, by the current formulas.
[[nodiscard]] std::string RoseStatsShort();
[[nodiscard]] std::string RoseStatsFull();

} // namespace quandrel
