// SPDX-License-Identifier: MIT

#include "shell/files/frm_export_image.h"

#include "shell/controls/note_label.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr int kSmallestHeight = 100;
constexpr int kLargestHeight = 10000;
constexpr int kUsualHeight = 2000;

} // namespace

frmExportImage::frmExportImage(QWidget* parent)
    : QDialog(parent)
    , spnSize_(new QSpinBox) {
    setObjectName("frmExportImage");
    setWindowTitle("Export Image");
    spnSize_->setObjectName("spnSize");
    spnSize_->setRange(kSmallestHeight, kLargestHeight);
    spnSize_->setSingleStep(100);
    spnSize_->setValue(kUsualHeight);
    spnSize_->setSuffix(" pixels");
    spnSize_->setToolTip("2000 pixels print 17 cm high at 300 dots per inch");
    auto* form = new QFormLayout;
    form->addRow("&Height of a PNG", spnSize_);
    auto* note = new NoteLabel("SVG and PDF are drawings without pixels, good at any size.");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText("Save &as...");
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(note);
    layout->addSpacing(6);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

int frmExportImage::Height() const {
    return spnSize_->value();
}

} // namespace quandrel
