// SPDX-License-Identifier: MIT
//
// The open commands, from the user's choice to a plot on the screen.

#pragma once

#include "input/file_loading.h"
#include "persistence/picture_data.h"

#include <optional>
#include <string>

namespace quandrel {

inline constexpr const char* kSheetCommand = "Sheet"; ///< what opening a figure sheet reports

/// The figure sheet of the program, which this folder opens and lists without knowing what it is.
class SheetHolder {
public:
    SheetHolder() = default;
    virtual ~SheetHolder() = default;
    SheetHolder(const SheetHolder&) = delete;
    SheetHolder& operator=(const SheetHolder&) = delete;

    /// Opens the sheet of a file in place of the present one.
    ///
    /// @return false, with a message where there is a reason, when the present one stays
    [[nodiscard]] virtual bool OpenSheet(const std::string& path) = 0;

    /// The same of the sheet that a picture holds. It has no file of its own.
    ///
    /// @param path  of the picture
    [[nodiscard]] virtual bool OpenSheetOfPicture(const std::string& path,
                                                  const std::string& text) = 0;

    /// The file of the present sheet, for the list of a workspace. The user may be asked to save
    /// it first.
    ///
    /// @return empty without a sheet, and for one that is left out because it is not saved; nothing
    ///         when the user cancels, or a save fails
    [[nodiscard]] virtual std::optional<std::string> SavedSheet() = 0;
};

/// The state of the open commands.
struct OpenState {
    int filterIndex = 1;                ///< of the filter that is offered next, from 1
    bool hasOpened = false;             ///< a file was opened in this session
    bool isOpeningWorkspace = false;    ///< the files of a workspace are being opened
    AttachmentReader readPdf = nullptr; ///< for pictures that are PDF files, set by the program
    SheetHolder* sheets = nullptr;      ///< set by the program; not owned

    static OpenState now;
};

/// Opens a file, or an empty plot. A picture that was exported with its data opens as its plot, or
/// as its figure sheet; a figure sheet opens in the program's `sheets`.
///
/// @param command  "New", "Merge" and "Overlay" ask for the path; "Blank" needs none; "File"
///                 followed by a path opens that path as a new plot
/// @return the command, kBinaryCommand for a binary plot file, kSheetCommand when a figure sheet
///         and no plot was opened, or kLoadError when nothing was opened or added
std::string OpenPlotFile(const std::string& command);

/// As OpenPlotFile with "New", "Merge" or "Overlay", with a known path.
std::string OpenPlotFile(const std::string& command, const std::string& path,
                         FormatDialog dialog = FormatDialog::Always);

/// Whether an outcome of OpenPlotFile says that a plot was opened or added to.
[[nodiscard]] bool HasOpenedPlot(const std::string& outcome);

} // namespace quandrel
