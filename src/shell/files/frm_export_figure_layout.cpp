// SPDX-License-Identifier: MIT
//
// The controls of the export dialog.

#include "shell/controls/note_label.h"
#include "shell/files/frm_export_figure.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr double kLeastWidth = 20;
constexpr double kMostWidth = 1000;
constexpr int kPreviewSide = 320;
constexpr int kUsualHeight = 2000;

template <class Widget>
Widget* Named(Widget* widget, const char* name, const char* tip) {
    widget->setObjectName(name);
    widget->setToolTip(tip);
    return widget;
}

} // namespace

void frmExportFigure::MakeControls() {
    auto* fields = new QVBoxLayout;
    fields->addWidget(MakeKinds());
    fields->addWidget(MakeFigureBox());
    chkData = Named(new QCheckBox("&Embed the data"), "chkData",
                    "Puts the plot into an SVG, PDF or PNG. Opening the picture opens the plot");
    fields->addWidget(chkData);
    fields->addStretch(1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    cmdOK = buttons->button(QDialogButtonBox::Ok);
    cmdOK->setText("Save &as...");
    cmdOK->setObjectName("cmdOK");
    cmdCopy = Named(new QPushButton("&Copy"), "cmdCopy",
                    "Puts the figure on the clipboard, as a drawing and as an image");
    buttons->addButton(cmdCopy, QDialogButtonBox::ActionRole);
    connect(cmdCopy, &QPushButton::clicked, this, [this] { CopyPicture(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* sides = new QHBoxLayout;
    sides->addLayout(fields);
    sides->addWidget(MakePreview(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(sides, 1);
    layout->addWidget(buttons);
}

QGroupBox* frmExportFigure::MakeKinds() {
    auto* box = new QGroupBox("Picture");
    optFigure = Named(new QRadioButton("A &figure for print"), "optFigure",
                      "In millimetres, with a legend in the terms of the field");
    optPart[0] = Named(new QRadioButton("The &whole plot: net, legend and texts"), "optPart_0",
                       "As the window shows it");
    optPart[1] = Named(new QRadioButton("The &net alone"), "optPart_1", "As the window shows it");
    optFigure->setChecked(true);
    spnSize = Named(new QSpinBox, "spnSize", "2000 pixels print 17 cm high at 300 dots per inch");
    spnSize->setRange(100, 10000);
    spnSize->setSingleStep(100);
    spnSize->setValue(kUsualHeight);
    spnSize->setSuffix(" pixels");
    auto* layout = new QVBoxLayout(box);
    for (QRadioButton* kind : {optFigure, optPart[0], optPart[1]}) {
        layout->addWidget(kind);
        connect(kind, &QRadioButton::toggled, this, [this] {
            EnableFields();
            ShowSoon();
        });
    }
    auto* form = new QFormLayout;
    form->addRow("&Height of a PNG", spnSize);
    layout->addLayout(form);
    return box;
}

QGroupBox* frmExportFigure::MakeFigureBox() {
    auto* box = new QGroupBox("Figure");
    cboStyle =
        Named(new QComboBox, "cboStyle", "The style of this picture. The plot keeps its own");
    cboWidth = Named(new QComboBox, "cboWidth", "How wide the page is, or how large the net");
    cboWidth->addItems({"Column, 84 mm", "One and a half, 120 mm", "Page, 174 mm", "Slide, 16:9",
                        "Width", "Net diameter"});
    spnWidth = Named(new QDoubleSpinBox, "spnWidth", "Of the page, or of the net");
    spnWidth->setRange(kLeastWidth, kMostWidth);
    spnWidth->setDecimals(1);
    spnWidth->setSuffix(" mm");
    spnWidth->setValue(kColumnWidth);
    cboLegend = Named(new QComboBox, "cboLegend", "Where the legend stands");
    cboLegend->addItems({"Right", "Below", "None"});
    cboLegend->setCurrentIndex(static_cast<int>(LegendPlace::Below));
    spnDots = Named(new QSpinBox, "spnDots", "Pixels to the inch of a PNG or TIFF");
    spnDots->setRange(30, 2400);
    spnDots->setSingleStep(50);
    spnDots->setValue(300);
    spnDots->setSuffix(" dpi");
    chkTransparent = Named(new QCheckBox("&Transparent background"), "chkTransparent",
                           "Without the white ground");
    auto* form = new QFormLayout(box);
    form->addRow("&Style", cboStyle);
    form->addRow("Si&ze", cboWidth);
    form->addRow("", spnWidth);
    form->addRow("&Legend", cboLegend);
    form->addRow("&Resolution", spnDots);
    form->addRow(chkTransparent);
    spnWidth->setAccessibleName("Millimetres");
    connect(cboStyle, &QComboBox::activated, this, [this](int index) { ChooseStyle(index); });
    connect(cboWidth, &QComboBox::currentIndexChanged, this, [this] { ChooseWidth(); });
    connect(cboLegend, &QComboBox::currentIndexChanged, this, [this] { ShowSoon(); });
    connect(spnWidth, &QDoubleSpinBox::valueChanged, this, [this] { ShowSoon(); });
    connect(spnDots, &QSpinBox::valueChanged, this, [this] { ShowSoon(); });
    connect(chkTransparent, &QCheckBox::toggled, this, [this] { ShowSoon(); });
    return box;
}

QWidget* frmExportFigure::MakePreview() {
    auto* side = new QWidget;
    lblPreview = Named(new QLabel, "lblPreview", "Can be dragged into other programs");
    lblPreview->setMinimumSize(kPreviewSide, kPreviewSide);
    lblPreview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    lblPreview->setAlignment(Qt::AlignCenter);
    lblPreview->setFrameShape(QFrame::StyledPanel);
    lblPreview->installEventFilter(this);
    lblNote = new NoteLabel("");
    lblNote->setObjectName("lblNote");
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lblPreview, 1);
    layout->addWidget(lblNote);
    return side;
}

} // namespace quandrel
