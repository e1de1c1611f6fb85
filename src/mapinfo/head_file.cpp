// SPDX-License-Identifier: MIT

#include "mapinfo/head_file.h"

#include <array>
#include <fstream>
#include <random>
#include <system_error>

namespace quandrel {

namespace {

constexpr int kAttempts = 8;

/// A new private folder, or an empty path.
std::filesystem::path MakeFolder() {
    std::error_code failure;
    const std::filesystem::path parent = std::filesystem::temp_directory_path(failure);
    std::random_device random;
    for (int attempt = 0; !failure && attempt < kAttempts; ++attempt) {
        const std::filesystem::path folder =
            parent / ("quandrel_table_" + std::to_string(random()));
        if (std::filesystem::create_directory(folder, failure)) {
            return folder;
        }
    }
    return {};
}

/// A table's name as a file name: only letters, digits and bytes of UTF-8 are kept.
std::string FileNameOf(const std::string& table) {
    std::string name;
    for (const char c : table) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z')
                             || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 0x80;
        name += isPlain ? c : '_';
    }
    constexpr std::size_t kLongestName = 100;
    return name.empty() ? "table" : name.substr(0, kLongestName);
}

} // namespace

HeadFile::HeadFile(const std::string& table, const std::string& text)
    : folder_(MakeFolder()) {
    if (folder_.empty()) {
        return;
    }
    const std::filesystem::path path = folder_ / FileNameOf(table);
    std::ofstream file(path, std::ios::binary);
    file << text;
    if (file.flush()) {
        path_ = path;
    }
}

HeadFile::~HeadFile() {
    if (!folder_.empty()) {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
}

} // namespace quandrel
