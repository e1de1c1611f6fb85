// SPDX-License-Identifier: MIT
//
// Pasting rows from a text on the clipboard into a plot, in the format that is found for it
// (pasted_format.h).

#pragma once

#include "core/format_settings.h"
#include "input/load_report.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quandrel {

/// The result of a paste.
struct PasteReport {
    std::int32_t pasted = 0;
    std::int32_t refused = 0;   ///< lines that should be rows but are not
    bool headingIsData = false; ///< the line left out as headings can be read as a row
    bool aborted = false;       ///< the user ended it
    bool outOfMemory = false;
    LoadCounters upward; ///< plain lines with a negative plunge in foreign text
};

/// The format that was last accepted for foreign text.
struct AcceptedPasteFormat {
    std::optional<FormatSettings> settings; ///< nothing: the next text asks for it
    bool showsSecondary = false;

    static AcceptedPasteFormat now;
};

/// Sentences on the lines that are missing in the plot, and on plain ones with a negative plunge;
/// empty when there are none.
[[nodiscard]] std::string NoteOnPaste(const PasteReport& report);

/// Pastes the text of the clipboard into gActivePlot: rows, or, after a question, annotations onto
/// their layer. A text that does not state its format is read in that of the data format dialog,
/// which is asked for once (ForgetPasteFormat). Whether its first row is a heading is decided for
/// each text; the heading box of the dialog applies to one text. An empty plot takes the formats of
/// the text. Reports lines that are refused, and decimal delimiters other than the region's. Does
/// nothing while a long loop runs, or with an empty clipboard.
void PasteData();

/// The same with a text from elsewhere.
///
/// @return false when no row was pasted
bool PasteText(const std::string& text);

/// Makes the next foreign text ask for its format in the data format dialog again.
void ForgetPasteFormat();

} // namespace quandrel
