// SPDX-License-Identifier: MIT

#include "sheet/panel_grid.h"

#include <algorithm>
#include <set>
#include <utility>

namespace quandrel {

namespace {

using Cells = std::set<std::pair<int, int>>; ///< row, column

bool IsFree(const Cells& taken, const GridPlace& place, const SheetPanel& panel) {
    for (int row = 0; row < panel.rows; ++row) {
        for (int column = 0; column < panel.columns; ++column) {
            if (taken.contains({place.row + row, place.column + column})) {
                return false;
            }
        }
    }
    return true;
}

void Take(Cells& taken, const GridPlace& place, const SheetPanel& panel) {
    for (int row = 0; row < panel.rows; ++row) {
        for (int column = 0; column < panel.columns; ++column) {
            taken.insert({place.row + row, place.column + column});
        }
    }
}

} // namespace

PanelGrid GridOfPanels(const FigureSheet& sheet) {
    PanelGrid grid;
    Cells taken;
    GridPlace next;
    for (const SheetPanel& panel : sheet.panels) {
        while (next.column + panel.columns > sheet.columns || !IsFree(taken, next, panel)) {
            if (++next.column >= sheet.columns) {
                next = {0, next.row + 1};
            }
        }
        Take(taken, next, panel);
        grid.places.push_back(next);
        grid.rows = std::max(grid.rows, next.row + panel.rows);
    }
    return grid;
}

} // namespace quandrel
