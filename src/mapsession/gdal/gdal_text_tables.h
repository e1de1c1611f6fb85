// SPDX-License-Identifier: MIT
//
// Tables of data files as texts, read by GDAL: spreadsheets and the tables of map data.

#pragma once

#include "mapsession/session_error.h"
#include "platform/prompts.h"

#include <string>
#include <vector>

namespace quandrel {

/// The tables of a file: the sheets of a spreadsheet as they are, or the layers of a file of map
/// data, whose columns are headed, with the places of points in two columns "x" and "y" at the end.
///
/// @param path  UTF-8; only files are read, and of those that name other files none
[[nodiscard]] SessionResult<std::vector<NamedTable>> TextTablesOf(const std::string& path);

/// The drivers that TextTablesOf may use, once.
void RegisterTextDrivers();

} // namespace quandrel
