// SPDX-License-Identifier: MIT
//
// The subcommands of quandrel-batch that need no plot: summaries of texts of any length.

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quandrel {

/// What a subcommand is given.
struct SummaryOptions {
    std::vector<std::string> files;
    std::string output;
    std::string format; ///< the words that follow the command `format`; empty: `auto`
};

/// quandrel-batch summarise FILES... -o OUTPUT: the summary of the rows of all files.
///
/// @param log  receives errors
/// @return a BatchExit
[[nodiscard]] int SummariseFiles(const SummaryOptions& options, std::ostream& out,
                                 std::ostream& log);

/// quandrel-batch merge FILES... -o OUTPUT: the summary of what several summaries are of.
[[nodiscard]] int MergeSummaries(const SummaryOptions& options, std::ostream& log);

/// quandrel-batch summary FILE: the results of its sums as JSON.
[[nodiscard]] int PrintSummary(const SummaryOptions& options, std::ostream& out, std::ostream& log);

} // namespace quandrel
