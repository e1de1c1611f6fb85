// SPDX-License-Identifier: MIT
//
// The rules of the tree: which folder of src/ may include which, and who may know Qt.

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

using Folders = std::set<std::string>;

/// Each folder with the folders that it may include from. Its own is always allowed.
const std::map<std::string, Folders>& AllowedIncludes() {
    static const Folders ground = {"platform", "orientation"};
    static const auto above = [](Folders folders, std::initializer_list<const char*> more) {
        for (const char* folder : more) {
            folders.insert(folder);
        }
        return folders;
    };
    static const Folders onCore = above(ground, {"core"});
    static const Folders onStereo = above(onCore, {"stereo"});
    static const Folders onInput = above(onStereo, {"input"});
    static const Folders onPersistence = above(onInput, {"persistence"});
    static const Folders onDensity = above(onStereo, {"density"});
    static const Folders onAll =
        above(onPersistence, {"rotation", "derive", "statistics", "density", "classify", "rose"});
    static const Folders engine = above(onAll, {"edit", "mapinfo", "program"});
    static const std::map<std::string, Folders> allowed = {
        {"platform", {}},
        {"orientation", {}},
        {"mapsession", {"platform"}},
        {"mapsession/gdal", {"mapsession"}},
        {"core", ground},
        {"stereo", onCore},
        {"input", onStereo},
        {"rotation", onInput},
        {"persistence", onInput},
        {"derive", onPersistence},
        {"statistics", onStereo},
        {"density", onStereo},
        {"classify", onDensity},
        {"rose", above(onDensity, {"classify"})},
        {"edit", onAll},
        {"mapinfo", above(onAll, {"edit"})},
        {"program", above(onAll, {"edit", "mapinfo"})},
        {"print", engine},
        // The public headers, below include/.
        {"quandrel", {}},
        {"border", above(onAll, {"quandrel"})},
        {"platform/qt", engine},
        {"platform/windows", {"platform"}},
        {"batch", above(engine, {"print", "platform/qt"})},
        {"shell", above(engine, {"print", "platform/qt", "platform/windows", "mapsession"})},
    };
    return allowed;
}

struct Include {
    fs::path file;
    std::string name;
    bool angled = false;
};

std::string FolderOf(const fs::path& relative) {
    const std::string folder = relative.parent_path().generic_string();
    if (folder == "batch/main" || folder == "shell/main") {
        return folder.substr(0, folder.find('/'));
    }
    return folder;
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

/// Every include of every source below src/, by the folder that it stands in.
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

TEST(Layers, OnlyThePlatformAndTheWindowsKnowQt) {
    const Folders mayUseQt = {"platform/qt", "batch", "shell"};
    for (const auto& [folder, includes] : IncludesByFolder()) {
        for (const Include& include : includes) {
            EXPECT_FALSE(IsQtHeader(include) && !mayUseQt.contains(folder))
                << include.file << " includes " << include.name;
        }
    }
}

TEST(Layers, OnlyThePlatformPaintsWithQt) {
    for (const auto& [folder, includes] : IncludesByFolder()) {
        for (const Include& include : includes) {
            EXPECT_FALSE(include.name == "QPainter" && folder != "platform/qt") << include.file;
        }
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
