// SPDX-License-Identifier: MIT
//
// Doubts about a data format, told in words to the user, who decides. No setting is ever changed.

#pragma once

#include "core/plot_record.h"
#include "input/format_choice.h"
#include "input/format_preview.h"

#include <string>
#include <vector>

namespace quandrel {

/// How much is doubted.
enum class Doubt {
    Misfits, ///< what cannot work: lines that do not reach the columns, no line that can be read
    All,     ///< and what is read but looks wrong: for files that the program does not know
};

/// Reasons to look at the format again, a sentence each, the worst first; empty when there are
/// none. O(lines of the preview).
///
/// All: dips above 90 and azimuths beyond 360, columns of the wrong kind, azimuths in the other
/// notation, senses of dip that contradict a strike by the right-hand rule, a heading that is data.
[[nodiscard]] std::vector<std::string> FormatMisfits(const FormatChoice& choice,
                                                     const FormatPreview& preview, Doubt doubt);

/// Reasons why rows in this format do not fit in with the rows that a plot has.
[[nodiscard]] std::vector<std::string> PlotMisfits(const FormatChoice& choice,
                                                   const PlotRecord& record);

/// True for a file that is doubted altogether: it is not among the recent files, and has no
/// parameter lines.
[[nodiscard]] bool IsUnknownFile(const std::string& path, const std::vector<std::string>& lines);

} // namespace quandrel
