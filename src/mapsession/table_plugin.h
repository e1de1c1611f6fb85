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

/// How to treat the environment variable QUANDREL_PLUGIN_DIR: tests set it, and only builds with
/// tests follow it.
enum class PluginVariable { Ignored, Followed };

/// The folders that may hold the library, in search order: the program's own, and
/// lib/quandrel/plugins in the folder above it. The folder of the variable comes before them, if
/// the variable is followed and set.
[[nodiscard]] std::vector<std::filesystem::path>
TablePluginFolders(const std::filesystem::path& programFolder, PluginVariable variable);

/// The same for this build.
[[nodiscard]] std::vector<std::filesystem::path>
TablePluginFolders(const std::filesystem::path& programFolder);

/// The library's file in the first folder that has it; empty when there is none.
[[nodiscard]] std::filesystem::path FindTablePlugin(std::span<const std::filesystem::path> folders);

/// Loads the library and makes its source, or returns the reason why the map link is not available.
/// An empty path is one of the reasons. The library stays loaded until the program ends.
[[nodiscard]] SessionResult<std::shared_ptr<TableSource>>
LoadTableSource(const std::filesystem::path& plugin);

} // namespace quandrel
