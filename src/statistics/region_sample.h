// SPDX-License-Identifier: MIT
//
// The rows that a confidence region is computed from.

#pragma once

#include "orientation/direction_vectors.h"
#include "statistics/fabric_kernels.h"

#include <array>
#include <optional>
#include <vector>

namespace quandrel {

/// Whether the rows are lines without a sense, or directions.
enum class RowsAre { Axes, Directions };

/// Axes or directions as a distribution, in an order and a form that do not depend on the order of
/// the rows nor on which of them are given as one with a weight.
struct RegionSample {
    RowsAre kind = RowsAre::Axes;
    WeightedDirections rows; ///< all different, sorted; axes point down; weights above 0
    double total = 0;        ///< of the weights
    double count = 0;        ///< the number of rows that they are worth
};

/// The sample of rows.
///
/// @param rows   unit vectors with weights; those of no weight are left out
/// @param count  the effective number of rows where weights are not numbers of rows; without it the
///               sum of the weights
///
/// O(n log n).
[[nodiscard]] RegionSample RegionSampleOf(const WeightedDirections& rows, RowsAre kind,
                                          std::optional<double> count = std::nullopt);

/// The frame of the eigenvectors with a given centre last: e1, e2, e3, or e3, e2, e1 about e1.
struct AxisFrame {
    Frame axes{};
    std::array<double, 3> values{}; ///< eigenvalues in the same order
};

/// Which principal axis is the last of a frame.
enum class FrameCentre { Greatest, Least };

/// Empty without rows.
[[nodiscard]] std::optional<AxisFrame> AxisFrameOf(const RegionSample& sample, FrameCentre centre);

/// The frame about the mean of directions, the mean last, with the mean resultant length.
struct MeanFrame {
    Frame axes{};
    double meanLength = 0; ///< 0 to 1
};

/// Empty without rows, and where the mean resultant length is below kLeastMeanLength.
[[nodiscard]] std::optional<MeanFrame> MeanFrameOf(const RegionSample& sample);

} // namespace quandrel
