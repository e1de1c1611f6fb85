// SPDX-License-Identifier: MIT
//
// Finding and loading the library that reads files into tables.

#pragma once

#include "mapsession/session_error.h"
#include "mapsession/table_source.h"

#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace quandrel {

/// What the environment variable QUANDREL_PLUGIN_DIR means: tests set it, and builds with tests
/// alone follow it.
enum class PluginVariable { Ignored, Followed };

/// The folders where the library may be, the first one first: the program's own, and
/// lib/quandrel/plugins in the folder above it. In front of them that of the variable, if it is
/// followed and set.
[[nodiscard]] std::vector<std::filesystem::path>
TablePluginFolders(const std::filesystem::path& programFolder, PluginVariable variable);

/// The same as this build has it.
[[nodiscard]] std::vector<std::filesystem::path>
TablePluginFolders(const std::filesystem::path& programFolder);

/// The library's file in the first folder that has it, empty for none.
[[nodiscard]] std::filesystem::path FindTablePlugin(std::span<const std::filesystem::path> folders);

/// Loads the library and makes its source; or says why the map link is not available. An empty path
/// is one of the reasons. The library stays loaded until the program ends.
[[nodiscard]] SessionResult<std::shared_ptr<TableSource>>
LoadTableSource(const std::filesystem::path& plugin);

} // namespace quandrel
