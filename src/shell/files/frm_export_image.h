// SPDX-License-Identifier: MIT
//
// The size of a picture without parts, such as a fabric plot. This dialog comes before the one for
// the path. For plots see frm_export_figure.h.

#pragma once

#include <QDialog>

class QSpinBox;

namespace quandrel {

class frmExportImage : public QDialog {
public:
    explicit frmExportImage(QWidget* parent);

    /// Of a PNG, pixels.
    [[nodiscard]] int Height() const;

private:
    QSpinBox* spnSize_;
};

} // namespace quandrel
