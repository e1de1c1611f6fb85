// SPDX-License-Identifier: MIT

#include "core/path_names.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace quandrel {
namespace {

TEST(FileNames, HoldNothingThatASystemForbids) {
    EXPECT_EQ(FileNameOf("MapInfo Table:outcrops"), "MapInfo Table-outcrops");
    EXPECT_EQ(FileNameOf(R"(a/b\c:d*e?f"g<h>i|j)"), "a-b-c-d-e-f-g-h-i-j");
    EXPECT_EQ(FileNameOf("Klüfte 2. Ordnung.txt"), "Klüfte 2. Ordnung.txt");
}

TEST(FileNames, LoseTheirFoldersOfAnySystem) {
    EXPECT_EQ(FileTitleOf("/data/beds.txt"), "beds.txt");
    EXPECT_EQ(FileTitleOf("C:\\data\\beds.txt"), "beds.txt");
    EXPECT_EQ(FileTitleOf("beds.txt"), "beds.txt");
}

TEST(FileNames, HaveTheirEndingsInAnyCase) {
    EXPECT_TRUE(HasEnding("beds.TXT", ".txt"));
    EXPECT_FALSE(HasEnding("txt", ".txt"));
}

TEST(FileNames, HaveOneSpellingForEachFile) {
    EXPECT_EQ(NormalPath("/data/./old/../beds.txt"), "/data/beds.txt");
    EXPECT_EQ(NormalPath("beds.txt"), (std::filesystem::current_path() / "beds.txt").string());
}

} // namespace
} // namespace quandrel
