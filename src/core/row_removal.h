// SPDX-License-Identifier: MIT
//
// Takes rows out of the columns of a plot.

#pragma once

#include "core/plot.h"

#include <cstdint>
#include <span>

namespace quandrel {

/// Moves the cells of the rows that stay together, in their order, with the texts of error rows.
/// Cells after the last one keep what they hold.
///
/// @param count    rows 1 to `count` are in use
/// @param removed  rows among these, ascending
void RemoveCells(PlotRows& rows, std::int32_t count, std::span<const std::int32_t> removed);

} // namespace quandrel
