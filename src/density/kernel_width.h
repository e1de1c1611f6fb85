// SPDX-License-Identifier: MIT
//
// The width of a kernel that the rows themselves ask for.
//
// It has the greatest likelihood of each row given the others: the sum over the rows of the
// logarithm of the density that the others have there (P. J. Diggle, N. I. Fisher, Computers &
// Geosciences 11 (1985), 725). Rows whose nearest whole degrees are the same are left out together.
// Angles are often read in whole degrees, and rows at the same place would otherwise ask for ever
// narrower kernels.

#pragma once

#include "density/density_method.h"
#include "stereo/distinct_lines.h"
#include "stereo/measured_line.h"

#include <optional>
#include <span>

namespace quandrel {

/// With more rows than this, rows are taken at their nearest whole degrees.
inline constexpr std::size_t kMostMeasuredRows = 2000;

/// kappa of DensityMethod::Kernel with the greatest likelihood.
///
/// @param rowWeights  how often each row counts, 0 or more; empty where each counts once
/// @param threads     1 or more; the result does not depend on them
/// @return a value between those of kLargestKernelWidth and kSmallestKernelWidth, accurate to 1e-4
///         of it; nothing where all rows are at the same whole degrees
///
/// Up to kMostMeasuredRows O(rows^2), half a second at most; beyond this O(rows) and half a second.
[[nodiscard]] std::optional<double> LikelyKappa(std::span<const MeasuredLine> rows,
                                                std::span<const double> rowWeights, LineSense sense,
                                                unsigned threads);

/// The same of rows in whole degrees.
[[nodiscard]] std::optional<double> LikelyKappa(std::span<const DistinctLine> lines,
                                                LineSense sense, unsigned threads);

} // namespace quandrel
