// SPDX-License-Identifier: MIT

#include "batch/command_line.h"

#include "batch/batch_session.h"
#include "batch/script.h"
#include "batch/script_file.h"
#include "batch/standard_streams.h"
#include "core/plot_store.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <new>
#include <ostream>

namespace quandrel {

namespace {

constexpr const char* kProgram = "quandrel-batch: ";

using Commands = std::vector<Command>;

/// The commands of the short form. The words are not parsed, so that a path may contain any
/// character. The plot takes the name of the file that it is saved to, so saving follows the
/// picture.
Result<Commands> CommandsOfShortForm(const BatchOptions& options) {
    std::string format = "format " + options.format;
    std::replace(format.begin(), format.end(), '\n', ' ');
    Result<Commands> commands = ParseScript(format, CommandBreak::LineOnly);
    if (!commands) {
        return Failure{"--format: a quote is not closed"};
    }
    (*commands)[0].line = 0;
    if (options.format.empty()) {
        commands->clear();
    }
    const auto add = [&commands](const std::string& name, const std::string& path) {
        commands->push_back({0, name, {{{}, path}}});
    };
    add("open", options.data);
    if (!options.picture.empty()) {
        add("export", options.picture);
        if (options.size > 0) {
            commands->back().arguments.push_back({"size", std::to_string(options.size)});
        }
    }
    if (!options.json.empty()) {
        add("dump", options.json);
    }
    if (!options.save.empty()) {
        add("save", options.save);
    }
    if (options.stats) {
        commands->push_back({0, "stats", {}});
    }
    return commands;
}

OutsideFiles OutsideFilesOf(const BatchOptions& options) {
    return options.allowOutside ? OutsideFiles::Read : OutsideFiles::Refuse;
}

/// @param answers  receives the output of commands, except dumps
int RunCommands(const Result<Commands>& commands, OutsideFiles outside, std::ostream& out,
                std::ostream& log, std::ostream& answers) {
    if (!commands) {
        log << kProgram << commands.Error() << '\n';
        return kBatchFailed;
    }
    BatchSession session(out, log, outside);
    session.AnswerOn(answers);
    const std::string error = session.Run(*commands);
    if (!error.empty()) {
        log << kProgram << error << '\n';
        return kBatchFailed;
    }
    return kBatchDone;
}

/// Runs the complete commands. Returns nothing, or the exit code if one fails.
std::optional<int> RunWholeCommands(ScriptReader& reader, BatchSession& session,
                                    std::ostream& log) {
    for (;;) {
        const Result<std::optional<Command>> command = reader.Next();
        if (command && !command->has_value()) {
            return std::nullopt;
        }
        const std::string error = command ? session.Run(**command) : command.Error();
        if (!error.empty()) {
            log << kProgram << error << '\n';
            return kBatchFailed;
        }
    }
}

/// Runs each command as soon as its line is complete.
int RunScript(const std::string& path, OutsideFiles outside, std::ostream& out, std::ostream& log) {
    const auto unreadable = [&](const std::string& why) {
        log << kProgram << "the script '" << path << "' cannot be read: " << why << '\n';
        return kBatchBadUsage;
    };
    Result<ScriptSource> source = ScriptSource::Open(path);
    if (!source) {
        return unreadable(source.Error());
    }
    ScriptReader reader(CommandBreak::LineOnly);
    BatchSession session(out, log, outside,
                         path == kStandardStream ? InputUse::Script : InputUse::Free);
    for (bool hasEnded = false; !hasEnded;) {
        const Result<std::string> text = source->Read();
        if (!text) {
            return unreadable(text.Error());
        }
        hasEnded = text->empty();
        reader.Add(*text);
        if (hasEnded) {
            reader.End();
        }
        if (const std::optional<int> failed = RunWholeCommands(reader, session, log)) {
            return *failed;
        }
    }
    return kBatchDone;
}

int RunOneSource(const BatchOptions& options, std::ostream& out, std::ostream& log) {
    const int sources = (options.data.empty() ? 0 : 1) + (options.script.empty() ? 0 : 1)
                        + (options.commands.empty() ? 0 : 1);
    if (sources != 1) {
        log << kProgram << "one of DATA, --script and -c is required; see --help\n";
        return kBatchBadUsage;
    }
    if (!options.script.empty()) {
        return RunScript(options.script, OutsideFilesOf(options), out, log);
    }
    if (!options.commands.empty()) {
        return RunCommands(ParseScript(options.commands, CommandBreak::SemicolonToo),
                           OutsideFilesOf(options), out, log, out);
    }
    // JSON on standard output must be its only content.
    return RunCommands(CommandsOfShortForm(options), OutsideFilesOf(options), out, log,
                       options.json == kStandardStream ? log : out);
}

/// The exit code of a run with complete output, or of a run whose output was lost.
int ExitAfter(int exitCode, std::ostream& out, std::ostream& log) {
    if (out.flush()) {
        return exitCode;
    }
    log << kProgram << "standard output could not be written\n";
    return exitCode == kBatchDone ? kBatchFailed : exitCode;
}

/// Adds the subcommands of summaries.
void AddSummaryTasks(CLI::App& app, BatchOptions& options) {
    SummaryOptions& given = options.summary;
    const auto add = [&](const char* name, const char* about, SummaryTask task) {
        CLI::App* const one = app.add_subcommand(name, about);
        one->callback([&options, task] { options.task = task; });
        return one;
    };
    CLI::App* const summarise =
        add("summarise", "count and sum the rows of texts of any length, in little memory",
            SummaryTask::Summarise);
    summarise->add_option("FILES", given.files, "texts of rows")->required();
    summarise->add_option("-o,--output", given.output, "summary to write: .qsum")->required();
    summarise->add_option("--format", given.format,
                          "format of the texts, as for the command 'format'; else 'auto'");
    CLI::App* const merge = add("merge", "add up summaries of the same rows", SummaryTask::Merge);
    merge->add_option("FILES", given.files, "summaries")->required();
    merge->add_option("-o,--output", given.output, "summary to write: .qsum")->required();
    CLI::App* const print =
        add("summary", "print the results of the sums of a summary as JSON", SummaryTask::Print);
    print->add_option("FILE", given.files, "a summary")->required()->expected(1);
}

int RunSummaryTask(const BatchOptions& options, std::ostream& out, std::ostream& log) {
    switch (options.task) {
    case SummaryTask::Summarise:
        return SummariseFiles(options.summary, out, log);
    case SummaryTask::Merge:
        return MergeSummaries(options.summary, log);
    default:
        return PrintSummary(options.summary, out, log);
    }
}

} // namespace

std::optional<int> ReadCommandLine(int argc, const char* const* argv, BatchOptions& options) {
    CLI::App app{"Stereonets from orientation data, without a screen.", "quandrel-batch"};
    app.set_version_flag("--version", gCaption);
    CLI::Option* const data =
        app.add_option("DATA", options.data, "a data file to plot; - reads standard input");
    CLI::Option* const picture =
        app.add_option("-o,--output", options.picture, "picture to draw: .png, .svg, .pdf or .tif")
            ->needs(data);
    app.add_option("--size", options.size, "height of a PNG or TIFF in pixels")
        ->check(CLI::Range(50, 20000))
        ->needs(picture);
    app.add_option("--save", options.save,
                   "file to save the plot to: .qpx, .txt, .csv, .xlsx or .gpkg")
        ->needs(data);
    app.add_option("--json", options.json,
                   "file for all data and results of the plot; - writes standard output")
        ->needs(data);
    app.add_option("--format", options.format, "format of the data, as for the command 'format'")
        ->needs(data);
    app.add_flag("--stats", options.stats, "print the statistics")->needs(data);
    app.add_flag("--allow-outside", options.allowOutside,
                 "read files that data files name outside their folder, too");
    app.add_option("--script", options.script,
                   "file of commands, one per line; - reads standard input");
    app.add_option("-c", options.commands, "commands, separated by semicolons");
    AddSummaryTasks(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int exitCode = app.exit(error) == 0 ? kBatchDone : kBatchBadUsage;
        return exitCode == kBatchDone ? ExitAfter(exitCode, std::cout, std::cerr) : exitCode;
    }
    return std::nullopt;
}

int RunBatch(const BatchOptions& options, std::ostream& out, std::ostream& log) {
    try {
        const int exitCode = options.task == SummaryTask::None ? RunOneSource(options, out, log)
                                                               : RunSummaryTask(options, out, log);
        return ExitAfter(exitCode, out, log);
    } catch (const std::bad_alloc&) {
        log << kProgram << "there is not enough memory\n";
        return kBatchFailed;
    }
}

} // namespace quandrel
