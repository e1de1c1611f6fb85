// SPDX-License-Identifier: MIT
//
// The rules of the tree: which folder of src/ may include which, and who may know Qt.

#include "layers/folder_rules.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr int kMostPairs = 12; ///< headers with their sources in a room of the windows
constexpr int kLeastLinesOfChief = 5;

struct Include {
    fs::path file;
    std::string name;
    bool angled = false;
};

std::string FolderOf(const fs::path& relative) {
    const std::string folder = relative.parent_path().generic_string();
    return folder == "batch/main" ? "batch" : folder;
}

std::vector<Include> IncludesOf(const fs::path& file) {
    std::vector<Include> includes;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.rfind("#include", 0) != 0) {
            continue;
        }
        const std::size_t open = line.find_first_of("<\"");
        const std::size_t close = line.find_last_of(">\"");
        if (open != std::string::npos && close > open) {
            includes.push_back({file, line.substr(open + 1, close - open - 1), line[open] == '<'});
        }
    }
    return includes;
}

/// Every include of every source below src/, by the folder that contains it.
std::map<std::string, std::vector<Include>> IncludesByFolder() {
    const fs::path root = fs::path(QUANDREL_SOURCE_DIR) / "src";
    std::map<std::string, std::vector<Include>> found;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        std::vector<Include>& includes = found[FolderOf(fs::relative(entry.path(), root))];
        for (Include& include : IncludesOf(entry.path())) {
            includes.push_back(std::move(include));
        }
    }
    return found;
}

/// The chief header of each folder, by the folder tables of docs/architecture.md: rows that begin
/// with the folder's path and the header's name, both as code.
std::map<std::string, std::string> ChiefHeaders() {
    std::map<std::string, std::string> chiefs;
    std::ifstream page(fs::path(QUANDREL_SOURCE_DIR) / "docs/architecture.md");
    for (std::string line; std::getline(page, line);) {
        const std::size_t between = line.find("` | `");
        const std::size_t end = line.find("` |", between + 1);
        if (line.starts_with("| `") && between != std::string::npos && end != std::string::npos) {
            chiefs[line.substr(3, between - 3)] = line.substr(between + 5, end - between - 5);
        }
    }
    return chiefs;
}

/// Lines with words in the comment that a file opens with, the licence apart.
int LinesOfHeadComment(const fs::path& file) {
    int lines = 0;
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    while (std::getline(stream, line) && line.starts_with("//")) {
        lines += line.size() > 3 ? 1 : 0;
    }
    return lines;
}

bool IsQtHeader(const Include& include) {
    return include.angled && include.name.size() > 1 && include.name[0] == 'Q'
           && std::isupper(static_cast<unsigned char>(include.name[1])) != 0;
}

TEST(Layers, EveryFolderHasItsPlaceInTheTable) {
    for (const auto& [folder, includes] : IncludesByFolder()) {
        EXPECT_TRUE(AllowedIncludes().contains(folder)) << "src/" << folder;
    }
}

TEST(Layers, NoFolderIncludesFromOneAboveIt) {
    for (const auto& [folder, includes] : IncludesByFolder()) {
        const auto allowed = AllowedIncludes().find(folder);
        ASSERT_NE(allowed, AllowedIncludes().end()) << folder;
        for (const Include& include : includes) {
            if (include.angled) {
                continue;
            }
            const std::string target = FolderOf(include.name);
            EXPECT_TRUE(target == folder || allowed->second.contains(target))
                << include.file << " includes " << include.name;
        }
    }
}

TEST(Layers, TheTableHoldsNoCycle) {
    // Folders whose every include is already placed come next; what never comes is in a cycle.
    std::set<std::string> placed;
    const auto& table = AllowedIncludes();
    for (std::size_t round = 0; round < table.size(); ++round) {
        for (const auto& [folder, includes] : table) {
            const bool ready =
                std::all_of(includes.begin(), includes.end(),
                            [&](const std::string& f) { return placed.contains(f); });
            if (ready) {
                placed.insert(folder);
            }
        }
    }
    EXPECT_EQ(placed.size(), table.size());
}

TEST(Layers, OnlyQtBatchAndTheWindowsKnowQt) {
    for (const auto& [folder, includes] : IncludesByFolder()) {
        const bool mayUseQt = folder == "qt" || folder == "batch" || folder.starts_with("shell");
        for (const Include& include : includes) {
            EXPECT_FALSE(IsQtHeader(include) && !mayUseQt)
                << include.file << " includes " << include.name;
        }
    }
}

TEST(Layers, OnlyTheFolderOfQtPaintsWithIt) {
    for (const auto& [folder, includes] : IncludesByFolder()) {
        for (const Include& include : includes) {
            EXPECT_FALSE(include.name == "QPainter" && folder != "qt") << include.file;
        }
    }
}

TEST(Layers, NoRoomOfTheWindowsHoldsMoreThanTwelvePairs) {
    std::map<std::string, std::map<std::string, int>> counts; // by room and extension
    const fs::path root = fs::path(QUANDREL_SOURCE_DIR) / "src";
    for (const auto& entry : fs::recursive_directory_iterator(root / "shell")) {
        ++counts[FolderOf(fs::relative(entry.path(), root))][entry.path().extension().string()];
    }
    EXPECT_GT(counts.size(), 12U);
    for (auto& [room, files] : counts) {
        EXPECT_LE(files[".h"], kMostPairs) << room;
        EXPECT_LE(files[".cpp"], kMostPairs) << room;
    }
}

bool HasLineWith(const fs::path& file, const std::string& words) {
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.find(words) != std::string::npos) {
            return true;
        }
    }
    return false;
}

TEST(Layers, EveryFolderHasAChiefHeaderThatSaysWhatItIsFor) {
    const std::map<std::string, std::string> chiefs = ChiefHeaders();
    for (const auto& [folder, includes] : IncludesByFolder()) {
        const auto chief = chiefs.find(folder);
        ASSERT_NE(chief, chiefs.end()) << "docs/architecture.md has no row for " << folder;
        const fs::path file = fs::path(QUANDREL_SOURCE_DIR) / "src" / folder / chief->second;
        EXPECT_GE(LinesOfHeadComment(file), kLeastLinesOfChief) << file;
        EXPECT_TRUE(HasLineWith(file, "Input: ")) << file;
        EXPECT_TRUE(HasLineWith(file, "Output: ")) << file;
    }
}

TEST(Layers, EveryFolderOfTheDocumentIsThere) {
    const auto folders = IncludesByFolder();
    for (const auto& [folder, chief] : ChiefHeaders()) {
        EXPECT_TRUE(folders.contains(folder)) << folder;
    }
}

TEST(Layers, OrientationSeesTheStandardLibraryAlone) {
    const std::map<std::string, std::vector<Include>> folders = IncludesByFolder();
    for (const Include& include : folders.at("orientation")) {
        EXPECT_TRUE(include.angled ? include.name.find('.') == std::string::npos
                                   : FolderOf(include.name) == "orientation")
            << include.file << " includes " << include.name;
    }
}

} // namespace
} // namespace quandrel
