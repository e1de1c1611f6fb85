// SPDX-License-Identifier: MIT
//
// The drawing of a figure sheet.

#pragma once

#include "sheet/sheet_layout.h"

#include <functional>
#include <vector>

namespace quandrel {

/// Gives the surface of a part of the page, millimetres.
using SurfaceOfPart = std::function<Surface&(const FigureBox& part)>;

/// Draws a sheet: panel by panel, then the legend.
void DrawSheet(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
               const SheetLook& look, const SheetLayout& layout, const SurfaceOfPart& in);

} // namespace quandrel
