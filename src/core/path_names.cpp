// SPDX-License-Identifier: MIT

#include "core/path_names.h"

#include "core/letter_case.h"

#include <filesystem>

namespace quandrel {

std::string FileTitleOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

bool HasEnding(const std::string& path, std::string_view ending) {
    return path.size() >= ending.size()
           && EqualWithoutCase(std::string_view(path).substr(path.size() - ending.size()), ending);
}

std::string FileNameOf(std::string text) {
    for (char& c : text) {
        if (std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos) {
            c = '-';
        }
    }
    return text;
}

std::string NormalPath(const std::string& path) {
    std::error_code failed;
    const std::filesystem::path whole = std::filesystem::absolute(path, failed);
    return failed ? path : whole.lexically_normal().string();
}

} // namespace quandrel
