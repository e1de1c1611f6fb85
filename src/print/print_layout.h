// SPDX-License-Identifier: MIT
//
// Plots on a page: positions and sizes of their nets, and the space for legend and texts.
//
// Lengths are millimetres in full precision, positions are measured from the top left corner of the
// paper. The user's units, with one decimal, are used only for display and input. The size of a
// plot is the radius of its net. A plot reserves a square that extends 1100 plot units to each
// side, so that marks around the net have space.

#pragma once

#include "platform/printer_port.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

enum class PageUnits : int { Centimetres = 0, Inches = 1 };

/// The names of the units, by number.
inline constexpr const char* kPageUnitNames[] = {"cms", "inches"};

inline constexpr const char* kPlaceFormat = "##0.0"; ///< of a distance from the top left
inline constexpr const char* kSizeFormat = "#0.0";   ///< of a radius

[[nodiscard]] double MillimetresIn(PageUnits units);

/// A length in the units, with the decimals of a format.
[[nodiscard]] std::string LengthText(double millimetres, PageUnits units, std::string_view format);

/// Reads a length from a text in the units. A text equal to the displayed length keeps the length
/// with all its decimals. False, without a change, if the text is not a number.
[[nodiscard]] bool TakeLength(const std::string& text, PageUnits units, std::string_view format,
                              double& millimetres);

struct PlotOnPage {
    int slot = 0;
    double centreX = 0; ///< of the net, from the left
    double centreY = 0; ///< from the top
    double radius = 0;
    PageRect texts; ///< space for legend and texts; width 0 if there is none

    friend bool operator==(const PlotOnPage&, const PlotOnPage&) = default;
};

/// The plots on the page, in the order of their numbers.
struct PrintLayout {
    Sheet paper;
    PageUnits units = PageUnits::Centimetres;
    bool fitsPage = true; ///< plots are as large as the page allows, until one is moved or resized
    std::vector<PlotOnPage> plots;
};

inline constexpr double kLeastRadius = 5; ///< of a net, millimetres

/// The largest radius for a paper: half its longer side.
[[nodiscard]] double MostRadius(const Sheet& paper);

/// The square that a plot reserves.
[[nodiscard]] PageRect NetSquare(const PlotOnPage& plot);

/// The part of the paper to which plots are fitted.
[[nodiscard]] PageRect FittingArea(const Sheet& paper);

/// The numbers of the plots whose nets extend beyond the paper, in order.
[[nodiscard]] std::vector<int> PlotsOverEdge(const PrintLayout& layout);

/// A sentence that names these plots: "Plots 1 and 3 reach over the edge of the paper"; empty if
/// there are none.
[[nodiscard]] std::string OverEdgeText(const std::vector<int>& slots);

/// Makes the plots as large as the page allows: a single plot in the middle, by the shorter side of
/// the paper; several plots in a grid of cells. Each has space for legend and texts beside or below
/// its net, without overlaps.
void FitToPage(PrintLayout& layout);

/// Adds a plot to the page, unless it is there. If plots are not fitted, it is in the middle.
/// @return its index in `plots`
std::size_t SelectPlot(PrintLayout& layout, int slot);

/// Removes a plot from the page; if the others were fitted, they are fitted again.
void RemovePlot(PrintLayout& layout, std::size_t index);

/// Moves the centre of a net to a position, or to the nearest one on the paper. Legend and texts go
/// to free space beside the net. From now on the layout is the user's.
void MovePlot(PrintLayout& layout, std::size_t index, double centreX, double centreY);

/// Sets the radius of a net, from kLeastRadius to MostRadius. From now on the layout is the user's.
void SizePlot(PrintLayout& layout, std::size_t index, double radius);

/// Changes the paper: a fitted layout is fitted again; otherwise all plots are kept on the paper.
void TakePaper(PrintLayout& layout, const Sheet& paper);

} // namespace quandrel
