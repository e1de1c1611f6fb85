// SPDX-License-Identifier: MIT
//
// The geometry of the density grid: a square of GridNodes by GridNodes nodes over the net, indexed
// (column, row) from its south-west corner, in plot units.

#pragma once

#include "core/plot_record.h"

namespace quandrel {

inline constexpr int kSmallestGridSize = 10;
inline constexpr int kLargestGridSize = kGridNodes - 3;

/// Nodes in each direction of a grid of a size; the last has the index GridNodes - 1.
[[nodiscard]] constexpr int GridNodes(int gridSize) {
    return gridSize + 3;
}

/// Distance of neighbouring nodes.
///
/// @param gridSize  kSmallestGridSize to kLargestGridSize
///
/// A whole number of units, so `gridSize` steps may be less than the net's width. The step is one
/// unit more where the grid would otherwise end before the east and north rim: at 70, and from 110
/// on.
[[nodiscard]] constexpr int GridStep(int gridSize) {
    constexpr int kNetWidth = 2000;
    const int step = kNetWidth / gridSize;
    return step * (gridSize + 1) < kNetWidth ? step + 1 : step;
}

/// Coordinate of a node, east or north. The grid begins one step outside the net.
///
/// @param index  0 to GridNodes - 1
/// @param step   GridStep of the grid
[[nodiscard]] constexpr int NodePosition(int index, int step) {
    constexpr int kRim = 1000;
    return index * step - (step + kRim);
}

} // namespace quandrel
