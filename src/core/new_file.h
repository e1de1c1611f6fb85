// SPDX-License-Identifier: MIT
//
// Temporary files: each is written beside the file that it replaces, and takes its place when
// complete.
//
// Where the system supports unnamed files, a temporary file has no name: it disappears if the
// program is killed. Elsewhere, and for the moment before the old file is replaced, it is locked
// and has a short name that IsNameUnderWay recognises.

#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Writes the next bytes of a file. False when they could not be written: the caller may then stop.
using PutBytes = std::function<bool(std::string_view bytes)>;

/// Writes a file's bytes piece by piece.
///
/// @return empty, or why there is no file
using MakeBytes = std::function<std::string(const PutBytes& put)>;

/// How a temporary file is named. Named behaves as on a system without unnamed files.
enum class UnderWay { Unnamed, Named };

/// Writes the bytes of `make` to a temporary file, flushes it to disk and gives it the name of a
/// file, which may or may not exist. The folder is then flushed to disk. Temporary files that a
/// killed process left in the folder are removed first.
///
/// @param target  neither a link nor a folder
/// @param rights  of the new file; empty leaves them to the user's mask
/// @return empty on success, else the reason. On failure nothing of the new file is left, and an
///         old file is unchanged unless the disk failed after the replacement
[[nodiscard]] std::string ReplaceByNewFile(const std::filesystem::path& target,
                                           const MakeBytes& make,
                                           std::optional<std::filesystem::perms> rights,
                                           UnderWay underWay);

/// Whether a name has the form of this program's temporary files.
[[nodiscard]] bool IsNameUnderWay(std::string_view name);

/// Removes the abandoned temporary files in a folder: those that no process holds any more. Only
/// files of this user with such a name are examined.
void RemoveLeftUnderWay(const std::filesystem::path& folder);

} // namespace quandrel
