// SPDX-License-Identifier: MIT
//
// Data tables that are not text, read and written by the plug-in of the map session.

#pragma once

#include "mapsession/session_error.h"
#include "platform/prompts.h"
#include "platform/written_table.h"

#include <filesystem>
#include <string>
#include <vector>

namespace quandrel {

/// The tables of a file as texts. The plug-in is loaded for the first one, and stays loaded.
///
/// @param programFolder  near which the plug-in is (table_plugin.h)
[[nodiscard]] SessionResult<std::vector<NamedTable>>
ReadTextTables(const std::filesystem::path& programFolder, const std::string& path);

/// A table as the bytes of a file, by the same plug-in.
///
/// @param ending  of the file: ".xlsx" or ".gpkg"
[[nodiscard]] SessionResult<std::string>
BytesOfTableFile(const std::filesystem::path& programFolder, const WrittenTable& table,
                 const std::string& ending);

} // namespace quandrel
