// SPDX-License-Identifier: MIT
//
// A net or a rose as a figure: on a page of a given width, with its legend beside or below it. The
// height of the page follows from what is on it. Statistics are data of the caption and are not in
// a figure.
//
// Lengths are millimetres; places are from the top left corner of the page, +y down.

#pragma once

#include "core/result.h"
#include "drawing/figure_legend.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quandrel {

enum class LegendPlace { Right, Below, None };

/// Widths of figures in journals: one column, one and a half, two.
inline constexpr double kColumnWidth = 84;
inline constexpr double kHalfPageWidth = 120;
inline constexpr double kPageWidth = 174;

/// From the ink of a figure to the edge of its page.
inline constexpr double kFigureMargin = 2;

struct FigureSize {
    double width = kColumnWidth; ///< of the page; 0 for what the net and its legend need
    double netDiameter = 0;      ///< of the primitive or the rim; 0 for what the width leaves
    LegendPlace legend = LegendPlace::Below;
};

struct FigureBox {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// An entry on the page: its sign at the left, its text in lines.
struct PlacedEntry {
    FigureEntry entry;
    FigureBox box;
    std::vector<std::string> lines;
};

/// A bar of densities on the page.
struct PlacedBar {
    FigureBar bar;
    FigureBox box;          ///< with numbers and title
    FigureBox colours;      ///< of the bands
    std::size_t stride = 1; ///< every so many numbers are written
    std::vector<std::string> title;
};

struct FigureLayout {
    double width = 0;
    double height = 0;
    FigureBox net; ///< of the scale kPlotScale: what is around the net may reach beyond it
    std::vector<PlacedEntry> entries;
    std::vector<PlacedBar> bars; ///< one for each data with filled densities
    double lineHeight = 0;       ///< of the legend's texts
};

/// Where a legend usually is: beside a net on a page of kHalfPageWidth or wider, else below it.
[[nodiscard]] LegendPlace UsualPlace(double width);

/// Divides the page of a figure.
///
/// @param drawing  its surface of the legend measures texts; its state and scale change
/// @return a failure for a page without room for the net, or for a word of the legend
[[nodiscard]] Result<FigureLayout> LayOutFigure(const Plot& plot, const Drawing& drawing,
                                                const FigureSize& size);

/// Draws a figure.
///
/// @param drawing  its surface of the plot covers the layout's net, that of the legend the page
void DrawFigure(const Plot& plot, const Drawing& drawing, const FigureLayout& layout);

/// Draws the legend of a layout alone, with signs in the scale of its net.
///
/// @param drawing  its surface of the legend covers the page; of its plot nothing is drawn
void DrawLegendOfFigure(const Drawing& drawing, const FigureLayout& layout);

} // namespace quandrel
