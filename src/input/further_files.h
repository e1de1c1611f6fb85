// SPDX-License-Identifier: MIT
//
// The further files that a data file names (/X). A data file may come from anywhere, so files
// outside its own folder are read only with the user's permission.

#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// How to treat named files that are neither beside nor below the data file.
enum class OutsideFiles {
    Ask,    ///< ask the user, once in a load
    Refuse, ///< the load fails with a message
    Read,
};

/// How the loads of further files go.
struct FurtherFilesState {
    OutsideFiles outside = OutsideFiles::Ask;

    static FurtherFilesState now;
};

/// Applies to all loads until it is set again. The initial value is Ask.
void SetOutsideFiles(OutsideFiles outside);

/// True when a file is neither in a folder nor below it. Links and ".." are resolved first.
[[nodiscard]] bool IsOutside(const std::filesystem::path& file,
                             const std::filesystem::path& folder);

/// The files to read after a data file, in order: those named files that exist and may be read. The
/// names are relative to the folder of the data file. May ask the user.
///
/// @return nothing when the load is to end
[[nodiscard]] std::optional<std::vector<std::string>>
FurtherFilesOf(const std::string& dataFile, std::span<const std::string> names);

/// The names that are not files, each once, as written.
[[nodiscard]] std::vector<std::string> MissingFilesOf(const std::string& dataFile,
                                                      std::span<const std::string> names);

} // namespace quandrel
