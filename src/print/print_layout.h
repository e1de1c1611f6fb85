// SPDX-License-Identifier: MIT
//
// Plots on a page: where their nets stand, how large they are, and the room for legend and texts.
//
// Lengths are millimetres in full precision, places run from the top left corner of the paper; the
// units of the user, with one decimal, are only a way to show and to take them. The size of a plot
// is the radius of its net. A plot keeps a square of 1100 plot units to all sides for itself, so
// that marks about the net have room.

#pragma once

#include "platform/printer_port.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

enum class PageUnits : int { Centimetres = 0, Inches = 1 };

/// The names of the units, by their number.
inline constexpr const char* kPageUnitNames[] = {"cms", "inches"};

inline constexpr const char* kPlaceFormat = "##0.0"; ///< of a distance from the top left
inline constexpr const char* kSizeFormat = "#0.0";   ///< of a radius

/// Millimetres in a unit.
[[nodiscard]] double MillimetresIn(PageUnits units);

/// A length in the units, with the decimals of a format.
[[nodiscard]] std::string LengthText(double millimetres, PageUnits units, std::string_view format);

/// Takes a length from a text in the units. The text that stands for the length already leaves it
/// as it is, with all its decimals. False, and nothing taken, when the text is no number.
[[nodiscard]] bool TakeLength(const std::string& text, PageUnits units, std::string_view format,
                              double& millimetres);

/// A plot on the page.
struct PlotOnPage {
    int slot = 0;
    double centreX = 0; ///< of the net, from the left
    double centreY = 0; ///< from the top
    double radius = 0;
    PageRect texts; ///< room for legend and texts; without width there is none

    friend bool operator==(const PlotOnPage&, const PlotOnPage&) = default;
};

/// What the page shows, in the order of its plots' numbers.
struct PrintLayout {
    Sheet paper;
    PageUnits units = PageUnits::Centimetres;
    bool fitsPage = true; ///< plots are as large as the page allows, until one is moved or sized
    std::vector<PlotOnPage> plots;
};

inline constexpr double kLeastRadius = 5; ///< of a net, millimetres

/// The largest radius that a paper takes: half its longer side.
[[nodiscard]] double MostRadius(const Sheet& paper);

/// The square that a plot keeps for itself.
[[nodiscard]] PageRect NetSquare(const PlotOnPage& plot);

/// The part of the paper that plots are fitted into.
[[nodiscard]] PageRect FittingArea(const Sheet& paper);

/// The numbers of the plots whose nets reach over an edge of the paper, in their order.
[[nodiscard]] std::vector<int> PlotsOverEdge(const PrintLayout& layout);

/// A sentence that names these plots: "Plots 1 and 3 reach over the edge of the paper"; empty
/// without one.
[[nodiscard]] std::string OverEdgeText(const std::vector<int>& slots);

/// Makes the plots as large as the page allows: one alone in its middle, by the paper's smaller
/// side; several in a grid of cells. Each has room for legend and texts beside or below its net,
/// and nothing overlaps.
void FitToPage(PrintLayout& layout);

/// Puts a plot on the page, unless it is there. Otherwise than by fitting it stands in the middle.
/// @return its place in `plots`
std::size_t SelectPlot(PrintLayout& layout, int slot);

/// Takes a plot off the page; the others are fitted anew if they were.
void RemovePlot(PrintLayout& layout, std::size_t index);

/// Puts the centre of a net at a place, or at the nearest one on the paper. Legend and texts go
/// where there is room beside the net. The layout is the user's from now on.
void MovePlot(PrintLayout& layout, std::size_t index, double centreX, double centreY);

/// Gives a net a radius from kLeastRadius to MostRadius. The layout is the user's from now on.
void SizePlot(PrintLayout& layout, std::size_t index, double radius);

/// Takes other paper: what was fitted is fitted anew, and all else stays on the paper.
void TakePaper(PrintLayout& layout, const Sheet& paper);

} // namespace quandrel
