// SPDX-License-Identifier: MIT
//
// Session commands that open files.

#include "batch/batch_session.h"
#include "batch/standard_streams.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "input/file_loading.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "sheet/sheet_text.h"

#include <unistd.h>

#include <optional>
#include <ostream>

namespace quandrel {

std::string BatchSession::OpenFile(const char* engineCommand, const Command& command) {
    const std::optional<std::string> path = command.Bare(0);
    if (!path) {
        return "a path is missing";
    }
    formatQuestions_ = 0;
    if (*path == kStandardStream) {
        return OpenStandardInput(engineCommand);
    }
    if (OpenPlotFile(engineCommand, *path) == kLoadError) {
        return "'" + *path + "' was not loaded";
    }
    LogMissingFiles(*path);
    return {};
}

std::string BatchSession::OpenStandardInput(const char* engineCommand) {
    if (input_ == InputUse::Script) {
        return "the script comes from standard input, so data cannot";
    }
    if (input_ == InputUse::Read) {
        return "standard input has already been read";
    }
    input_ = InputUse::Read;
    Result<std::unique_ptr<InputCopy>> copy = InputCopy::Make(STDIN_FILENO);
    if (!copy) {
        return copy.Error();
    }
    inputCopy_ = std::move(*copy);
    const bool isLoaded = OpenPlotFile(engineCommand, inputCopy_->Path()) != kLoadError;
    if (isLoaded) {
        inputCopy_->NameIn(ActiveRecord());
    }
    inputCopy_.reset();
    return isLoaded ? "" : std::string(kStandardInputName) + " was not loaded";
}

/// As `figure open`.
bool BatchSession::OpenSheet(const std::string& path) {
    Result<FigureSheet> read = ReadSheetFile(path);
    if (!read) {
        Tell("The indicated file cannot be opened\n" + path + "\n" + read.Error());
        return false;
    }
    sheet_ = std::move(*read);
    sheetFile_ = {NormalPath(path), sheet_};
    return true;
}

bool BatchSession::OpenSheetOfPicture(const std::string& path, const std::string& text) {
    Result<FigureSheet> read = SheetOfPicture(text);
    if (!read) {
        Tell("The indicated file cannot be opened\n" + path + "\n" + read.Error());
        return false;
    }
    sheet_ = std::move(*read);
    sheetFile_ = {};
    return true;
}

/// A sheet that was changed since, or has no file, is left out.
std::optional<std::string> BatchSession::SavedSheet() {
    const bool isSaved = !sheetFile_.path.empty() && sheetFile_.saved == sheet_;
    if (!isSaved && sheet_ != FigureSheet()) {
        log_ << "The figure is not saved, and is left out of the workspace\n";
    }
    return isSaved ? sheetFile_.path : std::string();
}

std::string BatchSession::MergeFile(const Command& command) {
    const std::string error = NeedPlot();
    return error.empty() ? OpenFile(kMergeCommand, command) : error;
}

std::string BatchSession::Open(const Command& command) {
    return OpenFile(kNewCommand, command);
}

std::string BatchSession::Overlay(const Command& command) {
    const std::string error = NeedPlot();
    return error.empty() ? OpenFile(kOverlayCommand, command) : error;
}

std::string BatchSession::Workspace(const Command& command) {
    const std::string what = command.Bare(0).value_or("");
    const std::optional<std::string> path = command.Bare(1);
    if ((what != "open" && what != "save") || !path) {
        return "'" + command.Words() + "' is not one of open PATH, save PATH";
    }
    if (what == "save") {
        std::string reason;
        return SaveWorkspaceAs(*path, PlotsSavedAsText::List, &reason) == WorkspaceOutcome::Saved
                   ? std::string()
                   : "'" + *path + "' was not saved: " + reason;
    }
    formatQuestions_ = 0;
    if (OpenPlotFile(kNewCommand, *path) == kLoadError) {
        return "'" + *path + "' opened no plot";
    }
    LogMissingFiles(*path);
    return {};
}

void BatchSession::LogMissingFiles(const std::string& path) const {
    const OpenedWorkspace& workspace = LastOpenedWorkspace();
    if (workspace.path != NormalPath(path) || workspace.missing.empty()) {
        return;
    }
    log_ << path << ": " << TextOfOpening(workspace) << '\n';
    for (const std::string& missing : workspace.missing) {
        log_ << "not opened: " << missing << '\n';
    }
}

} // namespace quandrel
