// SPDX-License-Identifier: MIT
//
// What the panels of a figure sheet show: the plots of their files, worked out.

#pragma once

#include "core/plot.h"
#include "core/result.h"
#include "core/settings_value.h"
#include "fabric/draw_fabric.h"
#include "sheet/figure_sheet.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// What a panel shows.
struct PanelContent {
    std::shared_ptr<const Plot> plot; ///< null for a text
    std::vector<FabricPoint> fabrics; ///< of a fabric plot
    std::string name;                 ///< of the plot in captions
};

/// The panel of a plot as it is now. A plot that is saved in a binary plot file stays in its file;
/// another one is put into the sheet. Statistics keep the text that the plot shows now.
///
/// @param kind  not Text
/// @return a failure, a text for the user, for a plot that no file can hold
[[nodiscard]] Result<SheetPanel> PanelOfPlot(PanelKind kind, const Plot& plot);

/// A sheet that holds all its plots: those of files as well, without the paths of their data.
///
/// @param contents  of its panels
/// @return a failure as PanelOfPlot
[[nodiscard]] Result<FigureSheet> WithItsPlots(const FigureSheet& sheet,
                                               const std::vector<PanelContent>& contents);

/// A sheet whose panels have the present state of open plots.
struct UpdatedSheet {
    FigureSheet sheet;
    std::vector<std::size_t> unchanged; ///< panels of plots that are not open, from 0
};

/// Gives each panel the present state of its plot; names, titles and spans stay. The plot of a
/// panel is the open one of its file or, for a plot in the sheet, the only open one of its name.
///
/// @param plots  open plots, none null
/// @return a failure as PanelOfPlot
[[nodiscard]] Result<UpdatedSheet> UpdatedFrom(const std::vector<const Plot*>& plots,
                                               const FigureSheet& sheet);

/// The panel of a binary plot file.
[[nodiscard]] SheetPanel PanelOfFile(PanelKind kind, const std::string& path);

/// Opens the plot of a panel. Nothing is put into the plot store, and no question is asked.
///
/// @param settings  for the results that are worked out
/// @return a failure, a text for the user, for a file that cannot be read
[[nodiscard]] Result<PanelContent> ContentOf(const SheetPanel& panel, const Settings& settings);

/// Those of all panels. Panels of equal plots share one.
///
/// @return a failure that names the panel
[[nodiscard]] Result<std::vector<PanelContent>> ContentOf(const FigureSheet& sheet,
                                                          const Settings& settings);

/// The style of a sheet: a standard one, or that of its file.
[[nodiscard]] Result<std::shared_ptr<const FigureStyle>> StyleOfSheet(const FigureSheet& sheet);

} // namespace quandrel
