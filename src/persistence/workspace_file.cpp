// SPDX-License-Identifier: MIT

#include "persistence/workspace_file.h"

#include "core/atomic_file.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "input/file_loading.h"
#include "input/parameter_line.h"
#include "input/text_file.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/listed_path.h"
#include "persistence/open_plot.h"
#include "platform/platform.h"

#include <algorithm>
#include <utility>

namespace quandrel {

OpenedWorkspace OpenedWorkspace::now;

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kListBegin = "[Files List]";
constexpr std::string_view kListEnd = "[End Files List]";
constexpr std::string_view kSheetLine = "[Figure Sheet]:";
constexpr const char* kLineEnd = "\r\n";
constexpr std::string_view kEscapesBegin = "[Names]: %";
constexpr const char* kEscapes =
    "[Names]: %20 stands for a blank, %5C for a backslash, %25 for a percent sign";

/// Relative to the folder if the path is in or below it.
std::string ListedPath(const std::string& file, const fs::path& folder) {
    const fs::path path = NormalPath(file);
    const fs::path relative = path.lexically_normal().lexically_relative(folder.lexically_normal());
    const bool isBelow = !relative.empty() && *relative.begin() != "..";
    return (isBelow ? relative : path).generic_string();
}

std::string_view Trimmed(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    const std::size_t first = line.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view()
               : line.substr(first, line.find_last_not_of(kBlanks) + 1 - first);
}

/// The file to which a plot was just saved: binary, or text.
std::string SavedFileOf(const PlotRecord& record) {
    if (!record.SaveFileName.empty()) {
        return record.SaveFileName;
    }
    return record.MainFiles.size() == 1 ? record.MainFiles.front() : std::string();
}

/// The program's own text file to which a plot was saved or from which it was read, if it still
/// matches the plot's rows; else empty.
std::string OwnTextOf(const PlotRecord& record) {
    if (record.Modified != 0 || record.MainFiles.size() != 1) {
        return {};
    }
    const std::string& path = record.MainFiles.front();
    const Result<std::string> start = FirstBytes(path, kOwnTextStart.size());
    return start && *start == kOwnTextStart ? path : std::string();
}

/// A new, unused plot: there is nothing to save.
bool IsEmptyAndUntitled(const PlotRecord& record) {
    return record.NumLoadedData == 0 && record.NumFiles == 0 && record.SaveFileName.empty()
           && record.Modified == 0;
}

/// "Plot 2: beds". The title of a plot without a file already begins in this way.
std::string NumberedTitle(int slot, const std::string& title) {
    const std::string number = "Plot " + std::to_string(slot) + ": ";
    return title.starts_with(number) ? title : number + title;
}

Message QuestionAbout(int slot) {
    const PlotRecord& record = RecordOf(slot);
    const bool hasFile = !record.SaveFileName.empty();
    const std::string unsaved = "has not yet been saved as a .qpx file";
    std::string state = record.Modified != 0 ? " has unsaved edits" : " " + unsaved;
    if (record.Modified != 0 && !hasFile) {
        state += " and " + unsaved;
    }
    return {"Quandrel",
            NumberedTitle(slot, record.PlotTitle) + state
                + "\nSave it now?\n"
                  "(If the answer is No it will be omitted from the workspace)",
            Icon::Question, Buttons::YesNoCancel};
}

/// The file listed for a plot, an empty text for a plot that is left out; a failure when the save
/// failed or the user cancelled the workspace.
Result<std::string> FileToList(int slot, PlotsSavedAsText texts) {
    const PlotRecord& record = RecordOf(slot);
    if (!record.SaveFileName.empty() && record.Modified == 0) {
        return record.SaveFileName;
    }
    if (IsEmptyAndUntitled(record)) {
        return std::string();
    }
    if (texts == PlotsSavedAsText::List && record.SaveFileName.empty()
        && !OwnTextOf(record).empty()) {
        return OwnTextOf(record);
    }
    FormOf(slot).Raise();
    const Button answer = gPlatform.prompts->Ask(QuestionAbout(slot));
    if (answer == Button::No) {
        return std::string();
    }
    const std::string title = NumberedTitle(slot, record.PlotTitle);
    if (answer != Button::Yes) {
        return Failure{title + " has unsaved data, and the question about it was cancelled"};
    }
    const PlotInWork work(slot);
    switch (SaveAsciiPlot(SaveKind::Save)) {
    case SaveOutcome::Saved:
        return SavedFileOf(record);
    case SaveOutcome::Cancelled:
        return Failure{
            title
            + (record.SaveFileName.empty() ? " has no file yet: save it first" : " was not saved")};
    default:
        return Failure{title + " could not be saved"};
    }
}

/// The files of all plots to be listed; a failure when the user cancels a save, or a save fails.
Result<std::vector<std::string>> PathsToList(PlotsSavedAsText texts) {
    std::vector<std::string> paths;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (!IsOpenSlot(slot)) {
            continue;
        }
        const Result<std::string> file = FileToList(slot, texts);
        if (!file) {
            return Failure{file.Error()};
        }
        if (!file->empty()) {
            paths.push_back(*file);
        }
    }
    return paths;
}

