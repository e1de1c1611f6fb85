// SPDX-License-Identifier: MIT
//
// The question about one of several plots with unsaved data, when the program is left.
//
// This is the chief header of the room: the small dialogs about files and folders. Deciding what is
// asked is the engine's, as it is to write, to read and to remember.
// Enters: the name of a plot, a folder, the kind of a picture.
// Leaves: the user's answer, or nothing on Cancel. No file is touched here.

#pragma once

#include "platform/prompts.h"

#include <QDialog>

namespace quandrel {

class frmSavePlotsDialog : public QDialog {
public:
    frmSavePlotsDialog(const QString& title, const QString& text, QWidget* parent);

    /// What was pressed; closing the window is Cancel.
    [[nodiscard]] SaveAnswer Answer() const { return answer_; }

private:
    SaveAnswer answer_ = SaveAnswer::Cancel;
};

} // namespace quandrel
