// SPDX-License-Identifier: MIT
//
// Fields of a plot record by their names, as scripts write them: "PlotSymbolMode",
// "OverlayKind[1]", "ClassTable[2][0]".

#pragma once

#include "core/plot_record.h"
#include "core/result.h"

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace quandrel {

/// The value of a field, or of the cell of a table: a number, a text, or an array for a whole
/// table.
[[nodiscard]] Result<std::string> FieldText(const PlotRecord& record, std::string_view field);

/// Sets a field or a cell. A cell of any kind keeps the kind that it has; an empty one takes a
/// number when the text is one.
///
/// @return empty, or what is wrong
[[nodiscard]] std::string SetField(PlotRecord& record, std::string_view field,
                                   std::string_view value);

/// Every field by its name, tables as nested arrays.
[[nodiscard]] nlohmann::ordered_json RecordJson(const PlotRecord& record);

} // namespace quandrel
