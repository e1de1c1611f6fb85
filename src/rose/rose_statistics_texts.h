// SPDX-License-Identifier: MIT
//
// The two texts of the statistics beside a rose. Lines end in CR LF, numbers have a decimal point,
// angles are degrees. A number that could not be worked out is written as it stands (99999).

#pragma once

#include <string>

namespace quandrel {

/// The normal text of the rose of gActivePlot as last drawn: its data, scale, largest sectors and
/// mean direction. A kind without a mean direction has no such lines.
[[nodiscard]] std::string RoseStatsShort();

/// The advanced text: RoseStatsShort, a line, and all circular statistics with their sources. The
/// statistics are left out where the rose has none.
[[nodiscard]] std::string RoseStatsFull();

} // namespace quandrel
