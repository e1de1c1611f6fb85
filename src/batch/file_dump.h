// SPDX-License-Identifier: MIT
//
// A binary plot file as JSON: every field as it stands in the file, before anything of it goes into
// a plot, is drawn or worked out.

#pragma once

#include "batch/json_writer.h"

#include <string>
#include <string_view>

namespace quandrel {

/// Writes the fields of a file as an object, under the names that they have in a plot.
///
/// Fields that the version of the file lacks are absent. Rows are columns of numbers; tables are
/// arrays of rows, a table whose first row files leave out begins with its second. What files tell
/// a second time in lesser detail stands under "earlierRose". Numbers read back exactly; one that
/// is infinite is "inf" or "-inf". "bytesBehind" counts what follows the last field.
///
/// @return empty, or why a file cannot be opened as a plot: then nothing was written
[[nodiscard]] std::string WriteBinaryFile(std::string_view bytes, JsonWriter& writer);

} // namespace quandrel
