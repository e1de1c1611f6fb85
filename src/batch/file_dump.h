// SPDX-License-Identifier: MIT
//
// A binary plot file as JSON: every field with its value in the file, before a plot is created from
// it.

#pragma once

#include "batch/json_writer.h"

#include <string>
#include <string_view>

namespace quandrel {

/// Writes the fields of a file as an object, under their names in a plot.
///
/// Fields that the version of the file does not have are absent. Rows are columns of numbers.
/// Tables are arrays of rows; a table whose first row is not stored in files begins with its
/// second. Values that files store twice, first in less detail, are under "earlierRose". Numbers
/// read back exactly; an infinite number is "inf" or "-inf".
///
/// "extension" is an array of the blocks of the file's extension, if it has one: tag, flag and
/// number of bytes of each, and the values of those that are known. Measured angles are rounded to
/// 1e-6 degree, null in rows without decimals. "leftOut" has the sentences about what is damaged in
/// it. "bytesBehind" is the number of bytes after the last field, or after the extension.
///
/// @return empty, or why a file cannot be opened as a plot: then nothing was written
[[nodiscard]] std::string WriteBinaryFile(std::string_view bytes, JsonWriter& writer);

} // namespace quandrel
