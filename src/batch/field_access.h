// SPDX-License-Identifier: MIT
//
// Access to the fields of a plot record by name, as in scripts: "PlotSymbolMode", "OverlayKind[1]",
// "ClassTable[2][0]".

#pragma once

#include "core/plot_record.h"
#include "core/result.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace quandrel {

/// The value of a field or of a cell of a table: a number or a text; a whole table is an array.
[[nodiscard]] Result<std::string> FieldText(const PlotRecord& record, std::string_view field);

/// Sets a field or a cell. A cell of any type keeps its type; an empty cell takes a number if the
/// text is one.
///
/// @return empty, or an error message
[[nodiscard]] std::string SetField(PlotRecord& record, std::string_view field,
                                   std::string_view value);

/// All fields by name, with tables as nested arrays.
[[nodiscard]] nlohmann::ordered_json RecordJson(const PlotRecord& record);

} // namespace quandrel