/// The absolute path that a line names; empty for a line that names none.
std::string PathOfLine(std::string_view line, bool hasEscapes, const fs::path& folder) {
    std::string listed(Trimmed(line));
    std::ranges::replace(listed, '\\', '/');
    listed = hasEscapes ? WithoutEscapes(listed) : listed;
    const bool isName = !listed.empty() && listed.find('\0') == std::string::npos;
    return isName ? (folder / listed).lexically_normal().string() : std::string();
}

/// The file of the present figure sheet, empty for none; a failure when the user cancels.
Result<std::string> SheetToList() {
    SheetHolder* const sheets = OpenState::now.sheets;
    const std::optional<std::string> sheet = sheets != nullptr ? sheets->SavedSheet() : "";
    return sheet ? Result<std::string>(*sheet)
                 : Result<std::string>(Failure{"the figure was not saved"});
}

bool OpensListed(const std::string& path) {
    std::error_code unreadable;
    return fs::is_regular_file(path, unreadable)
           && OpenPlotFile(kNewCommand, path, FormatDialog::ForeignFiles) != kLoadError;
}

void Remember(const std::string& path) {
    gSettings.files.workspaceFolder = fs::path(path).parent_path().string();
    gSettings.files.workspaceName = path;
    gSettings.files.workspaceTitle = FileTitleOf(path);
}

fs::path FolderOf(const std::string& path) {
    std::error_code failed;
    const fs::path whole = fs::absolute(path, failed);
    return (failed ? fs::path(path) : whole).parent_path();
}

} // namespace

std::string WorkspaceText(std::span<const std::string> paths, const fs::path& folder,
                          const std::string& sheet) {
    std::vector<std::string> listed;
    for (const std::string& path : paths) {
        listed.push_back(ListedPath(path, folder));
    }
    const std::size_t plots = listed.size();
    if (!sheet.empty()) {
        listed.push_back(ListedPath(sheet, folder));
    }
    const bool hasEscapes = std::ranges::any_of(listed, NeedsEscapes);
    std::string text;
    const auto line = [&text](const std::string& content) { text += content + kLineEnd; };
    line("Quandrel Workspace");
    line("[Version]: 9.5.1");
    line("");
    line("The following file paths can be edited as required. ");
    line("Pathnames are relative for files in or below the folder of this workspace file");
    line("Files above this folder require the full pathname");
    if (hasEscapes) {
        line(kEscapes);
    }
    line("");
    line("[Files List]:");
    const auto name = [&](std::size_t i) {
        return hasEscapes ? WithEscapes(listed[i]) : listed[i];
    };
    for (std::size_t i = 0; i < plots; ++i) {
        line("     " + name(i));
    }
    line("[End Files List]: ");
    if (!sheet.empty()) {
        line(std::string(kSheetLine) + " " + name(plots));
    }
    return text;
}

std::vector<std::string> PathsOfWorkspace(std::string_view text, const fs::path& folder) {
    std::vector<std::string> paths;
    LineReader lines(text);
    bool isInList = false;
    bool hasEscapes = false;
    for (std::string_view line; lines.Next(line);) {
        if (!isInList) {
            isInList = line.starts_with(kListBegin);
            hasEscapes = hasEscapes || line.starts_with(kEscapesBegin);
            continue;
        }
        if (line.starts_with(kListEnd)) {
            break;
        }
        if (std::string path = PathOfLine(line, hasEscapes, folder); !path.empty()) {
            paths.push_back(std::move(path));
        }
    }
    return paths;
}

