// SPDX-License-Identifier: MIT
//
// A file under way: written beside the file that it is to replace, and put into its place when
// whole.
//
// Where the system has files without a name, the one under way has none: when the program is killed
// it goes with it. Else, and for the moment before the old file is replaced, it has a short name of
// the form of IsNameUnderWay and is locked.

#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Takes the next bytes of a file. False when they could not be written: no more need to come.
using PutBytes = std::function<bool(std::string_view bytes)>;

/// Makes a file's bytes piece by piece.
///
/// @return empty, or why there is no file
using MakeBytes = std::function<std::string(const PutBytes& put)>;

/// What a file under way is called. Named is as on a system without unnamed files.
enum class UnderWay { Unnamed, Named };

/// Writes the bytes of `make` to a file under way, brings it to the disk and puts it into the place
/// of a file, which may exist or not; then the folder is brought to the disk. Files that a killed
/// process left under way in the folder are removed first.
///
/// @param target  neither a link nor a folder
/// @param rights  of the new file; nothing leaves them to the user's mask
/// @return empty on success, else why not: then nothing of the new file is left, and an old one is
///         as it was unless the disk failed after the replacement
[[nodiscard]] std::string ReplaceByNewFile(const std::filesystem::path& target,
                                           const MakeBytes& make,
                                           std::optional<std::filesystem::perms> rights,
                                           UnderWay underWay);

/// True for a name that this program gives to files under way.
[[nodiscard]] bool IsNameUnderWay(std::string_view name);

/// Removes the files under way in a folder that no process holds any more. Only files of that form
/// of name that belong to this user are looked at.
void RemoveLeftUnderWay(const std::filesystem::path& folder);

} // namespace quandrel
