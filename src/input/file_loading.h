// SPDX-License-Identifier: MIT
//
// From the path of a text file to the rows of the active plot.
//
// This folder holds the format of data, its dialog's rules and doubts, the decoding of bytes, and
// the parsing of lines, tokens and parameter lines.
// Input: the bytes of a file or of the clipboard, and the format in force.
// Output: rows in the store, including the lines without data, and the report of the load. A load
// that fails changes nothing.

#pragma once

#include "core/format_settings.h"
#include "core/plot.h"
#include "input/load_report.h"

#include <string>

namespace quandrel {

/// What a load that failed reports; otherwise it reports its command.
inline constexpr const char* kLoadError = "Error";

/// The commands that load files.
inline constexpr const char* kNewCommand = "New";
inline constexpr const char* kBlankCommand = "Blank";
inline constexpr const char* kMergeCommand = "Merge";
inline constexpr const char* kOverlayCommand = "Overlay";
inline constexpr const char* kBinaryCommand = "Binary"; ///< what opening a binary plot file reports

/// For which text files a load shows the data format dialog.
enum class FormatDialog {
    Always,
    ForeignFiles, ///< not for files that the program wrote: their parameter line states the format
};

/// Loads a text file into gActivePlot: parameter lines, data format dialog, rows, summary. The
/// format globals change as the file and the user say; on failure they are restored.
///
/// @param command  "New", "Merge" or "Overlay"
/// @return the command, or kLoadError
[[nodiscard]] std::string ReadTextFile(const std::string& command, const std::string& path,
                                       FormatDialog dialog = FormatDialog::Always);

/// Gives a plot the format of its first file: orientations, appended columns, kind of data. Its
/// rows are removed.
void SetPlotFormat(Plot& plot, const FormatSettings& format);

/// Copies the format globals into the record of gActivePlot.
void SetPlotFormatFromGlobals();

} // namespace quandrel
