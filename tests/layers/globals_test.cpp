// SPDX-License-Identifier: MIT
//
// What the whole program shares: the outside and the settings are values; everything else with a
// global name is a view of a value of its subject, in the chief header of its folder. State that
// lasts from call to call is in a list. Also how often folders access the plot in focus, and how
// long sources are.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLines = 450;

using Names = std::set<std::string>;
using NamesByFile = std::map<std::string, Names>;
using Counts = std::map<std::string, int>;

/// The variables that all of the program shares.
const Names& PortsAndSettings() {
    static const Names names = {"gPlatform", "gSettings"};
    return names;
}

/// The given names by the header that declares them: constants, and views on values.
const NamesByFile& GivenNames() {
    static const NamesByFile names = {
        {"core/plot_store.h",
         {"gActiveLayer",
          "gActivePlot",
          "gAppLineAz",
          "gAppLineDip",
          "gAppNumeric",
          "gAppText",
          "gAxisStyleTable",
          "gBusy",
          "gCaption",
          "gColourTable",
          "gConventions",
          "gConvertDecimals",
          "gData2Az",
          "gData2Dip",
          "gDataAz",
          "gDataDip",
          "gDataFileFilter",
          "gDataOrder",
          "gDataSymbol",
          "gDataSymbolBase",
          "gDecimalIsComma",
          "gFileAppNonNumName",
          "gFileAppNumName",
          "gFileColumnSettings",
          "gFileDelimiter",
          "gFileFilter",
          "gFileLineAppended",
          "gFileNonNumericAppended",
          "gFileNumericAppended",
          "gGridCount",
          "gGridValues",
          "gHintText",
          "gLineSeparator",
          "gMaxPlots",
          "gPlaneSeparator",
          "gPlotAspect",
          "gPlotAxesStyle",
          "gPlotDataKind",
          "gPlotForm",
          "gPlotKind",
          "gPlotTableFull",
          "gPlotWidthPercent",
          "gPlotWinLast",
          "gPlots",
          "gPointDensity",
          "gPrimaryDataType",
          "gRoseAxesStyle",
          "gRoseOuterCircle",
          "gRoseSectorFraction",
          "gRoseSectorSize",
          "gSecondaryDataType",
          "gSelectionRows",
          "gShowIsolatedPts",
          "gSlotLock",
          "gSymbolTable",
          "gWorkspaceFilter",
          "grdData"}},
        {"edit/history/edit_step.h", {"gLastEditKind"}},
        {"edit/marks/annotations.h", {"gActiveGirdle"}},
        {"edit/selection/marquee.h", {"gMarquee"}},
        {"mapinfo/map_link.h", {"gMIGeoLinks", "gMIRowList", "gMITables", "gMapInfo"}},
        {"print/print_run.h", {"gPrinters", "gPrinting"}},
        {"rose/rose_plot.h",
         {"gRoseAngles", "gRoseClassWarned", "gRoseDirectional", "gRoseOddAsked", "gRoseRadii",
          "gRoseSectorStats", "gRoseSectors", "gRoseStartMath", "gRoseTotal", "gRoseTrigSums"}},
        {"rotation/rotate_data.h", {"gRotFocusBox"}},
    };
    return names;
}

/// What lasts from call to call, by the file that defines it. What belongs to a plot is attached to
/// it instead.
const NamesByFile& LastingState() {
    static const NamesByFile state = {
        // The outside, the settings and the plots.
        {"platform/platform.cpp", {"gPlatform"}},
        {"core/style_tables.cpp", {"gSettings"}},
        {"core/plot_slots.h", {"plots_"}},
        // Values of their subjects.
        {"core/changed_settings.h", {"StoredSettings::now"}},
        {"core/plot_store.h", {"StoreState::now"}},
        {"core/selection.h", {"Selection::now"}},
        {"edit/history/undo.h", {"EditHistory::now"}},
        {"edit/marks/girdles.h", {"GirdleInWork::now"}},
        {"edit/rows/paste_rows.h", {"AcceptedPasteFormat::now"}},
        {"input/further_files.h", {"FurtherFilesState::now"}},
        {"input/load_report.h", {"LoadCounters::now"}},
        {"input/table_files.h", {"TableFiles::now"}},
        {"mapinfo/map_link.h", {"MapLinkState::now"}},
        {"persistence/open_plot.h", {"OpenState::now"}},
        {"persistence/workspace_file.h", {"OpenedWorkspace::now"}},
        {"print/print_run.h", {"PrintState::now"}},
        {"rose/rose_plot.h", {"RoseWarnings::now"}},
        {"rotation/rotation_pick.h", {"RotationInWork::now"}},
        {"session/closing.h", {"ClosingState::now"}},
        // Calls that go up.
        {"core/replot.cpp", {"drawer"}},
        {"core/row_links.cpp", {"rowFollower", "whenClosing"}},
        {"edit/selection/marquee.cpp", {"whenChanged"}},
        // The help window, while there is one.
        {"shell/help/frm_help.cpp", {"window"}},
        // Versions of row tables and random names, which differ whenever they are made.
        {"core/row_table.cpp", {"lastVersion"}},
        {"core/new_file.cpp", {"random"}},
        // Shapes that depend on their code and size alone, made once.
        {"stereo/symbols.cpp", {"known", "mutex"}},
    };
    return state;
}

