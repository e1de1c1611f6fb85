// SPDX-License-Identifier: MIT
//
// Puts parsed rows into the columns and the table of the active plot.

#pragma once

#include "core/style_tables.h"
#include "input/data_line.h"
#include "stereo/row_positions.h"

#include <cstdint>
#include <string_view>

namespace quandrel {

/// Where the rows of a load go.
struct RowTarget {
    int overlay = 0;                  ///< the overlay that they belong to, 0 for the main rows
    std::int16_t secondaryFormat = 0; ///< of the rows; 0 stores no secondary orientation
    bool turnToPole = false;    ///< the rows are lines for a plot of planes, or the other way round
    bool turnSecondary = false; ///< the same of their secondary orientation
};

/// What was wrong with the appended values of a row.
struct RowFaults {
    bool line = false;
    bool number = false;
    bool text = false;
};

/// Stores a row of the active plot at a point index: its columns, its drawing code, its range of
/// appended values, its line of the table, which goes to the table's end. A row that is no data
/// becomes an error row. Orientations are rounded to whole degrees, halves to even, and azimuths
/// are brought to 0 to 360.
///
/// @param[out] faults  appended values that are stored as invalid
/// @return false when memory ran out: the row was not stored and DataFull of the plot is set
[[nodiscard]] bool StoreDataRow(const ParsedRow& row, std::int32_t index, const RowTarget& target,
                                RowFaults& faults);

/// An orientation in whole degrees, halves to even, azimuth 0 to 360. A line that points up by less
/// than they show lies level with the trend that it points to.
[[nodiscard]] ShownOrientation RoundedOrientation(double dip, double azimuth, bool isPlane);

/// Makes room for rows 1 to `last` of the active plot at once, if the memory is there; rows that
/// come one by one find it otherwise.
void MakeRoomForRows(std::int32_t last, const RowTarget& target);

/// Keeps the text of a line behind its error row.
void KeepErrorLine(std::int32_t index, std::string_view line);

/// The drawing code that a new row takes.
///
/// @param overlay  the overlay of the row, or 0
/// @param upward   the row's dip or plunge is negative
[[nodiscard]] SymbolCode CodeOfNewRow(int overlay, bool upward);

} // namespace quandrel
