// SPDX-License-Identifier: MIT
//
// What a picture file of the plot is to hold, before its path is asked for.

#pragma once

#include "qt/plot_picture.h"

#include <QDialog>

class QRadioButton;
class QSpinBox;

namespace quandrel {

class frmExportImage : public QDialog {
public:
    explicit frmExportImage(QWidget* parent);

    [[nodiscard]] PictureOptions Options() const;

private:
    QRadioButton* optWhole_;
    QRadioButton* optNet_;
    QSpinBox* spnSize_;
};

} // namespace quandrel
