// SPDX-License-Identifier: MIT
//
// The contents of a picture file of the plot. This dialog comes before the one for the path.

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
