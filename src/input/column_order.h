// SPDX-License-Identifier: MIT
//
// The order of the columns in files that do not state one.

#pragma once

#include "core/data_format.h"

namespace quandrel {

/// The column slots of a line whose values are in the order of the format, each in a column of its
/// own: the primary orientation as its convention writes it, the secondary one, the appended line,
/// the number, the text. A pitch is followed by its sense. Values that the format does not have
/// take no column; their slots are the column after all others.
[[nodiscard]] ColumnSettings ColumnsInOrder(const FormatSettings& settings);

} // namespace quandrel
