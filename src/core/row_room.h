// SPDX-License-Identifier: MIT
//
// Room for rows in the columns of a plot. A growth that fails changes nothing: the columns of a
// call grow together or not at all.

#pragma once

#include "core/plot.h"

#include <cstdint>

namespace quandrel {

enum class AppendedColumn { Line = 0, Number = 1, Text = 2 };

/// Lets the base columns hold rows up to `capacity`, and the secondary ones if they are to follow.
/// False when memory ran out.
[[nodiscard]] bool GrowColumns(PlotRows& rows, std::int32_t capacity, bool withSecondary);

/// Lets an appended column hold as many rows as the base columns. False when memory ran out.
[[nodiscard]] bool GrowAppendedColumn(PlotRows& rows, AppendedColumn which);

/// The columns that a row takes besides the base ones.
struct ColumnSet {
    bool secondary = false;
    bool line = false;
    bool number = false;
    bool text = false;
};

/// The appended columns of a plot, with or without the secondary ones.
[[nodiscard]] ColumnSet ColumnsOf(const PlotRecord& record, bool withSecondary);

/// Whether room is made for more rows than are there, as they come one after another.
enum class RoomAhead { None, WhereMemoryAllows };

/// Makes room for rows up to `last`. False when memory ran out.
[[nodiscard]] bool MakeRoom(PlotRows& rows, std::int32_t last, const ColumnSet& columns,
                            RoomAhead ahead = RoomAhead::WhereMemoryAllows);

/// Lets the columns of rows that have no plot yet hold rows up to `capacity`, whatever the most
/// rows of a plot are. Throws std::bad_alloc or std::length_error; some columns may then have
/// grown.
void GrowBlock(PlotRows& rows, std::int32_t capacity, const ColumnSet& columns);

/// Takes memory for rows up to `last` that are going to be appended in blocks, if it is there.
void ReserveRoom(PlotRows& rows, std::int32_t last, const ColumnSet& columns);

} // namespace quandrel
