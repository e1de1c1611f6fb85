// SPDX-License-Identifier: MIT
//
// The question about one of several plots with unsaved data when the program closes.
//
// This is the chief header of the room: the small dialogs about files and folders. The engine
// decides what to ask; it also writes, reads and stores. No file is accessed here.
// Input: the name of a plot, a folder, the kind of a picture.
// Output: the user's answer, or nothing on Cancel.

#pragma once

#include "platform/prompts.h"

#include <QDialog>

namespace quandrel {

class frmSavePlotsDialog : public QDialog {
public:
    frmSavePlotsDialog(const QString& title, const QString& text, QWidget* parent);

    /// The pressed button; closing the window counts as Cancel.
    [[nodiscard]] SaveAnswer Answer() const { return answer_; }

private:
    SaveAnswer answer_ = SaveAnswer::Cancel;
};

} // namespace quandrel
