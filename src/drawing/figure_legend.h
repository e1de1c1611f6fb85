// SPDX-License-Identifier: MIT
//
// The legend of a figure: an entry for each kind of thing that its layers draw, in the terms of the
// field, and a bar for each data with filled densities. Hidden layers, and layers that draw
// nothing, have none.
//
// The legend in a plot's window is another one (legend.h).

#pragma once

#include "core/plot.h"
#include "core/record_figure.h"
#include "rose/figure_rose_fills.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"
#include "stereo/figure_symbols.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// What the sign before the text of an entry is.
enum class FigureSign {
    None,        ///< the text begins where signs do
    Blank,       ///< the text begins where those of entries with signs do
    Rows,        ///< `code`, as rows of `rows` are drawn
    TableSymbol, ///< `code`, in the size of the tables
    Axis,        ///< `axis`
    Line,        ///< `line`
    Patch,       ///< `patch`, as petals are filled
    Arrow,       ///< the slip arrow of `code`, as those of `rows` rows are drawn
};

struct FigureEntry {
    FigureSign sign = FigureSign::None;
    std::string text;
    SymbolCode code = 0;
    std::int64_t rows = 0;
    FigureAxis axis = FigureAxis::Principal;
    LineLook line;
    PetalFill patch;
    FigureLayer layer;   ///< whose own properties the sign has
    RoseName rose;       ///< in the legend of a rose: what the entry is about, and its words
    bool hasHead = true; ///< of an arrow
};

/// The colours of filled densities. The first band begins at the first level, the last one ends at
/// the greatest density.
struct FigureBar {
    std::vector<Colour> colours;      ///< of the bands, lowest first
    std::vector<std::string> numbers; ///< where each band begins
    double opacity = 1;
    std::string title; ///< "multiples of uniform, max 5.6"
    FigureLayer layer; ///< that fills the bands
};

struct FigureLegend {
    std::vector<FigureEntry> entries; ///< rows first, then lines and axes
    std::vector<FigureBar> bars;
};

/// The legend of a net or a rose whose results are worked out.
///
/// The name of a layer (FigureLayer::LayerName) replaces the text of its entry; where a layer has
/// several entries, the words before their numbers. In the legend of a rose, the words before the
/// numbers of an entry are those that the plot has for it (RoseName).
///
/// @param drawing  with the style of the figure; nothing is drawn
[[nodiscard]] FigureLegend LegendOfFigure(const Plot& plot, const Drawing& drawing);

/// Draws the sign of an entry.
///
/// @param surface  in the scale of the net
/// @param width    from end to end of a line, user units
void DrawFigureSign(Surface& surface, const Drawing& drawing, const FigureEntry& entry,
                    Point centre, double width);

} // namespace quandrel
