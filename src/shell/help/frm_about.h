// SPDX-License-Identifier: MIT
//
// The About box of the program.

#pragma once

#include <QDialog>

namespace quandrel {

class frmAbout : public QDialog {
public:
    explicit frmAbout(QWidget* parent);
};

} // namespace quandrel
