// SPDX-License-Identifier: MIT
//
// The loop over the rows of a table of the map session. Called within an action (map_link.h).

#pragma once

#include "input/line_loop.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/table_rows.h"

#include <string>

namespace quandrel {

/// Stores the rows of a table as rows of the active plot, after its others: valid ones as data,
/// those without data as error rows, with a question at the first of them. Rows that cannot be
/// fetched are left out. The progress bar shows the position; a cancelled pass keeps the rows
/// stored so far. It ends at the end of the table, after as many rows as the shape says, and when
/// the session dies.
///
/// @param format         its slots are columns of the table, from 0; the delimiter does not matter
/// @param[out] counters  counted from 0
/// @param[out] link      the table, the columns read, and the rows that are data
[[nodiscard]] PassEnd ReadTableRows(const std::string& table, const TableShape& shape,
                                    const LineFormat& format, const RowTarget& target,
                                    LoadCounters& counters, MIGeoLink& link);

} // namespace quandrel
