// SPDX-License-Identifier: MIT
//
// Lines on the sphere as the net shows them.

#pragma once

#include "orientation/angles.h"
#include "platform/surface.h"

#include <span>
#include <vector>

namespace quandrel {

/// The plotted position of a direction, or of its opposite end.
///
/// @param isDown  whether the direction is on the lower hemisphere, which on the primitive itself
///                the line decides that it belongs to
[[nodiscard]] Point EndOnNet(int plotKind, const Direction& direction, bool isDown);

/// A line through unit vectors on the lower hemisphere, as open lines on the net. Where it crosses
/// the primitive it continues on the far side, because upward directions are plotted by their
/// opposite ends; lines end on the primitive.
///
/// @param plotKind  projection
/// @param line      vertices close to each other, for the lines between them are straight; of a
///                  closed line the last one is the first
///
/// A closed line is cut at the primitive alone.
[[nodiscard]] std::vector<std::vector<Point>> TraceOnNet(int plotKind,
                                                         std::span<const Direction> line);

} // namespace quandrel
