// SPDX-License-Identifier: MIT
//
// What stands in a binary plot file in place of the drawing code of a row that is no data: the line
// of the data file.

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"

#include <string>
#include <string_view>

namespace quandrel {

struct ErrorRowText {
    SymbolCode code = 0;
    std::string line; ///< empty for a row without one
};

/// The field of an error row as it is written: its line, cut at a character to what a field holds;
/// without a line the code where such rows may be drawn, which are those of derived plots and those
/// that may have a secondary orientation. A line that would be read as a code ends in one more
/// blank.
[[nodiscard]] std::string FieldOfErrorRow(const PlotRecord& record, const ErrorRowText& row);

/// What a field of an error row means. Inverse of FieldOfErrorRow.
[[nodiscard]] ErrorRowText ErrorRowOfField(const PlotRecord& record, std::string field);

} // namespace quandrel
