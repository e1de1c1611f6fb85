// SPDX-License-Identifier: MIT
//
// The question about one of several plots with unsaved data, when the program is left.

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
