// SPDX-License-Identifier: MIT
//
// The command of figure sheets.
//
//     figure new width=174mm columns=3 gap=4 letters=(a) legend=below style=Journal
//     figure add plot title="Bedding"         the active plot; also rose, fabric, statistics
//     figure add bedding.qpx columns=2        the plot of a file; also "add fabric bedding.qpx"
//     figure add text text="No data"
//     figure page columns=2                   changes what `new` sets
//     figure change 2 title="Joints"; figure move 2 1; figure remove 3
//     figure caption "{panels}"               sets the template, and prints the caption
//     figure save fig1.qsheet; figure open fig1.qsheet
//     figure export fig1.pdf dpi=600 background=transparent

#pragma once

#include "batch/script.h"
#include "core/result.h"
#include "sheet/figure_sheet.h"

#include <string>

namespace quandrel {

/// The file of a sheet.
struct SheetFile {
    std::string path;  ///< absolute; empty for none
    FigureSheet saved; ///< as the file has it
};

/// Whether a command needs the active plot.
[[nodiscard]] bool AddsActivePlot(const Command& command);

/// Carries out a command on a sheet.
///
/// @return what is to be printed, which may be empty; a failure leaves the sheet as it was
[[nodiscard]] Result<std::string> ApplySheetCommand(const Command& command, FigureSheet& sheet);

} // namespace quandrel
