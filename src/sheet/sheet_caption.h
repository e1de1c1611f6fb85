// SPDX-License-Identifier: MIT
//
// The caption of a figure sheet: a template with fields in braces, filled with the values of its
// panels.
//
//     {panels}                 a sentence on each panel
//     {net}                    "Lower-hemisphere equal-area net", "Rose diagram", ...
//     {name} {n}               of the plot, its rows
//     {rows}                   what is shown of rows: "poles to foliation, n = 200"
//     {density}                "multiples of uniform, max 5.6"
//     {shown}                  all that the legend says
//     {title} {letter}         of the panel
//
// A field is that of the first panel with a plot; that of panel 2 is {n:2}. "{{" is a brace.

#pragma once

#include "sheet/sheet_layout.h"

#include <string>
#include <vector>

namespace quandrel {

/// The caption of a sheet.
///
/// @param unseen  measures texts; its state changes
/// @return a failure, a text for the user, for a field that is unknown or without its end
[[nodiscard]] Result<std::string> CaptionOf(const FigureSheet& sheet,
                                            const std::vector<PanelContent>& contents,
                                            const SheetLook& look, Surface& unseen);

} // namespace quandrel
