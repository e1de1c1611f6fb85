// SPDX-License-Identifier: MIT
//
// What the whole program shares: the outside and the settings are values; everything else with a
// global name is a view of a value of its subject. Also how often folders access the plot in focus,
// and how long sources are.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLines = 450;
constexpr int kSlack = 10; ///< by which the table of readers may exceed the counts

using Names = std::set<std::string>;
using Counts = std::map<std::string, int>;

/// How often the sources of a folder may name the plot in focus: procedures with given names work
/// on it, others take a plot. A number may decrease, but never increase.
const Counts& MostReadersOfFocus() {
    static const Counts most = {
        {"classify", 28},   {"core", 24},          {"density", 7},         {"derive", 46},
        {"drawing", 38},    {"edit/commands", 18}, {"edit/grids", 29},     {"edit/history", 10},
        {"edit/marks", 45}, {"edit/rows", 54},     {"edit/selection", 12}, {"input", 17},
        {"mapinfo", 25},    {"persistence", 31},   {"preferences", 10},    {"print", 6},
        {"qt", 11},         {"recovery", 10},      {"rose", 20},           {"rotation", 29},
        {"session", 37},    {"statistics", 20},    {"stereo", 14}};
    return most;
}

/// The code of a source without its comments. A text with two slashes loses its end.
std::string WithoutComments(const std::string& source) {
    std::string code;
    for (std::size_t at = 0; at < source.size();) {
        const std::size_t comment = source.find("//", at);
        code += source.substr(at, comment - at);
        at = comment == std::string::npos ? source.size() : source.find('\n', comment);
    }
    return code;
}

/// The variables that a header shares with others: declared with extern, or defined inline without
/// being constant or a view.
Names VariablesOf(const std::string& code) {
    static const std::regex shared(
        R"((?:^|\n)(?:extern\s|(?:constinit\s+)?inline\s+(?!constexpr\b|constinit\s+auto&|const\b))[^;{}]*?(\w+)\s*(?:\[[^\]]*\]\s*)*(?:=[^;]*|\{[^;]*\})?;)");
    Names names;
    for (std::sregex_iterator at(code.begin(), code.end(), shared), end; at != end; ++at) {
        names.insert((*at)[1]);
    }
    return names;
}

int ReadersOfFocus(const std::string& code) {
    static const std::regex focus(R"(\b(?:gActivePlot\b|ActiveRecord\(\)|ActivePlot\(\)))");
    return static_cast<int>(
        std::distance(std::sregex_iterator(code.begin(), code.end(), focus), {}));
}

/// Calls `visit(path below src, text)` for each source.
void VisitSources(const std::function<void(const std::string&, const std::string&)>& visit) {
    const fs::path root = fs::path(QUANDREL_SOURCE_DIR) / "src";
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".cpp") {
            std::ifstream stream(entry.path());
            visit(fs::relative(entry.path(), root).generic_string(),
                  {std::istreambuf_iterator<char>(stream), {}});
        }
    }
}

TEST(Globals, VariablesAreFound) {
    EXPECT_EQ(VariablesOf("extern int gOne;\n\nextern std::array<float, 7> gTwo;"),
              (Names{"gOne", "gTwo"}));
    EXPECT_EQ(VariablesOf("\nextern std::function<void(int)> gThree;\n"), Names{"gThree"});
    EXPECT_EQ(VariablesOf("extern char gFour[3];"), Names{"gFour"});
    EXPECT_EQ(
        VariablesOf("inline std::vector<int> gFive;\ninline int gSix = 3;\ninline int g7{2};"),
        (Names{"gFive", "gSix", "g7"}));
    EXPECT_EQ(
        VariablesOf("inline constexpr int kNone = 1;\ninline const char* const kText = \"\";"),
        Names());
    EXPECT_EQ(VariablesOf("inline constinit auto& gView = Value::now.part;"), Names());
    EXPECT_EQ(VariablesOf("inline int Twice(int a) {\n    return 2 * a;\n}\nextern int F(int);\n"),
              Names());
}

TEST(Globals, AreThePortsAndTheSettings) {
    const Names allowed = {"gPlatform", "gSettings"};
    Names found;
    VisitSources([&](const std::string& file, const std::string& text) {
        for (const std::string& name : VariablesOf(WithoutComments(text))) {
            found.insert(name);
            EXPECT_TRUE(allowed.contains(name)) << file << ": " << name;
        }
    });
    EXPECT_TRUE(std::ranges::includes(found, allowed)) << "the variables are found";
}

TEST(ReadersOfFocus, AreCounted) {
    EXPECT_EQ(ReadersOfFocus("gActivePlot = RowsOf(ActivePlot(), ActiveRecord().NumData);"), 3);
    EXPECT_EQ(ReadersOfFocus("ReplotActivePlot(true); gActivePlots; StatsOfActivePlot();"), 0);
    EXPECT_EQ(ReadersOfFocus(WithoutComments("a; // gActivePlot\nb; /// ActivePlot()\nc")), 0);
}

TEST(ReadersOfFocus, BecomeFewerInEachFolder) {
    Counts counts;
    VisitSources([&](const std::string& file, const std::string& text) {
        const std::string folder = fs::path(file).parent_path().generic_string();
        if (!folder.starts_with("shell") && !folder.starts_with("batch")) {
            counts[folder] += ReadersOfFocus(WithoutComments(text));
        }
    });
    for (const auto& [folder, count] : counts) {
        const auto most = MostReadersOfFocus().find(folder);
        const int allowed = most == MostReadersOfFocus().end() ? 0 : most->second;
        EXPECT_LE(count, allowed) << folder << ": take a plot rather than the one in focus";
        EXPECT_GE(count + kSlack, allowed) << folder << ": the table is to have " << count;
    }
    for (const auto& [folder, most] : MostReadersOfFocus()) {
        EXPECT_TRUE(counts.contains(folder)) << folder;
    }
}

TEST(Sources, AreShort) {
    VisitSources([&](const std::string& file, const std::string& text) {
        const auto lines = std::count(text.begin(), text.end(), '\n');
        EXPECT_LE(lines, kMostLines) << file << ": what is its second subject?";
    });
}

} // namespace
} // namespace quandrel
