// SPDX-License-Identifier: MIT
//
// The division of the page of a figure sheet.

#pragma once

#include "sheet/sheet_content.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// The styles with which a sheet is drawn.
struct SheetLook {
    const Styles& styles;
    std::shared_ptr<const FigureStyle> style;
    Formulas formulas = Formulas::Own; ///< of plots that have not chosen any
};

/// A panel on the page.
struct PlacedPanel {
    std::size_t panel = 0; ///< of the sheet, from 0
    FigureBox box;         ///< as wide as its columns, as high as its rows
    std::string letter;    ///< empty for none
    double letterWidth = 0;
    std::vector<std::string> title; ///< beside the letter
    FigureBox inside;               ///< below letter and title: what is drawn
    FigureBox net;                  ///< of a plot, as FigureLayout::net
    std::vector<std::string> lines; ///< of statistics and texts
    double textSize = 0;            ///< of the lines, points
    double lineHeight = 0;
};

struct SheetLayout {
    double width = 0;
    double height = 0;
    std::vector<PlacedPanel> panels;
    double headHeight = 0; ///< of a line of letters and titles
    FigureLayout legend;   ///< entries and bars of all panels; its net has the scale of the signs
};

inline constexpr double kLetterSize = 8;  ///< points, bold
inline constexpr double kLetterGap = 1.2; ///< from a letter to its title

/// Divides the page. Columns are equally wide; nets that take as many columns, and those of one
/// row, are equal in size. On a page of a given height nets become as small as they have to.
///
/// @param contents  of the panels (ContentOf)
/// @param unseen    measures texts; its state and scale change
/// @return a failure, a text for the user, where there is no room, or no panel
[[nodiscard]] Result<SheetLayout> LayOutSheet(const FigureSheet& sheet,
                                              const std::vector<PanelContent>& contents,
                                              const SheetLook& look, Surface& unseen);

/// The drawing of a plot in a sheet.
[[nodiscard]] Drawing DrawingOfPanel(const Plot& plot, const SheetLook& look, Surface& net,
                                     Surface& page);

/// The same without a plot, for the legend.
[[nodiscard]] Drawing DrawingOfLegend(const SheetLook& look, Surface& page);

} // namespace quandrel
