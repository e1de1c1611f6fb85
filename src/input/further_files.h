// SPDX-License-Identifier: MIT
//
// The further files that a data file names (/X). A data file may come from anywhere: what it names
// outside its own folder is read with the user's leave alone.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// What becomes of named files that are neither beside nor below the data file.
enum class OutsideFiles {
    Ask,    ///< the user is asked, once a load
    Refuse, ///< the load comes to nothing, with a message
    Read,
};

/// Holds for all loads until it is set again. It starts as Ask.
void SetOutsideFiles(OutsideFiles outside);

/// True when a file is neither in nor below a folder. Links and ".." count by where they lead.
[[nodiscard]] bool IsOutside(const std::filesystem::path& file,
                             const std::filesystem::path& folder);

/// The files to read after a data file, in their order: those that exist of its names, which are
/// relative to its folder, and that it may name. May ask.
///
/// @return nothing when the load is not to go on
[[nodiscard]] std::optional<std::vector<std::string>>
FurtherFilesOf(const std::string& dataFile, std::span<const std::string> names);

/// Those of the names that are no files, each once, as they are written.
[[nodiscard]] std::vector<std::string> MissingFilesOf(const std::string& dataFile,
                                                      std::span<const std::string> names);

} // namespace quandrel
