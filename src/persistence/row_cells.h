// SPDX-License-Identifier: MIT
//
// The main rows of a plot as cells of texts, for files of text and of tables.

#pragma once

#include "core/plot.h"
#include "persistence/ascii_plot_file.h"
#include "platform/written_table.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// What the cells of a row hold, in words: "dip", "dip direction", "plunge", "trend", the names of
/// the appended number and text.
[[nodiscard]] std::vector<std::string> HeadingsOfRows(const PlotRecord& record);

/// The cells of a row that is data: orientations as dip and dip direction, or plunge and trend,
/// with at most six decimals and a decimal point; an orientation or a value that is missing is
/// empty.
[[nodiscard]] std::vector<std::string> CellsOfRow(const Plot& plot, std::int32_t row,
                                                  SavedDegrees degrees);

/// The place of a row on the map as two cells, empty for none.
[[nodiscard]] std::array<std::string, 2> PlaceCells(const Plot& plot, std::int32_t row);

/// The rows of a plot that are data as a table: without two headings that differ in case alone.
[[nodiscard]] WrittenTable TableOfRows(const Plot& plot, SavedDegrees degrees);

/// The rows of a plot that are data as a table with headings: UTF-8, cells separated by commas, and
/// in quotes where they hold a comma, a quote or a line end (RFC 4180). Where rows have places on
/// the map, the last two columns are "x" and "y".
[[nodiscard]] std::string CsvOfRows(const Plot& plot, SavedDegrees degrees);

} // namespace quandrel
