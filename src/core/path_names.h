// SPDX-License-Identifier: MIT
//
// Names of files: in texts, for new files, and one spelling for each. Paths are UTF-8.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// A path's last component.
[[nodiscard]] std::string FileTitleOf(const std::string& path);

/// A text as the name of a file: what no name may hold on one system or another becomes "-".
[[nodiscard]] std::string FileNameOf(std::string text);

/// One spelling for each file, so that it is known again wherever it is named from: its absolute
/// path.
[[nodiscard]] std::string NormalPath(const std::string& path);

/// True when a path ends so, in any case.
[[nodiscard]] bool HasEnding(const std::string& path, std::string_view ending);

} // namespace quandrel
