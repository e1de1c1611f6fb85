// SPDX-License-Identifier: MIT
//
// Rows from a text on the clipboard onto a plot, in the format that is found for it
// (pasted_format.h).

#pragma once

#include "input/load_report.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// What a paste did.
struct PasteReport {
    std::int32_t pasted = 0;
    std::int32_t refused = 0;   ///< lines that should be rows and are none
    bool headingIsData = false; ///< the line that was left out as headings reads as a row
    bool aborted = false;       ///< the user ended it
    bool outOfMemory = false;
    LoadCounters upward; ///< plain lines with a negative plunge in foreign text
};

/// Sentences on the lines that are missing in the plot, and on plain ones with a negative plunge;
/// empty without any.
[[nodiscard]] std::string NoteOnPaste(const PasteReport& report);

/// Pastes the text of the clipboard onto gActivePlot: rows as told above, annotations after a
/// question onto their layer. A text that does not tell its format is read in that of the data
/// format dialog, which is asked for once (ForgetPasteFormat); whether its first row is a heading
/// is found anew for each text, and the heading box of the dialog holds for one. An empty plot
/// takes the formats of the text. Tells of lines that are refused, and of decimal delimiters that
/// are not the region's. Does nothing while a long loop runs, or with an empty clipboard.
void PasteData();

/// From now on the next foreign text is read by the data format dialog again.
void ForgetPasteFormat();

} // namespace quandrel
