// SPDX-License-Identifier: MIT

#include "input/further_files.h"

#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "platform/platform.h"

#include <algorithm>
#include <system_error>

namespace quandrel {

namespace fs = std::filesystem;

constinit FurtherFilesState FurtherFilesState::now;

namespace {

bool IsFile(const fs::path& path) {
    std::error_code unreadable;
    return fs::is_regular_file(path, unreadable);
}

/// The real path of a folder, which may be a link or have ".." after one.
fs::path WhereItLeads(const fs::path& path) {
    std::error_code failed;
    const fs::path real = fs::canonical(path.empty() ? fs::path(".") : path, failed);
    return failed ? fs::path() : real;
}

/// A path without "..". After a link, removing ".." may give another file; then the real path.
fs::path ShortPath(const fs::path& file) {
    const fs::path plain = file.lexically_normal();
    std::error_code failed;
    return fs::equivalent(plain, file, failed) ? plain : WhereItLeads(file);
}

std::string Lines(std::span<const std::string> paths) {
    constexpr std::size_t kMostNames = 10;
    std::string lines;
    for (const std::string& path : paths.first(std::min(paths.size(), kMostNames))) {
        lines += "\n" + path;
    }
    return paths.size() > kMostNames
               ? lines + "\nand " + std::to_string(paths.size() - kMostNames) + " more"
               : lines;
}

[[nodiscard]] bool WantsThem(const std::string& dataFile, std::span<const std::string> outside) {
    const Message question{gCaption,
                           FileTitleOf(dataFile) + " names files outside its folder:"
                               + Lines(outside) + "\nRead them too?",
                           Icon::Question, Buttons::YesNo, Button::No};
    return gPlatform.prompts->Ask(question) == Button::Yes;
}

} // namespace

void SetOutsideFiles(OutsideFiles outside) {
    FurtherFilesState::now.outside = outside;
}

bool IsOutside(const fs::path& file, const fs::path& folder) {
    const fs::path inside = WhereItLeads(folder);
    const fs::path real = WhereItLeads(file);
    if (inside.empty() || real.empty()) {
        return true;
    }
    const fs::path relative = real.lexically_relative(inside);
    return relative.empty() || *relative.begin() == "..";
}

std::optional<std::vector<std::string>> FurtherFilesOf(const std::string& dataFile,
                                                       std::span<const std::string> names) {
    const fs::path folder = fs::path(dataFile).parent_path();
    std::vector<std::string> files;
    std::vector<std::string> outside;
    for (const std::string& name : names) {
        const fs::path file = folder / name;
        if (!IsFile(file)) {
            continue;
        }
        files.push_back(ShortPath(file).string());
        if (IsOutside(files.back(), folder)) {
            outside.push_back(files.back());
        }
    }
    if (outside.empty() || FurtherFilesState::now.outside == OutsideFiles::Read) {
        return files;
    }
    if (FurtherFilesState::now.outside == OutsideFiles::Refuse) {
        Tell(FileTitleOf(dataFile) + " names files outside its folder:" + Lines(outside)
             + "\nThey are read only with --allow-outside.");
        return std::nullopt;
    }
    if (!WantsThem(dataFile, outside)) {
        std::erase_if(files, [&outside](const std::string& file) {
            return std::ranges::find(outside, file) != outside.end();
        });
    }
    return files;
}

std::vector<std::string> MissingFilesOf(const std::string& dataFile,
                                        std::span<const std::string> names) {
    const fs::path folder = fs::path(dataFile).parent_path();
    std::vector<std::string> missing;
    for (const std::string& name : names) {
        if (!IsFile(folder / name) && std::ranges::find(missing, name) == missing.end()) {
            missing.push_back(name);
        }
    }
    return missing;
}

} // namespace quandrel
