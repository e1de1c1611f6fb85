// SPDX-License-Identifier: MIT
//
// The files of the window of figures: the sheet, its pictures, and pictures that hold sheets.

#include "core/messages.h"
#include "core/recent_files.h"
#include "core/settings.h"
#include "core/settings_value.h"
#include "platform/platform.h"
#include "qt/sheet_picture.h"
#include "sheet/sheet_text.h"
#include "shell/files/frm_figure_sheet.h"
#include "shell/files/path_questions.h"

#include <QCheckBox>
#include <QSpinBox>

#include <optional>
#include <string>

namespace quandrel {

namespace {

constexpr const char* kSheetFilter = "Figures (*.qsheet)|*.qsheet|All files (*.*)|*.*";

} // namespace

bool frmFigureSheet::Save() {
    const std::string name = path_.empty() ? std::string("figure") + kSheetEnding : path_;
    const std::optional<std::string> path = AskPathToSave({"Save Figure", name, kSheetFilter});
    if (!path) {
        return false;
    }
    if (const std::string error = WriteSheetFile(*path, sheet_); !error.empty()) {
        Tell("The figure was not saved: " + error);
        return false;
    }
    path_ = *path;
    saved_ = sheet_;
    AddRecentFile(*path);
    gPlatform.status->SetText("The figure is " + *path);
    return true;
}

void frmFigureSheet::Export() {
    const std::optional<std::string> path = AskPathOfPicture("Export Figure", "figure.png");
    if (!path) {
        return;
    }
    SheetExport how;
    how.dotsPerInch = spnDots->value();
    how.hasData = chkData->isChecked();
    const std::string error = SaveSheetPicture(*path, sheet_, how);
    if (error.empty()) {
        gPlatform.status->SetText("The picture is " + *path);
    } else {
        Tell(error);
    }
}

void frmFigureSheet::AskAndOpen() {
    if (const auto path = AskPathToOpen({"Open Figure", {}, kSheetFilter}); path && Open(*path)) {
        AddRecentFile(*path);
    }
}

bool frmFigureSheet::Open(const std::string& path) {
    return Take(path, ReadSheetFile(path), path);
}

bool frmFigureSheet::OpenOfPicture(const std::string& path, const std::string& text) {
    return Take(path, SheetOfPicture(text), {});
}

/// Shows a sheet that was read from a path.
///
/// @param file  of the sheet; empty for none
bool frmFigureSheet::Take(const std::string& path, const Result<FigureSheet>& read,
                          const std::string& file) {
    if (!read) {
        Tell("The indicated file cannot be opened\n" + path + "\n" + read.Error());
        return false;
    }
    if (!MayLose()) {
        return false;
    }
    sheet_ = *read;
    saved_ = sheet_;
    path_ = file;
    BeginHistory();
    ShowSheet();
    return true;
}

/// Asks whether to save changes. False when the user cancels.
bool frmFigureSheet::MayLose() {
    return sheet_ == saved_ || OffersToSave();
}

bool frmFigureSheet::OffersToSave() {
    const Button answer =
        gPlatform.prompts->Ask({"Quandrel", "The figure has unsaved changes.\nSave it now?",
                                Icon::Question, Buttons::YesNoCancel});
    return answer == Button::No || (answer == Button::Yes && Save());
}

std::optional<std::string> frmFigureSheet::SavedFile() {
    // A sheet from a picture is unchanged, but has no file.
    const bool isInFile = sheet_ == saved_ && (!path_.empty() || sheet_.panels.empty());
    if (!isInFile && !OffersToSave()) {
        return std::nullopt;
    }
    return sheet_ == saved_ ? path_ : std::string();
}

} // namespace quandrel
