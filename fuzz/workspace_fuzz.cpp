// SPDX-License-Identifier: MIT
//
// Any bytes as a workspace: the paths that it lists, and these written and read again.

#include "persistence/workspace_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::filesystem::path folder = "/a/folder";
    const auto paths = quandrel::PathsOfWorkspace(text, folder);
    for (const std::string& path : paths) {
        if (path.find_first_of("\r\n") != std::string::npos) {
            std::abort();
        }
    }
    if (!quandrel::HasFilesList(quandrel::WorkspaceText(paths, folder))) {
        std::abort();
    }
    return 0;
}