std::string SheetOfWorkspace(std::string_view text, const fs::path& folder) {
    LineReader lines(text);
    bool isInList = false;
    bool isAfterList = false;
    bool hasEscapes = false;
    for (std::string_view line; lines.Next(line);) {
        if (isAfterList && line.starts_with(kSheetLine)) {
            return PathOfLine(line.substr(kSheetLine.size()), hasEscapes, folder);
        }
        hasEscapes = hasEscapes || (!isInList && line.starts_with(kEscapesBegin));
        isAfterList = isAfterList || (isInList && line.starts_with(kListEnd));
        isInList = isInList || line.starts_with(kListBegin);
    }
    return {};
}

bool HasFilesList(std::string_view text) {
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) {
        if (line.starts_with(kListBegin)) {
            return true;
        }
    }
    return false;
}

std::optional<std::string> WorkspaceFileDialog(WorkspaceDialog mode) {
    const bool isOpening = mode == WorkspaceDialog::Open;
    PathQuestion question;
    question.title = isOpening ? "Open WorkSpace:" : "Save WorkSpace as:";
    question.folder = gSettings.files.workspaceFolder;
    question.fileName = isOpening ? std::string() : gSettings.files.workspaceTitle;
    question.filter = gWorkspaceFilter;
    const std::optional<std::string> path = isOpening ? gPlatform.prompts->AskOpenPath(question)
                                                      : gPlatform.prompts->AskSavePath(question);
    if (!path || path->empty()) {
        return std::nullopt;
    }
    Remember(*path);
    return path;
}

WorkspaceOutcome SaveWorkspace() {
    const std::optional<std::string> path = WorkspaceFileDialog(WorkspaceDialog::Save);
    return path ? SaveWorkspaceAs(*path) : WorkspaceOutcome::Cancelled;
}

WorkspaceOutcome SaveWorkspaceAs(const std::string& path, PlotsSavedAsText texts,
                                 std::string* reason) {
    std::string unasked;
    std::string& why = reason != nullptr ? *reason : unasked;
    const Result<std::vector<std::string>> paths = PathsToList(texts);
    if (!paths) {
        why = paths.Error();
        return WorkspaceOutcome::Cancelled;
    }
    if (paths->empty()) {
        why = "it would list no plot";
        Tell("The workspace would list no plot and was not saved\n" + path);
        return WorkspaceOutcome::Failed;
    }
    const Result<std::string> sheet = SheetToList();
    if (!sheet) {
        why = sheet.Error();
        return WorkspaceOutcome::Cancelled;
    }
    why = WriteFileAtomically(path, WorkspaceText(*paths, FolderOf(path), *sheet));
    if (!why.empty()) {
        Tell("The workspace could not be saved\n" + path + "\n" + why);
        return WorkspaceOutcome::Failed;
    }
    Remember(path);
    return WorkspaceOutcome::Saved;
}

std::optional<int> OpenWorkspace(const std::string& path) {
    const Result<std::string> text = ReadTextBytes(path);
    if (!text) {
        Tell("The indicated file cannot be opened\n" + path + "\n" + text.Error());
        return std::nullopt;
    }
    Remember(path);
    OpenedWorkspace workspace;
    workspace.path = path;
    std::vector<std::string> files = PathsOfWorkspace(*text, FolderOf(path));
    // The sheet is last: its window is then above the plots.
    if (std::string sheet = SheetOfWorkspace(*text, FolderOf(path)); !sheet.empty()) {
        files.push_back(std::move(sheet));
    }
    for (const std::string& listed : files) {
        (OpensListed(listed) ? workspace.opened : workspace.missing).push_back(listed);
    }
    OpenedWorkspace::now = std::move(workspace);
    gPlatform.status->SetText(TextOfOpening(OpenedWorkspace::now));
    return static_cast<int>(OpenedWorkspace::now.opened.size());
}

const OpenedWorkspace& LastOpenedWorkspace() {
    return OpenedWorkspace::now;
}

std::string TextOfOpening(const OpenedWorkspace& workspace) {
    const std::size_t opened = workspace.opened.size();
    const std::size_t listed = opened + workspace.missing.size();
    return std::to_string(opened) + " of " + std::to_string(listed)
           + (listed == 1 ? " file opened" : " files opened");
}

} // namespace quandrel
