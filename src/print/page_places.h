// SPDX-License-Identifier: MIT
//
// Sharing out a page among plots: pure geometry, millimetres from the top left corner.

#pragma once

#include "platform/printer_port.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quandrel {

/// The places of a plot.
struct PlotPlaces {
    PageRect net;   ///< a square
    PageRect texts; ///< beside or below it; they do not touch
};

/// Places for plots, none overlapping another.
///
/// @param area  to be shared out, sides above 0
/// @return `count` places, in rows from the top, all nets of one size. One plot alone has the
///     largest square in the middle of the area, if the area is long enough to leave room for texts
[[nodiscard]] std::vector<PlotPlaces> FittedPlaces(const PageRect& area, std::size_t count);

/// The best room for texts beside a square: right, left, below or above it, inside an area and
/// clear of other squares. Without any room its width and height are 0.
[[nodiscard]] PageRect RoomBeside(const PageRect& square, const PageRect& area,
                                  std::span<const PageRect> others);

/// True when two rectangles have more in common than an edge.
[[nodiscard]] bool DoOverlap(const PageRect& a, const PageRect& b);

} // namespace quandrel
