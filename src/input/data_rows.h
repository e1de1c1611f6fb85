// SPDX-License-Identifier: MIT
//
// From parsed rows to the rows of a plot.

#pragma once

#include "core/data_format.h"
#include "core/plot_rows.h"
#include "input/data_line.h"
#include "orientation/attitude.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace quandrel {

/// The destination of the rows of a load.
struct RowTarget {
    int overlay = 0;                  ///< the overlay that they belong to, 0 for the main rows
    std::int16_t secondaryFormat = 0; ///< of the rows; 0 stores no secondary orientation
    bool turnToPole = false;          ///< the rows are lines for a plot of planes, or the reverse
    bool turnSecondary = false;       ///< the same for their secondary orientation
};

/// Faults in the appended values of a row.
struct RowFaults {
    bool line = false;
    bool number = false;
    bool text = false;
};

/// An orientation of a row as the columns keep it.
struct KeptAttitude {
    Attitude whole{kErrorRow, kErrorRow}; ///< in whole degrees, azimuth 0 to 360
    std::optional<Attitude> measured;     ///< with its decimals, if it has some; azimuth 0 to 360

    [[nodiscard]] Attitude Measured() const { return measured.value_or(whole); }
};

/// A measured orientation as the columns keep it: rounded to 1e-6 degree, and in whole degrees by
/// RoundedAttitude.
///
/// @param attitude  dip -90 to 90, azimuth -360 to 360 degrees
[[nodiscard]] KeptAttitude KeptOf(const Attitude& attitude, bool isPlane);

/// Everything that decides how a parsed row is kept, copied once from a plot and the styles, so
/// that rows can be prepared without either.
struct RowForm {
    RowTarget target;
    ColumnSet columns;
    bool showsSecondary = false;
    bool usesDecimals = false; ///< rows are plotted where they were measured
    bool isPlottedAsPole = false;
    std::int16_t plotKind = kEqualArea;
    std::array<SymbolCode, 2> codes{}; ///< [0] of a row, [1] of a row that points up
};

[[nodiscard]] RowForm FormOfRows(const PlotRecord& record, const RowTarget& target);

/// A parsed row as the columns keep it: in whole degrees, halves to even, azimuths from 0 to 360,
/// and as measured where the line has decimals. A row without data becomes an error row. Pure, so
/// that threads can call it.
///
/// @param[out] faults  appended values that are kept as invalid
/// @return values with views of the parsed row's texts
[[nodiscard]] RowValues ValuesOfRow(const ParsedRow& row, const RowForm& form, RowFaults& faults);

/// Appends a parsed row to a plot.
///
/// @param line         what an error row was in its file, stored with it; empty for nothing
/// @param[out] faults  as of ValuesOfRow
/// @return false when memory ran out: the row was not stored, and DataFull of the plot is set
[[nodiscard]] bool StoreDataRow(Plot& plot, const ParsedRow& row, const RowTarget& target,
                                RowFaults& faults, std::string_view line = {});

/// CodeOfNewRow (stereo/row_sense.h) by the styles in force.
[[nodiscard]] SymbolCode CodeOfNewRow(const PlotRecord& record, int overlay, bool upward);

} // namespace quandrel
