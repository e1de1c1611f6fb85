// SPDX-License-Identifier: MIT
//
// The loop over the lines of a load.

#pragma once

#include "input/data_rows.h"
#include "input/format_model.h"
#include "input/load_report.h"
#include "platform/prompts.h"

#include <string>
#include <string_view>

namespace quandrel {

/// One pass over the lines of a file.
struct LinePass {
    /// The first line that is not a comment, a parameter line or blank is a heading.
    bool skipHeading = false;
    bool reportBadLines = true; ///< ask about the first bad line
    LineFormat format;
    RowTarget target;
};

/// How a pass ended.
enum class PassEnd { Done, Left, Retry };

/// Appends all lines of a text as rows to the active plot: valid ones as data, all others as error
/// rows. The progress bar shows the position; a cancelled load keeps the rows read so far.
///
/// @param[out] counters  counted from 0
/// @param[out] heading   the heading line, if one was skipped
[[nodiscard]] PassEnd LoadDataLines(std::string_view text, const LinePass& pass,
                                    LoadCounters& counters, std::string& heading);

} // namespace quandrel
