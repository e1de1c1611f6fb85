// SPDX-License-Identifier: MIT
//
// File names: in texts, for new files, and in one canonical spelling. Paths are UTF-8.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// A path's last component.
[[nodiscard]] std::string FileTitleOf(const std::string& path);

/// Makes a text a valid file name: characters that some system does not allow become "-".
[[nodiscard]] std::string FileNameOf(std::string text);

/// The canonical spelling of a path, its absolute path, so that a file is always recognised.
[[nodiscard]] std::string NormalPath(const std::string& path);

/// Whether a path ends with a suffix, in any case.
[[nodiscard]] bool HasEnding(const std::string& path, std::string_view ending);

} // namespace quandrel
