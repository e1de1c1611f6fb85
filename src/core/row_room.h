// SPDX-License-Identifier: MIT
//
// Room for rows in the columns of a plot. The columns of one call grow together or not at all: a
// failed growth changes nothing.

#pragma once

#include "core/measured_rows.h"
#include "core/plot.h"

#include <cstdint>

namespace quandrel {

enum class AppendedColumn { Line = 0, Number = 1, Text = 2 };

/// Grows the base columns to rows up to `capacity`, and the secondary columns if requested. False
/// when memory ran out.
[[nodiscard]] bool GrowColumns(PlotRows& rows, std::int32_t capacity, bool withSecondary);

/// Grows an appended column to as many rows as the base columns. False when memory ran out.
[[nodiscard]] bool GrowAppendedColumn(PlotRows& rows, AppendedColumn which);

/// Grows the columns of measured angles to hold a row, and to as many rows as the base columns.
/// False when memory ran out.
[[nodiscard]] bool MakeRoomForMeasured(PlotRows& rows, RowAngles which, std::int32_t row);

/// The same for the columns of places on the map.
[[nodiscard]] bool MakeRoomForMapPlaces(PlotRows& rows, std::int32_t row);

/// The columns of a row besides the base columns. Those of measured angles and of places are made
/// when a row needs them.
struct ColumnSet {
    bool secondary = false;
    bool line = false;
    bool number = false;
    bool text = false;
};

/// The appended columns of a plot, with or without the secondary ones.
[[nodiscard]] ColumnSet ColumnsOf(const PlotRecord& record, bool withSecondary);

/// Whether to make spare room, for rows that come one after another.
enum class RoomAhead { None, WhereMemoryAllows };

/// Makes room for rows up to `last`. False when memory ran out.
[[nodiscard]] bool MakeRoom(PlotRows& rows, std::int32_t last, const ColumnSet& columns,
                            RoomAhead ahead = RoomAhead::WhereMemoryAllows);

/// Grows the columns of rows without a plot to hold rows up to `capacity`, without the row limit of
/// a plot. Throws std::bad_alloc or std::length_error; some columns may then have grown.
void GrowBlock(PlotRows& rows, std::int32_t capacity, const ColumnSet& columns);

/// The same for columns of measured angles.
void GrowMeasured(PlotRows& rows, RowAngles which, std::int32_t capacity);

/// Reserves memory for rows up to `last` that will be appended in blocks, if it is available.
void ReserveRoom(PlotRows& rows, std::int32_t last, const ColumnSet& columns);

} // namespace quandrel
