// SPDX-License-Identifier: MIT

#include "session/start.h"

#include "core/plot_store.h"
#include "core/recent_files.h"
#include "core/row_links.h"
#include "core/settings.h"
#include "drawing/plot_driver.h"
#include "edit/history/undo.h"
#include "input/file_loading.h"
#include "input/table_files.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/map_link.h"
#include "mapsession/text_tables.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "platform/platform.h"
#include "print/print_run.h"

#include <filesystem>
#include <utility>

namespace quandrel {

namespace {

constexpr int kStartRose = 1;
constexpr int kStartBlank = 2;
constexpr int kStartMapLink = 3;
constexpr int kStartWorkspace = 6;

constexpr const char* kEndOfOptions = "--";
constexpr const char* kUsage =
    "Usage: quandrel [OPTION]... [FILE]...\n"
    "Stereonets and rose diagrams for structural geologists.\n"
    "Each FILE is opened: a data file, a plot file (.qpx), a workspace (.qwo) or a figure\n"
    "(.qsheet).\n\n"
    "  -h, --help     print this and exit\n"
    "  -v, --version  print the version and exit\n\n"
    "The options of all Qt programs, such as -style, are accepted too.\n"
    "For scripts there is quandrel-batch.\n";

/// False when no plot was opened.
bool OpenRecentFile(std::size_t number) {
    if (number < 1 || number > gSettings.files.recent.size()) {
        return false;
    }
    const std::string path = gSettings.files.recent[number - 1];
    if (const std::string outcome = OpenPlotFile("File" + path); outcome != kLoadError) {
        return HasOpenedPlot(outcome);
    }
    // A missing file was reported, and is removed from the list.
    std::error_code unreadable;
    if (!std::filesystem::exists(path, unreadable)) {
        RemoveRecentFile(path);
    }
    return false;
}

} // namespace

void InitialiseApplication() {
    gDecimalIsComma = gPlatform.decimalIsComma;
    ConnectDrawing();
    FollowRowsOfPlots();
    // A derived plot closes with its parent's, without a question. Its slot may be reused by
    // another plot, to which the steps of the previous one do not apply.
    ConnectClosing([](int slot) { ForgetUndo(slot); });
    LoadSettings();
    ListPrinters();
    gPlotKind = kEqualArea;
    gPlotDataKind = kPlanes;
    MakeStoreTables();
}

std::string GetCommandLineFile(const std::vector<std::string>& arguments) {
    std::string path;
    for (const std::string& argument : arguments) {
        path += (path.empty() ? "" : " ") + argument;
    }
    std::error_code unreadable;
    return std::filesystem::is_regular_file(path, unreadable) ? path : std::string();
}

std::optional<AnswerOnTerminal> AnswerToOptions(const std::vector<std::string>& arguments) {
    if (!GetCommandLineFile(arguments).empty()) {
        return std::nullopt;
    }
    for (const std::string& argument : arguments) {
        std::error_code unreadable;
        if (argument == kEndOfOptions) {
            break;
        }
        if (argument == "--help" || argument == "-h") {
            return AnswerOnTerminal{kUsage};
        }
        if (argument == "--version" || argument == "-v") {
            return AnswerOnTerminal{std::string(gCaption) + "\n"};
        }
        if (argument.size() > 1 && argument.starts_with('-')
            && !std::filesystem::is_regular_file(argument, unreadable)) {
            return AnswerOnTerminal{
                "quandrel: '" + argument + "' is not an option; see quandrel --help\n", 2};
        }
    }
    return std::nullopt;
}

NamedFiles FilesOfCommandLine(const std::vector<std::string>& arguments) {
    NamedFiles named;
    if (const std::string whole = GetCommandLineFile(arguments); !whole.empty()) {
        named.files.push_back(whole);
        return named;
    }
    bool isAfterOptions = false;
    for (const std::string& argument : arguments) {
        if (argument == kEndOfOptions && !isAfterOptions) {
            isAfterOptions = true;
            continue;
        }
        std::error_code unreadable;
        const bool isFile = std::filesystem::is_regular_file(argument, unreadable);
        (isFile ? named.files : named.missing).push_back(argument);
    }
    return named;
}

std::string TextOfMissing(const NamedFiles& named) {
    if (named.missing.empty()) {
        return {};
    }
    std::string text =
        named.missing.size() == 1 ? "This file was not found:" : "These files were not found:";
    for (const std::string& path : named.missing) {
        text += "\n" + path;
    }
    return text;
}

bool IntroStart(int index) {
    if (index >= kFirstRecentFile) {
        return OpenRecentFile(static_cast<std::size_t>(index % 10));
    }
    if (index == kStartBlank) {
        return OpenPlotFile(kBlankCommand) != kLoadError;
    }
    if (index == kStartWorkspace) {
        const std::optional<std::string> path = WorkspaceFileDialog(WorkspaceDialog::Open);
        return path && HasOpenedPlot(OpenPlotFile("File" + *path));
    }
    if (index == kStartMapLink) {
        static_cast<void>(StartMapInfoLink());
        return false; // no plot was opened
    }
    const std::int16_t formerKind = gPlotKind;
    if (index == kStartRose) {
        gPlotKind = kRose;
    }
    const bool opened = HasOpenedPlot(OpenPlotFile(kNewCommand));
    if (!opened) {
        gPlotKind = formerKind;
    }
    return opened;
}

void UseTablePlugin(const std::filesystem::path& programFolder) {
    TableFiles::now.read =
        [programFolder](const std::string& path) -> Result<std::vector<NamedTable>> {
        SessionResult<std::vector<NamedTable>> tables = ReadTextTables(programFolder, path);
        if (!tables) {
            return Failure{tables.Error().text};
        }
        return std::move(*tables);
    };
    TableFiles::now.write = [programFolder](const WrittenTable& table,
                                            const std::string& ending) -> Result<std::string> {
        SessionResult<std::string> bytes = BytesOfTableFile(programFolder, table, ending);
        if (!bytes) {
            return Failure{bytes.Error().text};
        }
        return std::move(*bytes);
    };
}

} // namespace quandrel
