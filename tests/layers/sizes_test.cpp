// SPDX-License-Identifier: MIT
//
// The headers for other programs, benchmarks, fuzz targets and tools are as short as the sources of
// src/ (globals_test).

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 4> kFolders = {"include", "bench", "fuzz", "tools"};
constexpr int kMostLines = 450;

TEST(OtherSources, AreShort) {
    int files = 0;
    for (const char* folder : kFolders) {
        for (const auto& entry :
             fs::recursive_directory_iterator(fs::path(QUANDREL_SOURCE_DIR) / folder)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".h" && extension != ".cpp") {
                continue;
            }
            std::ifstream stream(entry.path());
            const auto lines = std::count(std::istreambuf_iterator<char>(stream), {}, '\n');
            EXPECT_LE(lines, kMostLines) << entry.path() << ": what is its second subject?";
            ++files;
        }
    }
    EXPECT_GT(files, 30);
}

} // namespace
} // namespace quandrel
