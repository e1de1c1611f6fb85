// SPDX-License-Identifier: MIT
//
// Behaviour that looks like a mistake but is intended is marked "Kept:" in the code. A test names
// each mark: a comment "Kept:" with the words of the mark up to its first punctuation or line end
// is above the test, or in it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

/// Marks by their words, with the file where each was last found.
using Marks = std::map<std::string, std::string>;

constexpr std::string_view kMark = "Kept:";

/// The words after a mark that ends at `begin`.
std::string WordsOfMark(std::string_view text, std::size_t begin) {
    const std::size_t first = std::min(text.find_first_not_of(' ', begin), text.size());
    const std::size_t end = std::min(text.find_first_of(".,;:\n", first), text.size());
    std::string words(text.substr(first, end - first));
    words.erase(words.find_last_not_of(' ') + 1);
    return words;
}

void AddMarksOf(const fs::path& path, Marks& marks) {
    std::ifstream file(path);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    for (std::size_t at = text.find(kMark); at != std::string::npos;
         at = text.find(kMark, at + kMark.size())) {
        marks[WordsOfMark(text, at + kMark.size())] = path.string();
    }
}

/// The marks in the comments of a folder of the tree. This file itself has none.
Marks MarksBelow(const std::string& folder) {
    Marks marks;
    for (const auto& entry :
         fs::recursive_directory_iterator(std::string(QUANDREL_SOURCE_DIR) + "/" + folder)) {
        const std::string ending = entry.path().extension().string();
        if ((ending == ".cpp" || ending == ".h") && entry.path().filename() != "kept_test.cpp") {
            AddMarksOf(entry.path(), marks);
        }
    }
    return marks;
}

TEST(WordsOfMark, EndAtPunctuationAndAtTheEndOfTheLine) {
    EXPECT_EQ(WordsOfMark(" a negative trend is mirrored, not wrapped.", 0),
              "a negative trend is mirrored");
    EXPECT_EQ(WordsOfMark(" the base is \n// rounded", 0), "the base is");
    EXPECT_EQ(WordsOfMark("", 0), "");
    EXPECT_EQ(WordsOfMark("  ", 0), "");
}

TEST(KeptBehaviour, HasATestThatNamesIt) {
    const Marks inTests = MarksBelow("tests");
    const Marks inSources = MarksBelow("src");
    EXPECT_GT(inSources.size(), 20U) << "the marks are found";
    for (const auto& [words, file] : inSources) {
        EXPECT_TRUE(words.find(' ') != std::string::npos)
            << file << ": '" << words << "' says nothing";
        EXPECT_TRUE(inTests.contains(words)) << file << ": no test has \"Kept: " << words << "\"";
    }
}

TEST(KeptBehaviour, IsNamedByNoTestOnceItIsGone) {
    const Marks inSources = MarksBelow("src");
    for (const auto& [words, file] : MarksBelow("tests")) {
        EXPECT_TRUE(inSources.contains(words))
            << file << ": the code has no \"Kept: " << words << "\"";
    }
}

} // namespace
} // namespace quandrel
