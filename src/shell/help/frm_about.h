// SPDX-License-Identifier: MIT
//
// The box that says what the program is.

#pragma once

#include <QDialog>

namespace quandrel {

class frmAbout : public QDialog {
public:
    explicit frmAbout(QWidget* parent);
};

} // namespace quandrel
