// SPDX-License-Identifier: MIT
//
// Removes rows from the columns of a plot.

#pragma once

#include "core/plot.h"

#include <cstdint>
#include <span>

namespace quandrel {

/// Closes the gaps: moves the cells of the remaining rows together, in their order, with the texts
/// of error rows. Cells after the last remaining row keep their values.
///
/// @param count    rows 1 to `count` are in use
/// @param removed  rows among these, ascending
void RemoveCells(PlotRows& rows, std::int32_t count, std::span<const std::int32_t> removed);

} // namespace quandrel
