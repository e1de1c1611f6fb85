// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a workspace: the paths that it lists, and that of its figure sheet, are
// written and read again, and must be the same.

#include "persistence/workspace_file.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::filesystem::path folder = "/a/folder";
    const auto paths = quandrel::PathsOfWorkspace(text, folder);
    const std::string sheet = quandrel::SheetOfWorkspace(text, folder);
    const std::string written = quandrel::WorkspaceText(paths, folder, sheet);
    // A path that ends with "/" is a folder, and is written without the "/".
    const bool areFiles =
        std::ranges::none_of(paths, [](const std::string& path) { return path.ends_with('/'); });
    const bool isSheetFile = !sheet.ends_with('/');
    if (!quandrel::HasFilesList(written)
        || (isSheetFile && quandrel::SheetOfWorkspace(written, folder) != sheet)
        || (areFiles && quandrel::PathsOfWorkspace(written, folder) != paths)) {
        std::abort();
    }
    return 0;
}
