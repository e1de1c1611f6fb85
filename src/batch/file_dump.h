// SPDX-License-Identifier: MIT
//
// A binary plot file as JSON: every field as it stands in the file, before anything of it goes into
// a plot, is drawn or worked out.

#pragma once

#include "core/result.h"

#include <nlohmann/json_fwd.hpp>

#include <string_view>

namespace quandrel {

/// The fields of a file in their order, under the names that they have in a plot.
///
/// Fields that the version of the file lacks are absent. Rows are columns of numbers; tables are
/// arrays of rows, a table whose first row files leave out begins with its second. What files tell
/// a second time in lesser detail stands under "earlierRose". Numbers read back exactly; one that
/// is infinite is "inf" or "-inf". "bytesBehind" counts what follows the last field.
///
/// @return why not, for a file that cannot be opened as a plot
[[nodiscard]] Result<nlohmann::ordered_json> BinaryFileJson(std::string_view bytes);

} // namespace quandrel
