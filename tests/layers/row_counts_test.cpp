// SPDX-License-Identifier: MIT
//
// The counts of a plot's rows have one writer.

#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 5> kCounts = {"NumData", "NumValidData", "NumLoadedData",
                                                     "OverlayRows", "OverlayKind"};

bool IsWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsBlank(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

/// The place after an index in brackets that starts at a place, or the place itself.
std::size_t AfterIndex(std::string_view code, std::size_t place) {
    if (place >= code.size() || code[place] != '[') {
        return place;
    }
    int depth = 0;
    for (; place < code.size(); ++place) {
        depth += code[place] == '[' ? 1 : code[place] == ']' ? -1 : 0;
        if (depth == 0) {
            return place + 1;
        }
    }
    return place;
}

/// True if the text after a name assigns to it or counts it.
bool IsWrittenBy(std::string_view rest) {
    std::size_t place = 0;
    while (place < rest.size() && IsBlank(rest[place])) {
        ++place;
    }
    rest.remove_prefix(place);
    for (const std::string_view change : {"++", "--", "+=", "-=", ".fill", ".swap"}) {
        if (rest.starts_with(change)) {
            return true;
        }
    }
    return rest.starts_with("=") && !rest.starts_with("==");
}

/// True if the text before a name, in the same expression, counts it.
bool IsWrittenBefore(std::string_view code) {
    std::size_t start = code.size();
    while (start > 0
           && (IsWordCharacter(code[start - 1]) || code[start - 1] == '.' || code[start - 1] == '>'
               || code[start - 1] == '(' || code[start - 1] == ')')) {
        --start;
        if (code[start] == '>' && start > 0 && code[start - 1] == '-') {
            --start; // an arrow is not a minus
        }
    }
    const std::string_view before = code.substr(0, start);
    return before.ends_with("++") || before.ends_with("--");
}

/// How often a source writes one of the counts.
int WritesIn(std::string_view code) {
    int writes = 0;
    for (const std::string_view name : kCounts) {
        for (std::size_t at = code.find(name); at != std::string_view::npos;
             at = code.find(name, at + 1)) {
            const std::size_t end = at + name.size();
            const bool isMember = at > 0 && (code[at - 1] == '.' || code[at - 1] == '>');
            const bool isWhole = end >= code.size() || !IsWordCharacter(code[end]);
            if (isMember && isWhole
                && (IsWrittenBy(code.substr(AfterIndex(code, end)))
                    || IsWrittenBefore(code.substr(0, at)))) {
                ++writes;
            }
        }
    }
    return writes;
}

TEST(RowCounts, WritesAreFound) {
    EXPECT_EQ(WritesIn("record.NumData = 3;"), 1);
    EXPECT_EQ(WritesIn("++RecordOf(slot).NumLoadedData;"), 1);
    EXPECT_EQ(WritesIn("--plot->OverlayRows[0];"), 1);
    EXPECT_EQ(WritesIn("record.OverlayRows[at(k[1])]\n    += 2;"), 1);
    EXPECT_EQ(WritesIn("record.NumValidData++;"), 1);
    EXPECT_EQ(WritesIn("if (record.NumData == 3 && plot->NumData <= n) {"), 0);
    EXPECT_EQ(WritesIn("x = record.OverlayRows[0] - 1;"), 0);
    EXPECT_EQ(WritesIn("settings.NumDataShown = 4;"), 0);
}

TEST(RowCounts, OnlyTheOwnerOfRowsAndTheReaderOfFilesWriteThem) {
    const fs::path root = fs::path(QUANDREL_SOURCE_DIR) / "src";
    int ownWrites = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        const std::string file = fs::relative(entry.path(), root).generic_string();
        std::ifstream stream(entry.path());
        const std::string code{std::istreambuf_iterator<char>(stream), {}};
        if (file == "core/plot_rows.cpp") {
            ownWrites = WritesIn(code);
        } else if (file != "persistence/binary_plot_read.cpp"
                   && file != "persistence/binary_plot_checks.cpp"
                   && file != "persistence/binary_plot_fields.h") {
            EXPECT_EQ(WritesIn(code), 0) << file;
        }
    }
    EXPECT_GT(ownWrites, 10);
}

} // namespace
} // namespace quandrel
