// SPDX-License-Identifier: MIT
//
// The format of a text of rows on the clipboard: what kind the text holds against what the plot
// holds, and where its rows go. Without side effects.

#pragma once

#include "core/data_format.h"
#include "core/plot_record.h"
#include "input/data_rows.h"
#include "input/format_model.h"
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

} // namespace quandrel
