// SPDX-License-Identifier: MIT
//
// The program without a screen: the engine behind commands in the words of the menus.
//
// Inside the folder: the command line, scripts, one file for a group of commands, the dumps.
// Enters: the lines of a script or the options of a command line.
// Leaves: files, pictures and JSON, an answer to each line, an exit code. Questions are answered by
// rule; whatever would lose work is refused.

#pragma once

#include "batch/format_command.h"
#include "batch/script.h"
#include "batch/standard_streams.h"
#include "input/further_files.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/scripted_prompts.h"

#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace quandrel {

/// What standard input is used for.
enum class InputUse {
    Free,   ///< data may be read from it
    Script, ///< the commands come from it
    Read,   ///< it has been read to its end
};

/// One run. There is one at a time, for the engine's tables are one: it sets gPlatform and starts
/// the engine with the settings of a first run, so that a script means the same everywhere.
class BatchSession {
public:
    /// @param out  what commands print
    /// @param log  the boxes that the program showed, with their answers
    /// @param outside  what becomes of files that data files name outside their folder
    BatchSession(std::ostream& out, std::ostream& log, OutsideFiles outside = OutsideFiles::Refuse,
                 InputUse input = InputUse::Free);
    ~BatchSession();
    BatchSession(const BatchSession&) = delete;
    BatchSession& operator=(const BatchSession&) = delete;

    /// What commands print goes there from now on; a dump to standard output stays on `out`.
    void AnswerOn(std::ostream& answers) { answers_ = &answers; }

    /// Runs commands in order, up to the first that fails.
    /// @return empty, or what failed, with its line where it has one
    [[nodiscard]] std::string Run(const std::vector<Command>& commands);

    /// Runs one command; what it prints is put out before this returns.
    [[nodiscard]] std::string Run(const Command& command);

private:
    struct Handler {
        std::string (BatchSession::*act)(const Command&);
        CommandShape shape;
    };

    static const std::map<std::string, Handler>& Handlers();

    [[nodiscard]] std::string RunCommand(const Command& command);
    [[nodiscard]] std::string OpenFile(const char* engineCommand, const Command& command);
    [[nodiscard]] std::string OpenStandardInput(const char* engineCommand);
    [[nodiscard]] std::string NeedPlot() const;

    /// Names the files of a workspace that did not open, if the file was one.
    void LogMissingFiles(const std::string& path) const;

    /// NeedPlot for commands that show results: a plot with fields set since it was drawn is drawn
    /// anew, so that nothing older than its fields is shown.
    [[nodiscard]] std::string NeedPlotAsSet();

    std::string Activate(const Command& command);
    std::string Answer(const Command& command);
    std::string Blank(const Command& command);
    std::string Close(const Command& command);
    std::string Cone(const Command& command);
    std::string Dump(const Command& command);
    std::string Export(const Command& command);
    std::string Format(const Command& command);
    std::string ChooseFormulas(const Command& command);
    std::string Get(const Command& command);
    std::string MergeFile(const Command& command);
    std::string Open(const Command& command);
    std::string Overlay(const Command& command);
    std::string Save(const Command& command);
    std::string Set(const Command& command);
    std::string Stats(const Command& command);
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
    Platform formerPlatform_;
    FormatSettings firstFormat_; ///< that of a first run, from which each `format` starts
    StatedFormat stated_;
    std::set<int> setPlots_;  ///< slots of plots with fields set since results were last shown
    std::string formatPath_;  ///< the file that was last asked about
    int formatQuestions_ = 0; ///< times that the load in work has asked for the format
};

} // namespace quandrel
