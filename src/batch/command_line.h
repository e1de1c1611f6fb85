// SPDX-License-Identifier: MIT
//
// The command line of quandrel-batch: its options and what they do.

#pragma once

#include "batch/summary_command.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace quandrel {

enum BatchExit : int { kBatchDone = 0, kBatchFailed = 1, kBatchBadUsage = 2 };

/// What is done with summaries, without a plot.
enum class SummaryTask { None, Summarise, Merge, Print };

/// The options of the command line: a data file and its outputs, or a script, or commands, or a
/// task with summaries.
struct BatchOptions {
    SummaryTask task = SummaryTask::None;
    SummaryOptions summary; ///< of the task
    std::string data;
    std::string picture;
    int size = 0; ///< of the picture in pixels, 0 for the default
    std::string save;
    std::string json;
    std::string format; ///< the words that follow the command `format`
    bool stats = false;
    bool allowOutside = false; ///< data files may name files outside their folder
    std::string script;        ///< path of a script, or "-"
    std::string commands;
};

/// Reads the command line.
///
/// @param[out] options  filled when nothing is returned
/// @return the exit code if the program ends here: after help, or if the command line is invalid
[[nodiscard]] std::optional<int> ReadCommandLine(int argc, const char* const* argv,
                                                 BatchOptions& options);

/// Executes the options. Requires a Qt application object, for fonts.
///
/// @param out  receives the output of commands
/// @param log  receives message boxes with their answers, and errors
/// @return a BatchExit
[[nodiscard]] int RunBatch(const BatchOptions& options, std::ostream& out, std::ostream& log);

} // namespace quandrel
