// SPDX-License-Identifier: MIT
//
// Densities row by row: the definition that the faster ways are held against.

#pragma once

#include "density/density_method.h"
#include "orientation/angles.h"

#include <span>

namespace quandrel {

/// The sum of the weights of rows at a place. O(rows).
///
/// @param rows        unit vectors
/// @param rowWeights  how often each row counts, 0 or more; empty where each counts once
/// @param place       a unit vector
[[nodiscard]] double DirectDensity(const DensityFormula& formula, std::span<const Direction> rows,
                                   std::span<const double> rowWeights, const Direction& place);

} // namespace quandrel
