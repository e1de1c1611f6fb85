// SPDX-License-Identifier: MIT
//
// A plot as a value: its record, its rows, the table of plotted rows, its grids, its window, and
// what other folders attach to it. Open plots are in the slots of the store (plot_slots.h); a plot
// can also be made and filled outside the store.

#pragma once

#include "core/map_places.h"
#include "core/measured_columns.h"
#include "core/plot_attachments.h"
#include "core/plot_record.h"
#include "core/row_columns.h"
#include "core/row_table.h"
#include "core/style_tables.h"
#include "platform/plot_form.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace quandrel {

/// Texts of error rows as they were in the file, by row.
using ErrorLines = std::unordered_map<std::int32_t, std::string>;

/// The rows of a plot: the main rows from 1, then those of its overlays in order. Orientations are
/// in whole degrees; rows with decimals also have them as they were measured (measured_rows.h).
/// plot_rows.h appends, changes and removes rows and updates the counts of the record.
struct PlotRows {
    RowColumn<std::int32_t> dip;          ///< dip or plunge; kErrorRow marks an error row
    RowColumn<std::int32_t> azimuth;      ///< dip direction, trend, or direction
    RowColumn<SymbolCode> symbol;         ///< the current symbol
    RowColumn<SymbolCode> symbolBase;     ///< the symbol to restore
    RowColumn<std::int32_t> pointDensity; ///< density band of the row, 0 until counted
    RowColumn<std::int32_t> order;        ///< index of the row as it was loaded
    RowColumn<std::int32_t> dip2;         ///< secondary orientation, made on demand
    RowColumn<std::int32_t> azimuth2;
    RowColumn<std::int32_t> lineDip; ///< appended line; kInvalidAppendedLine is invalid
    RowColumn<std::int32_t> lineAzimuth;
    RowColumn<float> number;  ///< appended number; kInvalidNumber is invalid
    RowTexts text;            ///< appended text; empty is invalid
    MeasuredColumns measured; ///< of dip and azimuth, made for the first row with decimals
    MeasuredColumns measured2;
    MeasuredColumns measuredLine;
    MapColumns mapPlaces; ///< made for the first row with a place
    ErrorLines errorLines;
};

/// The place of a row on the map, if it has one.
[[nodiscard]] inline std::optional<MapPlace> MapPlaceOf(const PlotRows& rows, std::int32_t row) {
    return rows.mapPlaces.Has(row) ? std::optional(rows.mapPlaces.At(row)) : std::nullopt;
}

/// Layers of class grid values.
enum GridLayer : std::size_t { kMeanLayer = 0, kCumulativeLayer = 1 };

/// Grids of appended numbers over the net: mean and sum at each node, [layer][column][row].
using GridValues = std::array<Table<double, kGridNodes, kGridNodes>, 2>;

struct Plot {
    PlotRecord record;
    PlotRows rows;
    RowTable table;                         ///< the plotted rows
    std::unique_ptr<GridValues> gridValues; ///< made on first use
    std::int16_t gridCount = 0;             ///< non-zero where gridValues holds data
    std::int16_t lock = 0;
    PlotAttachments attachments;
    std::unique_ptr<PlotForm> form; ///< empty without a window; destroyed before the rest
};

} // namespace quandrel
