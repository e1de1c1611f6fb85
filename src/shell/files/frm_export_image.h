// SPDX-License-Identifier: MIT
//
// The contents of a picture file. This dialog comes before the one for the path.

#pragma once

#include "qt/plot_picture.h"

#include <QDialog>

class QRadioButton;
class QSpinBox;

namespace quandrel {

/// What the user can choose.
enum class ExportChoice {
    PartAndSize, ///< of a plot
    SizeAlone,   ///< of a picture without parts
};

class frmExportImage : public QDialog {
public:
    explicit frmExportImage(QWidget* parent, ExportChoice choice = ExportChoice::PartAndSize);

    [[nodiscard]] PictureOptions Options() const;

private:
    QRadioButton* optWhole_;
    QRadioButton* optNet_;
    QSpinBox* spnSize_;
};

} // namespace quandrel
