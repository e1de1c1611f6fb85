// SPDX-License-Identifier: MIT
//
// The program without a screen: runs the engine by commands named like the menus.
//
// This folder holds the command line, scripts, one file per group of commands, and the dumps.
// Input: the lines of a script or the options of a command line.
// Output: files, pictures and JSON, an answer to each line, an exit code.
// Questions are answered by fixed rules; anything that would lose work is refused.

#pragma once

#include "batch/format_command.h"
#include "batch/script.h"
#include "batch/sheet_command.h"
#include "batch/standard_streams.h"
#include "input/further_files.h"
#include "persistence/open_plot.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/no_printers.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/scripted_prompts.h"
#include "sheet/figure_sheet.h"

#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quandrel {

/// The use of standard input.
enum class InputUse {
    Free,   ///< free for data
    Script, ///< contains the commands
    Read,   ///< read to its end
};

/// One run. Only one can exist at a time, because the engine's tables are global. It sets gPlatform
/// and starts the engine with the settings of a first run, so that a script gives the same results
/// everywhere.
class BatchSession : private SheetHolder {
public:
    /// @param out  receives the output of commands
    /// @param log  receives the message boxes and their answers
    /// @param outside  the rule for files that data files name outside their folder
    BatchSession(std::ostream& out, std::ostream& log, OutsideFiles outside = OutsideFiles::Refuse,
                 InputUse input = InputUse::Free);
    ~BatchSession() override;
    BatchSession(const BatchSession&) = delete;
    BatchSession& operator=(const BatchSession&) = delete;

    /// Redirects the output of commands; a dump to standard output still goes to `out`.
    void AnswerOn(std::ostream& answers) { answers_ = &answers; }

    /// Runs commands in order, up to the first that fails.
    /// @return empty, or an error message, with the line number if there is one
    [[nodiscard]] std::string Run(const std::vector<Command>& commands);

    /// Runs one command. Its output is flushed before this function returns.
    [[nodiscard]] std::string Run(const Command& command);

private:
    struct Handler {
        std::string (BatchSession::*act)(const Command&);
        CommandShape shape;
    };

    static const std::map<std::string, Handler>& Handlers();

    [[nodiscard]] bool OpenSheet(const std::string& path) override;
    [[nodiscard]] bool OpenSheetOfPicture(const std::string& path,
                                          const std::string& text) override;
    [[nodiscard]] std::optional<std::string> SavedSheet() override;
    [[nodiscard]] std::string RunCommand(const Command& command);
    [[nodiscard]] std::string OpenFile(const char* engineCommand, const Command& command);
    [[nodiscard]] std::string OpenStandardInput(const char* engineCommand);
    [[nodiscard]] std::string NeedPlot() const;

    /// Reports the files of a workspace that did not open, if the file was a workspace.
    void LogMissingFiles(const std::string& path) const;

    /// NeedPlot for commands that show results: redraws a plot whose fields were set after it was
    /// last drawn, so that the results match its fields.
    [[nodiscard]] std::string NeedPlotAsSet();

    std::string Activate(const Command& command);
    std::string Answer(const Command& command);
    std::string Blank(const Command& command);
    std::string Close(const Command& command);
    std::string Cone(const Command& command);
    std::string Dump(const Command& command);
    std::string Export(const Command& command);
    std::string Fabric(const Command& command);
    std::string Figure(const Command& command);
    std::string Format(const Command& command);
    std::string ChooseFormulas(const Command& command);
    std::string Get(const Command& command);
    std::string MergeFile(const Command& command);
    std::string Open(const Command& command);
    std::string Overlay(const Command& command);
    std::string Region(const Command& command);
    std::string Save(const Command& command);
    std::string Set(const Command& command);
    std::string Maxima(const Command& command);
    std::string Stats(const Command& command);
    std::string Suggest(const Command& command);
    std::string Tests(const Command& command);
    std::string Workspace(const Command& command);

    std::ostream& out_;
    std::ostream& log_;
    std::ostream* answers_ = &out_;
    InputUse input_;
    std::unique_ptr<InputCopy> inputCopy_; ///< while data are read from standard input
    MemorySettingsStore settings_;
    MemoryClipboard clipboard_;
    QuietStatusLine status_;
    ScriptedPrompts prompts_;
    NoPrinters printers_;
    Platform formerPlatform_;
    FormatSettings firstFormat_; ///< of a first run; each `format` starts from it
    StatedFormat stated_;
    FigureSheet sheet_;      ///< of `figure`
    SheetFile sheetFile_;    ///< of `sheet_`
    std::set<int> setPlots_; ///< slots of plots with fields set since results were last shown
    std::string formatPath_; ///< the file of the last format question
    int formatQuestions_ =
        0; ///< the number of times that the current load has asked for the format
};

} // namespace quandrel