/// How often the sources of a folder may name the plot in focus: procedures with given names work
/// on it, others take a plot. A number may decrease, but never increase.
const Counts& MostReadersOfFocus() {
    static const Counts most = {
        {"classify", 27},   {"core", 21},          {"density", 7},         {"derive", 42},
        {"drawing", 37},    {"edit/commands", 18}, {"edit/grids", 22},     {"edit/history", 10},
        {"edit/marks", 45}, {"edit/rows", 49},     {"edit/selection", 12}, {"input", 16},
        {"mapinfo", 25},    {"persistence", 22},   {"preferences", 10},    {"print", 5},
        {"qt", 6},          {"recovery", 10},      {"rose", 20},           {"rotation", 26},
        {"session", 33},    {"statistics", 19},    {"stereo", 14}};
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

/// A variable that lasts longer than a call: of a namespace, of a class, or static in a function.
struct Variable {
    std::string name;
    bool isConstant = false;
    bool isView = false; ///< a reference
};

bool IsGivenName(const std::string& name) {
    static const std::regex given("g[A-Z]\\w*|grdData");
    return std::regex_match(name, given);
}

bool HasWord(const std::string& text, const char* word) {
    return std::regex_search(text, std::regex("\\b" + std::string(word) + "\\b"));
}

/// A declaration as a variable; nothing for a function, a local variable, a declaration with
/// extern, or the definition of a member, which its class declares.
///
/// @param parts  indent, specifiers, type, name, and what follows the name
std::optional<Variable> VariableOf(const std::cmatch& parts) {
    const std::string specifiers = parts[2];
    const std::string type = parts[3];
    const std::string name = parts[4];
    const bool isLocal = parts[1].length() > 0 && !HasWord(specifiers, "static")
                         && !HasWord(specifiers, "thread_local");
    const bool isFunction = parts[5] == "(" && !IsGivenName(name);
    if (isLocal || isFunction || HasWord(specifiers, "extern")
        || name.find(':') != std::string::npos) {
        return std::nullopt;
    }
    const std::size_t pointer = type.rfind('*');
    const bool isConst = pointer == std::string::npos ? HasWord(specifiers + type, "const")
                                                      : HasWord(type.substr(pointer), "const");
    return Variable{name == "now" ? type + "::now" : name,
                    HasWord(specifiers, "constexpr") || isConst, type.back() == '&'};
}

/// The declaration at the start of a line, if there is one.
std::optional<Variable> VariableAt(const char* line, const char* end) {
    static const std::regex declaration(
        // Indent and specifiers.
        R"(( *)((?:(?:static|thread_local|inline|constinit|constexpr|const|extern)\s+)*))"
        // A type, and not a word that begins something else.
        R"((?!(?:struct|class|enum|union|namespace|using|return|template|typedef|friend|concept)\b))"
        R"((?!(?:requires|public|private|protected|else|case|delete|throw|co_return|goto)\b))"
        R"(([A-Za-z_][\w:]*(?:<(?:[^;={}()]|\([^()]*\))*>)?(?:::\w+)*)"
        R"((?:\s*[&*]+(?:\s*const\b)?)*))"
        // The name, and what follows it.
        R"(\s+(?!operator\b)([\w:]+)\s*(=|;|\{|\[|\())");
    std::cmatch parts;
    const bool isFound =
        std::regex_search(line, end, parts, declaration, std::regex_constants::match_continuous);
    return isFound ? VariableOf(parts) : std::nullopt;
}

/// True for a line of a namespace, and for one that declares something static.
bool MayDeclare(std::string_view line) {
    return !line.empty()
           && (line.front() != ' ' || line.find("static ") != std::string_view::npos
               || line.find("thread_local ") != std::string_view::npos);
}

/// The variables of a source that last longer than a call.
std::vector<Variable> LastingVariablesOf(std::string_view code) {
    std::vector<Variable> found;
    for (std::size_t at = 0; at < code.size();) {
        const std::size_t next = std::min(code.find('\n', at), code.size() - 1) + 1;
        if (MayDeclare(code.substr(at, next - at))) {
            if (const auto variable = VariableAt(code.data() + at, code.data() + code.size())) {
                found.push_back(*variable);
            }
        }
        at = next;
    }
    return found;
}

/// The names of a source's variables that are neither constants nor views.
Names StateOf(const std::string& code) {
    Names names;
    for (const Variable& variable : LastingVariablesOf(code)) {
        if (!variable.isConstant && !variable.isView) {
            names.insert(variable.name);
        }
    }
    return names;
}

/// The given names that a source declares, besides the ports and the settings.
Names GivenNamesOf(const std::string& code) {
    Names names;
    for (const Variable& variable : LastingVariablesOf(code)) {
        if (IsGivenName(variable.name) && !PortsAndSettings().contains(variable.name)) {
            names.insert(variable.name);
        }
    }
    return names;
}

int ReadersOfFocus(const std::string& code) {
    static const std::regex focus(R"(\b(?:gActivePlot\b|ActiveRecord\(\)|ActivePlot\(\)))");
    return static_cast<int>(
        std::distance(std::sregex_iterator(code.begin(), code.end(), focus), {}));
}

std::string TextOf(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Calls `visit(path below src, text)` for each source.
void VisitSources(const std::function<void(const std::string&, const std::string&)>& visit) {
    const fs::path root = fs::path(QUANDREL_SOURCE_DIR) / "src";
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension == ".h" || extension == ".cpp") {
            visit(fs::relative(entry.path(), root).generic_string(), TextOf(entry.path()));
        }
    }
}

