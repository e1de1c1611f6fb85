// SPDX-License-Identifier: MIT
//
// Doubts about a data format, put into words for the user, who decides. No setting is ever changed.

#pragma once

#include "core/plot_record.h"
#include "input/format_choice.h"
#include "input/format_preview.h"

#include <string>
#include <vector>

namespace quandrel {

/// How much to check.
enum class Doubt {
    Misfits, ///< only what cannot work: lines too short for the columns, no line that can be read
    All,     ///< also what can be read but looks wrong: for files new to the program
};

/// Reasons to check the format, one sentence each, the most serious first; empty when there are
/// none. O(lines of the preview).
///
/// All: dips above 90 and azimuths above 360, columns of the wrong kind, azimuths in the other
/// notation, senses of dip that contradict a strike by the right-hand rule, a heading that is data.
[[nodiscard]] std::vector<std::string> FormatMisfits(const FormatChoice& choice,
                                                     const FormatPreview& preview, Doubt doubt);

/// Reasons why rows in this format do not match the rows that a plot has.
[[nodiscard]] std::vector<std::string> PlotMisfits(const FormatChoice& choice,
                                                   const PlotRecord& record);

/// True for a file that gets all checks: neither a recent file nor one with parameter lines.
[[nodiscard]] bool IsUnknownFile(const std::string& path, const std::vector<std::string>& lines);

} // namespace quandrel
