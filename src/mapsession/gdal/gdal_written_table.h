// SPDX-License-Identifier: MIT
//
// Tables of data as files, written by GDAL in memory: the caller stores the bytes safely.

#pragma once

#include "mapsession/session_error.h"
#include "platform/written_table.h"

#include <string>

namespace quandrel {

/// A table as the bytes of a file.
///
/// @param ending  ".xlsx": a sheet with a row of headings, places in two columns "x" and "y" at the
///                end; or ".gpkg": a layer, with places as points
[[nodiscard]] SessionResult<std::string> BytesOfTable(const WrittenTable& table,
                                                      const std::string& ending);

} // namespace quandrel
