// SPDX-License-Identifier: MIT
//
// Bands of rows that replace those in the column pointDensity while a plot shows them.

#pragma once

#include <cstdint>
#include <vector>

namespace quandrel {

/// Attached to a plot: the band of each main row by its point index, from 1; 0 for an error row.
struct RowBands {
    std::vector<std::uint8_t> ofRow;
};

} // namespace quandrel
