// SPDX-License-Identifier: MIT
//
// Dividing a page among plots: pure geometry, millimetres from the top left corner.

#pragma once

#include "platform/printer_port.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quandrel {

/// The rectangles of a plot.
struct PlotPlaces {
    PageRect net;   ///< a square
    PageRect texts; ///< beside or below the net, without contact
};

/// Rectangles for plots, without overlaps.
///
/// @param area  to be divided; both sides are greater than 0
/// @return `count` elements, in rows from the top, with nets of equal size. A single plot has the
///         largest square in the middle of the area, if the area is long enough for texts
[[nodiscard]] std::vector<PlotPlaces> FittedPlaces(const PageRect& area, std::size_t count);

/// The best space for texts beside a square: right, left, below or above it, within an area and
/// clear of other squares. If there is none, its width and height are 0.
[[nodiscard]] PageRect RoomBeside(const PageRect& square, const PageRect& area,
                                  std::span<const PageRect> others);

/// True if two rectangles share more than an edge.
[[nodiscard]] bool DoOverlap(const PageRect& a, const PageRect& b);

} // namespace quandrel
