// SPDX-License-Identifier: MIT
//
// The command line of quandrel-batch: what it may say, and what is done then.

#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace quandrel {

/// Exit codes of the program.
enum BatchExit : int { kBatchDone = 0, kBatchFailed = 1, kBatchBadUsage = 2 };

/// What the command line asks for: a data file with what becomes of it, or a script, or commands.
struct BatchOptions {
    std::string data;
    std::string picture;
    int size = 0; ///< of the picture in pixels, 0 for the usual one
    std::string save;
    std::string json;
    std::string format; ///< words as behind the command `format`
    bool stats = false;
    bool allowOutside = false; ///< data files may name files outside their folder
    std::string script;        ///< path of a script, or "-"
    std::string commands;
};

/// Reads the command line.
///
/// @param[out] options  filled when nothing is returned
/// @return the exit code, when the program is done with it: help was asked for, or it is wrong
[[nodiscard]] std::optional<int> ReadCommandLine(int argc, const char* const* argv,
                                                 BatchOptions& options);

/// Does what the options ask for. A Qt application object must be there, for fonts.
///
/// @param out  what commands print
/// @param log  boxes with their answers, and what failed
/// @return a BatchExit
[[nodiscard]] int RunBatch(const BatchOptions& options, std::ostream& out, std::ostream& log);

} // namespace quandrel
