// SPDX-License-Identifier: MIT
//
// The format of a text of rows on the clipboard: its kind compared with the plot's, and where its
// rows go. Without side effects.

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

/// What a text says about its rows, given a format.
struct PastedFormat {
    FormatSettings settings;
    std::int16_t dataKind = kPlanes; ///< DataKindCode of the set that the text shows
    bool showsSecondary = false;     ///< that set is its secondary one
    bool namesSet = false;           ///< the text states which data are primary and secondary
    bool isOwn = false;              ///< written by the program or its companion
};

/// A format changed by the parameter lines of a text.
[[nodiscard]] PastedFormat FormatOfPastedText(const FormatSettings& settings,
                                              const ParameterItems& items, bool isOwn);

/// True when the text states the format of its rows.
[[nodiscard]] bool TellsItsFormat(const ParameterItems& items);

/// The question before rows of one kind are added to a plot of another; nothing when the plot is
/// empty or of the same kind.
[[nodiscard]] std::optional<std::string> QuestionBeforePaste(const PlotRecord& record,
                                                             const PastedFormat& format);

/// True when the rows go into an overlay made by hand, over the main rows: the plot has overlays,
/// or shows secondary data that the text lacks.
[[nodiscard]] bool GoesIntoOverlay(const PlotRecord& record, const PastedFormat& format);

/// How the rows of a text are read and stored in a plot. Columns that the plot lacks are dropped,
/// those that the text lacks are missing values. A row converted between plane and line keeps its
/// position on the net.
///
/// @param overlay  the overlay that takes them, or 0
[[nodiscard]] RowTarget TargetOfPaste(const PlotRecord& record, const PastedFormat& format,
                                      int overlay);

} // namespace quandrel
