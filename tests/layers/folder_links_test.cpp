// SPDX-License-Identifier: MIT
//
// Three places say what a folder may use: the folder tables of docs/architecture.md, the links of
// CMake, and the rules for includes (folder_rules.h). They must agree.

#include "layers/folder_rules.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <vector>

namespace quandrel {
namespace {

/// What a folder uses.
struct Used {
    Folders passedOn; ///< may also be used by those that use the folder
    Folders kept;
};

/// What each folder uses directly. "engine" and "edit" stand for the folders that they use.
using Uses = std::map<std::string, Used>;

/// What each folder uses, directly or through others.
using Reached = std::map<std::string, Folders>;

void AddPassedOn(const Uses& uses, const std::string& folder, Folders& reached) {
    const auto found = uses.find(folder);
    for (const std::string& other : found == uses.end() ? Folders() : found->second.passedOn) {
        if (reached.insert(other).second) {
            AddPassedOn(uses, other, reached);
        }
    }
}

Reached ReachedBy(const Uses& uses) {
    Reached all;
    for (const auto& [folder, used] : uses) {
        Folders reached = used.kept;
        for (const std::string& other : used.kept) {
            AddPassedOn(uses, other, reached);
        }
        AddPassedOn(uses, folder, reached);
        reached.erase("engine");
        reached.erase("edit");
        all[folder] = reached;
    }
    all.erase("engine");
    all.erase("edit");
    return all;
}

std::string TextOf(const std::string& file) {
    std::ifstream stream(std::filesystem::path(QUANDREL_SOURCE_DIR) / file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The parts of a text between separators, without blanks about them.
std::vector<std::string> PartsOf(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        const std::size_t first = std::min(part.find_first_not_of(' '), part.size());
        parts.push_back(part.substr(first, part.find_last_not_of(' ') + 1 - first));
    }
    return parts;
}

// ---- CMake

/// The folder of a target: "quandrel_edit_rows" is edit/rows. Empty for other libraries and for
/// variables of the helper functions.
std::string FolderOfTarget(std::string target) {
    static const std::string prefix = "quandrel_";
    if (target == "quandrel") {
        return "shell";
    }
    if (target == "quandrel-batch") {
        return "batch";
    }
    if (!target.starts_with(prefix) || target.find('$') != std::string::npos) {
        return {};
    }
    std::replace(target.begin(), target.end(), '_', '/');
    return target.substr(prefix.size());
}

void AddTarget(const std::string& user, const std::string& target, bool isPassedOn, Uses& uses) {
    const std::string folder = FolderOfTarget(target);
    if (!folder.empty() && folder != user) {
        (isPassedOn ? uses[user].passedOn : uses[user].kept).insert(folder);
    }
}

/// Takes quandrel_folder or quandrel_room: the folder, DEPENDS, targets without their prefix.
void TakeFolder(const std::string& folder, const std::vector<std::string>& words, Uses& uses) {
    uses[folder];
    bool isDependency = false;
    for (const std::string& word : words) {
        if (word == "DEPENDS" || word == "PRECOMPILE") {
            isDependency = word == "DEPENDS";
        } else if (isDependency) {
            AddTarget(folder, "quandrel_" + word, true, uses);
        }
    }
}

/// Takes target_link_libraries: the target, then libraries by their visibility.
void TakeLinks(const std::vector<std::string>& words, Uses& uses) {
    const std::string folder = FolderOfTarget(words.at(0));
    if (folder.empty()) {
        return;
    }
    bool isPassedOn = true;
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (words[i] == "PUBLIC" || words[i] == "INTERFACE" || words[i] == "PRIVATE") {
            isPassedOn = words[i] != "PRIVATE";
        } else {
            AddTarget(folder, words[i], isPassedOn, uses);
        }
    }
}

void TakeCommand(const std::string& command, const std::vector<std::string>& words, Uses& uses) {
    if (command == "quandrel_folder") {
        TakeFolder(words.at(0), words, uses);
    } else if (command == "quandrel_room") {
        TakeFolder("shell/" + words.at(0), words, uses);
        uses["shell/" + words.at(0)].passedOn.insert("qt");
    } else if (command == "target_link_libraries") {
        TakeLinks(words, uses);
    } else if (command == "target_include_directories"
               && words.back() == "${PROJECT_SOURCE_DIR}/include") {
        uses[FolderOfTarget(words.at(0))].kept.insert("quandrel");
    }
}

/// What the lists of CMake link.
Uses UsesInCMake(const std::string& lists) {
    static const std::regex comment("#[^\n]*");
    static const std::regex command(R"((\w+)\(([^()]*)\))");
    const std::string text = std::regex_replace(lists, comment, "");
    Uses uses;
    for (std::sregex_iterator at(text.begin(), text.end(), command), end; at != end; ++at) {
        std::istringstream stream((*at)[2].str());
        const std::vector<std::string> words(std::istream_iterator<std::string>(stream), {});
        if (!words.empty()) {
            TakeCommand((*at)[1], words, uses);
        }
    }
    return uses;
}

// ---- The page

/// The folders of the tables of the page in their order, with the cell of what they may use.
std::vector<std::pair<std::string, std::string>> RowsOfPage(const std::string& page) {
    std::vector<std::pair<std::string, std::string>> rows;
    std::istringstream stream(page);
    for (std::string line; std::getline(stream, line);) {
        const std::vector<std::string> cells = PartsOf(line, '|');
        if (line.starts_with("| `") && cells.size() == 5 && cells[2].starts_with('`')) {
            rows.emplace_back(cells[1].substr(1, cells[1].size() - 2), cells[4]);
        }
    }
    return rows;
}

/// Takes one name of the cell of a folder: as code it is a path that is not passed on.
void TakeName(const std::string& folder, std::string name, Used& used) {
    if (name.starts_with('`')) {
        name = name.substr(1, name.size() - 2);
        used.kept.insert(name == "include/quandrel" ? "quandrel" : name);
    } else if (name == "the engine") {
        used.passedOn.insert("engine");
    } else if (!name.empty() && name != "the standard library" && !name.starts_with("Qt")) {
        used.passedOn.insert((folder.starts_with("shell") ? "shell/" : "") + name);
    }
}

/// What the page says. Rooms may use the engine and qt besides; "all rooms" are those before the
/// row.
Uses UsesOnPage(const std::string& page) {
    Uses uses;
    Folders rooms;
    bool isBelowEngine = false;
    for (const auto& [folder, cell] : RowsOfPage(page)) {
        Used& used = uses[folder];
        for (const std::string& name : PartsOf(cell, ',')) {
            TakeName(folder, name, used);
        }
        if (used.passedOn.erase("shell/all rooms") != 0) {
            used.passedOn.insert(rooms.begin(), rooms.end());
        }
        if (folder.starts_with("shell")) {
            used.passedOn.insert({"engine", "qt"});
            rooms.insert(folder);
        } else if (!isBelowEngine && !folder.starts_with("mapsession")) {
            uses["engine"].passedOn.insert(folder);
        }
        if (folder.starts_with("edit/")) {
            uses["edit"].passedOn.insert(folder);
        }
        isBelowEngine = isBelowEngine || folder == "help";
    }
    return uses;
}

// ---- Comparison

std::string Joined(const Folders& folders) {
    std::string text;
    for (const std::string& folder : folders) {
        text += " " + folder;
    }
    return text;
}

Folders Without(const Folders& folders, const Folders& others) {
    Folders rest;
    std::set_difference(folders.begin(), folders.end(), others.begin(), others.end(),
                        std::inserter(rest, rest.end()));
    return rest;
}

/// A line for each folder that uses more in one place than in the other; empty when they agree.
std::string DifferenceOf(const Reached& one, const Reached& other) {
    std::string text;
    Reached all = other;
    all.insert(one.begin(), one.end());
    for (const auto& [folder, reached] : all) {
        const auto first = one.find(folder);
        const auto second = other.find(folder);
        if (first == one.end() || second == other.end()) {
            text += folder + ": only in the " + (first == one.end() ? "second" : "first") + "\n";
            continue;
        }
        const Folders more = Without(first->second, second->second);
        const Folders less = Without(second->second, first->second);
        text += more.empty() ? "" : folder + ": the first has" + Joined(more) + "\n";
        text += less.empty() ? "" : folder + ": the second has" + Joined(less) + "\n";
    }
    return text;
}

Reached ReachedInCMake() {
    return ReachedBy(
        UsesInCMake(TextOf("src/CMakeLists.txt") + TextOf("src/shell/CMakeLists.txt")));
}

TEST(UsesInCMake, AreThoseOfFoldersRoomsAndLinks) {
    const Reached reached = ReachedBy(
        UsesInCMake("quandrel_folder(a) # quandrel_folder(none DEPENDS a)\n"
                    "quandrel_folder(a/b DEPENDS a PRECOMPILE <x.h>)\n"
                    "quandrel_folder(c)\ntarget_link_libraries(quandrel_c PUBLIC X::X PRIVATE\n"
                    "    quandrel_a_b)\n"
                    "quandrel_room(r DEPENDS c)\ntarget_link_libraries(${target} PUBLIC X::X)\n"));
    EXPECT_EQ(reached,
              (Reached{{"a", {}}, {"a/b", {"a"}}, {"c", {"a", "a/b"}}, {"shell/r", {"c", "qt"}}}));
}

TEST(UsesOnPage, AreThoseOfTheLastColumn) {
    const Reached reached =
        ReachedBy(UsesOnPage("| folder | chief header | holds | may use |\n|---|---|---|---|\n"
                             "| `a` | `a.h` | x | the standard library |\n"
                             "| `edit/b` | `b.h` | x | a |\n"
                             "| `help` | `h.h` | x | edit, `include/quandrel` |\n"
                             "| `qt` | `q.h` | x | the engine, Qt without Widgets |\n"
                             "| `shell/r` | `r.h` | x | |\n| `shell/s` | `s.h` | x | all rooms |\n"
                             "| 1 | `no` | row | of a |\n"));
    const Folders engine = {"a", "edit/b", "help"};
    EXPECT_EQ(reached.at("a"), Folders());
    EXPECT_EQ(reached.at("help"), (Folders{"a", "edit/b", "quandrel"}));
    EXPECT_EQ(reached.at("qt"), engine) << "what help keeps is not passed on";
    EXPECT_EQ(reached.at("shell/r"), (Folders{"a", "edit/b", "help", "qt"}));
    EXPECT_EQ(reached.at("shell/s"), (Folders{"a", "edit/b", "help", "qt", "shell/r"}));
    EXPECT_EQ(reached.size(), 6U);
}

TEST(FolderLinks, ADifferenceIsNamed) {
    EXPECT_EQ(DifferenceOf({{"a", {"b"}}, {"c", {}}}, {{"a", {"b"}}, {"c", {}}}), "");
    EXPECT_EQ(DifferenceOf({{"a", {"b"}}, {"c", {}}}, {{"a", {"d"}}}),
              "a: the first has b\na: the second has d\nc: only in the first\n");
}

TEST(FolderLinks, OfCMakeAreThoseOfThePage) {
    EXPECT_EQ(DifferenceOf(ReachedInCMake(), ReachedBy(UsesOnPage(TextOf("docs/architecture.md")))),
              "")
        << "first: src/CMakeLists.txt and src/shell/CMakeLists.txt; second: docs/architecture.md";
}

TEST(FolderLinks, OfCMakeAreTheIncludesThatAreAllowed) {
    Reached allowed = AllowedIncludes();
    allowed.erase("quandrel"); // the public headers are not a library
    EXPECT_EQ(DifferenceOf(ReachedInCMake(), allowed), "")
        << "first: src/CMakeLists.txt and src/shell/CMakeLists.txt; second: folder_rules.cpp";
}

} // namespace
} // namespace quandrel
