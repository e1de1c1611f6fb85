// SPDX-License-Identifier: MIT
//
// Plots of summaries: their main rows are cells of whole degrees, which stand for many
// measurements.
//
// The appended number of a main row says for how many. Results of lines count a row as often; a
// cell with more measurements than a number of 32 bits can count has several rows. Overlays are
// ordinary rows.

#pragma once

#include "core/plot.h"

#include <cstdint>

namespace quandrel {

/// The most measurements of a row: whole numbers up to this are exact in 32 bits.
inline constexpr std::int32_t kMostOfCell = 1 << 24;

/// Whether the main rows of a plot are cells.
[[nodiscard]] bool HasCellRows(const Plot& plot);

void SetCellRows(Plot& plot, bool areCells);

/// For how many measurements a main row stands: 1 in other plots, and 0 for a cell without a number
/// or with one below 1.
[[nodiscard]] std::int32_t MeasurementsOfRow(const Plot& plot, std::int32_t row);

/// Counts the measurements of a plot of cells as its valid data. Nothing happens to other plots.
void CountMeasurements(Plot& plot);

} // namespace quandrel
