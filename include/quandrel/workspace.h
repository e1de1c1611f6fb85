// SPDX-License-Identifier: MIT
//
// Workspaces: lists of files of plots.
//
// Example: a workspace of two plots, and its files again.
//
//     namespace qd = quandrel::api;
//     const std::vector<std::string> files = {"/area/beds.qpx", "/area/north/lines.qpx"};
//     const std::string text = qd::WorkspaceText(files, "/area");
//     const std::vector<std::string> again = qd::FilesOfWorkspace(text, "/moved");
//     std::cout << again[1] << '\n'; // -> /moved/north/lines.qpx

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// The text of a workspace. Files in its folder or below it are listed relative to it.
///
/// @param files   absolute paths, UTF-8, in their order
/// @param folder  of the workspace, absolute
[[nodiscard]] std::string WorkspaceText(std::span<const std::string> files,
                                        const std::string& folder);

/// The absolute paths of the files that a workspace lists, also of those that do not exist; empty
/// for a text that is no workspace.
[[nodiscard]] std::vector<std::string> FilesOfWorkspace(std::string_view text,
                                                        const std::string& folder);

} // namespace quandrel::api
