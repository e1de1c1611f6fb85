// SPDX-License-Identifier: MIT
//
// The value of an error row in a binary plot file, in the place of the drawing code: the line of
// the data file.

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

/// The field of an error row for writing: its line, cut at a character to the size of a field.
/// Without a line it is the code if such rows may be drawn, which are those of derived plots and
/// those that may have a secondary orientation. If the line could be read as a code, a blank is
/// appended.
[[nodiscard]] std::string FieldOfErrorRow(const PlotRecord& record, const ErrorRowText& row);

/// The meaning of a field of an error row. Inverse of FieldOfErrorRow.
[[nodiscard]] ErrorRowText ErrorRowOfField(const PlotRecord& record, std::string field);

} // namespace quandrel
