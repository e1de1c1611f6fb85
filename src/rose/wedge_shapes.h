// SPDX-License-Identifier: MIT
//
// Shapes of petals: parts of rings, and petals that the edge of a half rose cuts.
//
// Angles are radians, counter-clockwise from east; radii are plot units (rose_wedges.h).

#pragma once

#include "platform/surface.h"
#include "rose/rose_tables.h"

#include <cstddef>
#include <span>
#include <vector>

namespace quandrel {

/// The radius at which a wedge begins: where the next class inside the same petal ends, or the zero
/// circle.
///
/// @param wedges  of one layer, in drawing order
[[nodiscard]] double InnerRadiusOf(std::span<const RoseWedge> wedges, std::size_t i,
                                   double zeroRadius);

/// The corners of a wedge from an inner radius, along arcs that are accurate to 0.01 units. From
/// the centre, with an inner radius of 0, the last corner is the centre.
[[nodiscard]] std::vector<Point> CornersOfRingPart(const RoseWedge& wedge, double innerRadius);

/// The parts of a wedge that a shape of rose shows (rose_furniture.h): the wedge itself, none, one,
/// or two where a wedge of more than half a turn reaches a half from both of its sides.
[[nodiscard]] std::vector<RoseWedge> PartsShown(const RoseWedge& wedge, int shape);

} // namespace quandrel
