// SPDX-License-Identifier: MIT
//
// Rows from a text on the clipboard onto a plot: what kind the text holds against what the plot
// holds, and where its rows go.

#pragma once

#include "core/data_format.h"
#include "core/plot_record.h"
#include "edit/clipboard_text.h"
#include "input/data_rows.h"
#include "input/format_model.h"
#include "input/load_report.h"
#include "input/parameter_line.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quandrel {

/// What a text says of its rows, once a format is given to it.
struct PastedFormat {
    FormatSettings settings;
    std::int16_t dataKind = kPlanes; ///< DataKindCode of what the text shows
    bool showsSecondary = false;     ///< that is its secondary set
    bool namesSet = false;           ///< the text tells primary from secondary data
    bool isOwn = false;              ///< the program's own text, or the companion's
};

/// The format of a text with its parameter lines on top of a format.
[[nodiscard]] PastedFormat FormatOfPastedText(const FormatSettings& settings,
                                              const ParameterItems& items, bool isOwn);

/// True when the text tells the format of its rows itself.
[[nodiscard]] bool TellsItsFormat(const ParameterItems& items);

/// The question before rows of one kind go into a plot of another; nothing when the plot is empty
/// or of the same kind.
[[nodiscard]] std::optional<std::string> QuestionBeforePaste(const PlotRecord& record,
                                                             const PastedFormat& format);

/// True when the rows go over the main rows, into an overlay made by hand: the plot has overlays,
/// or shows secondary data that the text lacks.
[[nodiscard]] bool GoesIntoOverlay(const PlotRecord& record, const PastedFormat& format);

/// How the rows of a text are read and stored in a plot. Columns that the plot lacks are dropped,
/// those that the text lacks are missing values. Between planes and lines a row keeps its place on
/// the net.
///
/// @param overlay  the overlay that takes them, or 0
[[nodiscard]] RowTarget TargetOfPaste(const PlotRecord& record, const PastedFormat& format,
                                      int overlay);

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
