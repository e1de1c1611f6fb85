// SPDX-License-Identifier: MIT
//
// The rows of a dump, written one by one from the columns.

#pragma once

#include "batch/json_writer.h"

namespace quandrel {

/// Writes "rows": the columns that the active plot has, from row 1 to the last loaded row. Columns
/// of whole degrees are followed by those of measured angles ("measured", "measured2",
/// "measuredLine") if rows have decimals: [dip, azimuth] with at most six decimals, null for a row
/// without decimals.
void WriteRows(JsonWriter& writer);

/// Writes "table": the lines of the active plot's row table. Angles are radians.
void WriteRowTable(JsonWriter& writer);

} // namespace quandrel
