// SPDX-License-Identifier: MIT
//
// The open commands, from the user's choice to a plot on the screen.

#pragma once

#include "input/file_loading.h"
#include "persistence/picture_data.h"

#include <string>

namespace quandrel {

/// The state of the open commands.
struct OpenState {
    int filterIndex = 1;                ///< of the filter that is offered next, from 1
    bool hasOpened = false;             ///< a file was opened in this session
    bool isOpeningWorkspace = false;    ///< the files of a workspace are being opened
    AttachmentReader readPdf = nullptr; ///< for pictures that are PDF files, set by the program

    static OpenState now;
};

/// Opens a file, or an empty plot. A picture that was exported with its data opens as its plot.
///
/// @param command  "New", "Merge" and "Overlay" ask for the path; "Blank" needs none; "File"
///                 followed by a path opens that path as a new plot
/// @return the command, kBinaryCommand for a binary plot file, or kLoadError when nothing was
///         opened or added
std::string OpenPlotFile(const std::string& command);

/// As OpenPlotFile with "New", "Merge" or "Overlay", with a known path.
std::string OpenPlotFile(const std::string& command, const std::string& path,
                         FormatDialog dialog = FormatDialog::Always);

} // namespace quandrel
