// SPDX-License-Identifier: MIT
//
// The cells of a figure sheet that its panels take.

#pragma once

#include "sheet/figure_sheet.h"

#include <vector>

namespace quandrel {

/// The first cell of a panel, from 0.
struct GridPlace {
    int column = 0;
    int row = 0;
};

struct PanelGrid {
    std::vector<GridPlace> places; ///< of the panels
    int rows = 0;
};

/// Puts each panel, in order, into the first free cells after those of the panel before it.
///
/// @param sheet  within its limits (FaultOf)
[[nodiscard]] PanelGrid GridOfPanels(const FigureSheet& sheet);

} // namespace quandrel
