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

constexpr int kMostPairs = 12; ///< headers with their sources in a room of the windows
constexpr int kLeastLinesOfChief = 5;

/// A set of folders with further ones.
Folders Above(Folders folders, std::initializer_list<const char*> more) {
    for (const char* folder : more) {
        folders.insert(folder);
    }
    return folders;
}

/// Each folder without Qt with the folders that it may include from.
const std::map<std::string, Folders>& EngineIncludes() {
    static const Folders ground = {"platform", "orientation"};
    static const Folders onCore = Above(ground, {"core"});
    static const Folders onStereo = Above(onCore, {"stereo"});
    static const Folders onInput = Above(onStereo, {"input"});
    static const Folders onDensity = Above(onStereo, {"density"});
    static const Folders onAll =
        Above(onInput, {"rotation", "derive", "statistics", "density", "classify", "rose"});
    static const Folders onMarks = Above(onAll, {"edit/selection", "edit/history", "edit/marks"});
    static const Folders onRows = Above(onMarks, {"edit/rows"});
    static const Folders onEdits = Above(onRows, {"edit/grids", "edit/commands"});
    static const Folders onDrawing = Above(onEdits, {"drawing", "platform/scripted"});
    static const Folders onSession =
        Above(onDrawing, {"mapinfo", "persistence", "print", "session"});
    static const std::map<std::string, Folders> allowed = {
        {"platform", {}},
        {"platform/scripted", {"platform"}},
        {"orientation", {}},
        {"mapsession", {"platform"}},
        {"mapsession/gdal", {"mapsession"}},
        {"mapsession/windows", {"platform"}},
        {"core", ground},
        {"stereo", onCore},
        {"input", onStereo},
        {"rotation", onInput},
        {"persistence", onInput},
        {"derive", onInput},
        {"statistics", onStereo},
        {"density", onStereo},
        {"classify", onDensity},
        {"rose", Above(onDensity, {"classify"})},
        {"edit/selection", onAll},
        {"edit/history", Above(onAll, {"edit/selection"})},
        {"edit/marks", Above(onAll, {"edit/selection", "edit/history"})},
        {"edit/rows", onMarks},
        {"edit/grids", onRows},
        {"edit/commands", onRows},
        {"mapinfo", onEdits},
        {"drawing", onMarks},
        {"print", onDrawing},
        {"session", Above(onDrawing, {"mapinfo", "persistence", "print"})},
        {"recovery", onSession},
        {"preferences", onSession},
        {"help", onCore},
        // The public headers, below include/.
        {"quandrel", {}},
        {"border", Above(onMarks, {"quandrel", "persistence", "drawing"})},
    };
    return allowed;
}

/// The same for the rooms of the windows, from the bottom up, in addition to the engine and qt.
const std::map<std::string, Folders>& RoomIncludes() {
    static const Folders onControls = {"shell/controls"};
    static const Folders onStyles = Above(onControls, {"shell/styles"});
    static const Folders onFormat = Above(onStyles, {"shell/format", "shell/files"});
    static const Folders onClasses = Above(onStyles, {"shell/classes"});
    static const Folders onDialogs = Above(onFormat, {"shell/dialogs"});
    static const Folders onPlot = Above(onDialogs, {"shell/classes", "shell/rose", "shell/plot"});
    static const Folders onAll = Above(
        onPlot, {"shell/grids", "shell/help", "shell/map", "shell/preferences", "shell/print"});
    static const std::map<std::string, Folders> allowed = {
        {"shell/controls", {}},
        {"shell/styles", onControls},
        {"shell/classes", onStyles},
        {"shell/rose", onClasses},
        {"shell/grids", onControls},
        {"shell/files", onControls},
        {"shell/print", onControls},
        {"shell/help", onControls},
        {"shell/map", Above(onControls, {"mapsession", "mapsession/windows"})},
        {"shell/format", onStyles},
        {"shell/dialogs", onFormat},
        {"shell/preferences", onDialogs},
        {"shell/plot", Above(onDialogs, {"shell/classes", "shell/rose"})},
        {"shell/main", onAll},
        {"shell", Above(onAll, {"shell/main"})}, // the program's start
    };
    return allowed;
}

/// Each folder with the folders that it may include from. Its own is always allowed.
const std::map<std::string, Folders>& AllowedIncludes() {
    static const std::map<std::string, Folders> allowed = [] {
        std::map<std::string, Folders> all = EngineIncludes();
        Folders engine;
        for (const auto& [folder, includes] : all) {
            if (!folder.starts_with("mapsession") && folder != "border" && folder != "quandrel") {
                engine.insert(folder);
            }
        }
        all["qt"] = engine;
        engine.insert("qt");
        all["batch"] = engine;
        for (const auto& [room, includes] : RoomIncludes()) {
            all[room] = engine;
            all[room].insert(includes.begin(), includes.end());
        }
        return all;
    }();
    return allowed;
}

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

/// Every include of every source below src/, by the folder of the source.
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

/// Lines with words in the comment at the top of a file, except the licence.
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
    // Folders whose includes are all placed already come next; a folder that is never placed is in
    // a cycle.
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

TEST(Layers, EveryFolderHasAChiefHeaderThatSaysWhatItIsFor) {
    const std::map<std::string, std::string> chiefs = ChiefHeaders();
    for (const auto& [folder, includes] : IncludesByFolder()) {
        const auto chief = chiefs.find(folder);
        ASSERT_NE(chief, chiefs.end()) << "docs/architecture.md has no row for " << folder;
        const fs::path file = fs::path(QUANDREL_SOURCE_DIR) / "src" / folder / chief->second;
        EXPECT_GE(LinesOfHeadComment(file), kLeastLinesOfChief) << file;
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