/// Expects the sources to declare exactly the names of a table.
void ExpectTable(const NamesByFile& table, Names (*namesOf)(const std::string& code),
                 const char* advice) {
    Names files;
    VisitSources([&](const std::string& file, const std::string& text) {
        const auto known = table.find(file);
        const Names wanted = known == table.end() ? Names() : known->second;
        EXPECT_EQ(namesOf(WithoutComments(text)), wanted) << file << ": " << advice;
        files.insert(file);
    });
    for (const auto& [file, names] : table) {
        EXPECT_TRUE(files.contains(file)) << file << " is gone";
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
    const Names& allowed = PortsAndSettings();
    Names found;
    VisitSources([&](const std::string& file, const std::string& text) {
        for (const std::string& name : VariablesOf(WithoutComments(text))) {
            found.insert(name);
            EXPECT_TRUE(allowed.contains(name)) << file << ": " << name;
        }
    });
    EXPECT_TRUE(std::ranges::includes(found, allowed)) << "the variables are found";
}

TEST(LastingState, IsFound) {
    EXPECT_EQ(StateOf("int one = 0;\nSentRows two;\nstd::function<void(int slot)> three;"),
              (Names{"one", "two", "three"}));
    EXPECT_EQ(
        StateOf("std::atomic<std::uint64_t> four = 0;\nconst char* five = \"\";\nint six[3];"),
        (Names{"four", "five", "six"}));
    EXPECT_EQ(
        StateOf("int F() {\n    static std::map<int, int> seven;\n    thread_local int e{};\n}"),
        (Names{"seven", "e"}));
    EXPECT_EQ(StateOf("struct State {\n    int count = 0;\n\n    static State now;\n};"),
              Names{"State::now"});
    EXPECT_EQ(StateOf("class Slots {\n    static constinit inline std::vector<Plot> plots_;\n};"),
              Names{"plots_"});
}

TEST(LastingState, IsNotConstantsViewsFunctionsAndLocals) {
    EXPECT_EQ(StateOf("constexpr int kOne = 1;\nconst std::string kTwo = \"2\";\n"
                      "const char* const kThree = \"3\";\nconstinit State State::now;"),
              Names());
    EXPECT_EQ(
        StateOf("inline constinit auto& gView = Value::now.part;\nextern Settings gSettings;"),
        Names());
    EXPECT_EQ(
        StateOf("using Rows = std::vector<int>;\nint F(int a = 3);\nstruct S {\n    int b = 0;"
                "\n    static S Of(int c = 2);\n};"),
        Names());
    EXPECT_EQ(StateOf("void F() {\n    static const Names none;\n    int d = 0;\n    return d;\n}"),
              Names());
}

TEST(LastingState, IsThatOfTheList) {
    ExpectTable(LastingState(), StateOf,
                "attach it to the plot, or make it part of a value of its subject");
}

TEST(GivenNames, AreFound) {
    EXPECT_EQ(GivenNamesOf("inline constinit auto& gOne = Value::now.part;\n"
                           "inline constexpr SlotView<&Plot::lock> gTwo;\n"
                           "inline constexpr const char* gThree = \"\";\n"
                           "inline constexpr DataColumn gFour(&PlotRows::dip);\n"
                           "int gFive = 0;\nint Gneiss = 0;\nint F(int gSix);"),
              (Names{"gOne", "gTwo", "gThree", "gFour", "gFive"}));
}

TEST(GivenNames, AreInTheChiefHeadersOfTheirFolders) {
    ExpectTable(GivenNames(), GivenNamesOf, "declare it in the chief header of its folder");
    const std::string page = TextOf(fs::path(QUANDREL_SOURCE_DIR) / "docs/architecture.md");
    for (const auto& [file, names] : GivenNames()) {
        const fs::path header = file;
        const std::string row = "| `" + header.parent_path().generic_string() + "` | `"
                                + header.filename().string() + "` |";
        EXPECT_NE(page.find(row), std::string::npos) << file << " is not the chief header";
    }
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
        EXPECT_GE(count, allowed) << folder << ": fewer now, so put " << count << " into the table";
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
