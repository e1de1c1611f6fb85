// SPDX-License-Identifier: MIT

#include "quandrel/workspace.h"

#include "persistence/workspace_file.h"

namespace quandrel::api {

std::string WorkspaceText(std::span<const std::string> files, const std::string& folder) {
    return quandrel::WorkspaceText(files, folder);
}

std::vector<std::string> FilesOfWorkspace(std::string_view text, const std::string& folder) {
    return HasFilesList(text) ? PathsOfWorkspace(text, folder) : std::vector<std::string>();
}

} // namespace quandrel::api
