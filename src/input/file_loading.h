// SPDX-License-Identifier: MIT
//
// From the path of a text file to the rows of the active plot.
//
// Inside the folder: the format of data, its dialog's rules and doubts, the decoding of bytes,
// lines, tokens and parameter lines. Enters: bytes of a file or of the clipboard, and the format in
// force.
// Leaves: rows in the store with the lines that are no data, and the report of the load. A load
// that comes to nothing changes nothing.

#pragma once

#include "input/load_report.h"

#include <string>

namespace quandrel {

/// What a load reports when it came to nothing; on success it reports its command.
inline constexpr const char* kLoadError = "Error";

/// The commands that load files.
inline constexpr const char* kNewCommand = "New";
inline constexpr const char* kBlankCommand = "Blank";
inline constexpr const char* kMergeCommand = "Merge";
inline constexpr const char* kOverlayCommand = "Overlay";
inline constexpr const char* kBinaryCommand = "Binary"; ///< what opening a binary plot file reports

/// Loads a text file into gActivePlot: parameter lines, data format dialog, rows, summary. The
/// format globals change as the file and the user say; on failure they are put back.
///
/// @param command  "New", "Merge" or "Overlay"
/// @return the command, or kLoadError
[[nodiscard]] std::string ReadTextFile(const std::string& command, const std::string& path);

/// While one lives, text files that the program wrote are loaded without the data format dialog:
/// their parameter line says all of it.
class OwnFilesWithoutDialog {
public:
    OwnFilesWithoutDialog();
    ~OwnFilesWithoutDialog();
    OwnFilesWithoutDialog(const OwnFilesWithoutDialog&) = delete;
    OwnFilesWithoutDialog& operator=(const OwnFilesWithoutDialog&) = delete;
};

/// Copies the format globals into the record of gActivePlot.
void SetPlotFormatFromGlobals();

} // namespace quandrel
