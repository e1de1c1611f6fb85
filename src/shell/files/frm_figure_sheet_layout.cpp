// SPDX-License-Identifier: MIT

#include "shell/controls/control_kit.h"
#include "shell/files/frm_figure_sheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

namespace quandrel {

namespace {

constexpr int kWidth = 900;
constexpr int kHeight = 620;
constexpr int kCaptionHeight = 70;
constexpr int kUsualDots = 300;

QLineEdit* MakeLine(const QString& name, const QString& tip) {
    auto* line = new QLineEdit;
    line->setObjectName(name);
    line->setToolTip(tip);
    return line;
}

template <class Box, class Number>
Box* MakeNumber(const QString& name, const QString& tip, Number lowest, Number highest) {
    auto* box = new Box;
    box->setObjectName(name);
    box->setToolTip(tip);
    box->setRange(lowest, highest);
    return box;
}

} // namespace

void frmFigureSheet::MakeControls() {
    lstPanels = new QListWidget;
    lstPanels->setObjectName("lstPanels");
    lstPanels->setAccessibleName("Panels");
    cboKind = MakeList("cboKind", "Kind of panel");
    cboKind->addItems({"Plot", "Fabric", "Statistics", "Text"});
    cmdAdd = MakeButton("cmdAdd", "&Add", "Adds a panel of this kind, of the plot in front");
    cmdRemove = MakeButton("cmdRemove", "&Remove", "Removes the panel");
    cmdUp = MakeButton("cmdUp", "&Up", "Moves the panel up in the list");
    cmdDown = MakeButton("cmdDown", "&Down", "Moves the panel down in the list");
    lstPanels->setDragDropMode(QAbstractItemView::InternalMove);
    cmdUpdate = MakeButton("cmdUpdate", "Update &from Plots",
                           "Panels take the present state of their plots, where these are open");
    cmdUndo = MakeButton("cmdUndo", "Undo", "Undoes the last change of the figure");
    cmdUndo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    cmdRedo = MakeButton("cmdRedo", "Redo", "Repeats the change that was undone");
    cmdRedo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    for (QPushButton* button : {cmdUndo, cmdRedo}) {
        button->setEnabled(false);
    }
    txtTitle = MakeLine("txtTitle", "The title beside the panel's letter");
    txtText = MakeLine("txtText", "The words of a text");
    spnSpanColumns =
        MakeNumber<QSpinBox>("spnSpanColumns", "How many columns the panel spans", 1, 1);
    spnSpanRows =
        MakeNumber<QSpinBox>("spnSpanRows", "How many rows the panel spans", 1, kMostSheetColumns);
    MakePageControls();
    txtCaption =
        MakeLine("txtCaption", "{panels} is a sentence for each panel; F1 lists the fields");
    txtPreviewCaption = new QPlainTextEdit;
    txtPreviewCaption->setObjectName("txtPreviewCaption");
    txtPreviewCaption->setAccessibleName("The caption with its values");
    txtPreviewCaption->setReadOnly(true);
    txtPreviewCaption->setTabChangesFocus(true);
    txtPreviewCaption->setMaximumHeight(kCaptionHeight);
    cmdCopyCaption =
        MakeButton("cmdCopyCaption", "Cop&y Caption", "Copies the caption to the clipboard");
    lblPreview = MakeLabel({}, "lblPreview");
    lblPreview->setMinimumSize(200, 150);
    lblPreview->setAlignment(Qt::AlignCenter);
    lblPreview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    lblNote = MakeLabel({}, "lblNote");
    lblNote->setWordWrap(true);
    cmdOpen = MakeButton("cmdOpen", "&Open...", "Opens a figure");
    cmdSave = MakeButton("cmdSave", "&Save...",
                         "Saves the figure with the plots that have no file of their own");
    cmdExport = MakeButton("cmdExport", "E&xport...", "Saves the picture as PNG, SVG, PDF or TIFF");
    cmdClose = MakeButton("cmdClose", "Clos&e", "Closes the window");
    auto* sides = new QHBoxLayout(this);
    auto* left = new QVBoxLayout;
    left->addLayout(MakePanels());
    left->addLayout(MakePage());
    sides->addLayout(left);
    sides->addLayout(MakePreview(), 1);
    resize(kWidth, kHeight);
    SetOrder();
}

void frmFigureSheet::MakePageControls() {
    cboWidth = MakeList("cboWidth", "Width of the page");
    cboWidth->addItems(
        {"Column, 84 mm", "1.5 columns, 120 mm", "Page, 174 mm", "Slide 16:9", "Free"});
    spnWidth = MakeNumber<QDoubleSpinBox>("spnWidth", "The width of the page", kLeastSheetSide,
                                          kMostSheetSide);
    spnWidth->setSuffix(" mm");
    spnColumns = MakeNumber<QSpinBox>("spnColumns", "How many panels are side by side", 1,
                                      kMostSheetColumns);
    spnGap = MakeNumber<QDoubleSpinBox>("spnGap", "The gap between columns", 0.0, kMostSheetGap);
    spnGap->setSuffix(" mm");
    spnGapDown =
        MakeNumber<QDoubleSpinBox>("spnGapDown", "The gap between rows", 0.0, kMostSheetGap);
    spnGapDown->setSuffix(" mm");
    cboLetters = MakeList("cboLetters", "Letters of the panels");
    cboLetters->addItems({"a", "A", "(a)", "None"});
    cboLegend = MakeList("cboLegend", "Place of the legend");
    cboLegend->addItems({"Right", "Below", "None"});
    cboStyle = MakeList("cboStyle", "Style");
    for (const FigureStyle& style : StandardStyles()) {
        cboStyle->addItem(QString::fromStdString(style.name));
    }
    spnDots = MakeNumber<QSpinBox>("spnDots", "The resolution of a PNG or TIFF", 30, 2400);
    spnDots->setValue(kUsualDots);
    spnDots->setSuffix(" dpi");
    chkData = new QCheckBox("Embed the data");
    chkData->setObjectName("chkData");
    chkData->setToolTip("Puts the figure with its plots into an exported SVG, PDF or PNG, without "
                        "the paths of their files: opening the picture opens the figure");
}

QLayout* frmFigureSheet::MakePanels() {
    auto* layout = new QVBoxLayout;
    layout->addWidget(lstPanels, 1);
    auto* adding = new QHBoxLayout;
    adding->addWidget(cboKind, 1);
    adding->addWidget(cmdAdd);
    layout->addLayout(adding);
    auto* moving = new QHBoxLayout;
    for (QPushButton* button : {cmdRemove, cmdUp, cmdDown}) {
        moving->addWidget(button);
    }
    layout->addLayout(moving);
    auto* changing = new QHBoxLayout;
    for (QPushButton* button : {cmdUpdate, cmdUndo, cmdRedo}) {
        changing->addWidget(button);
    }
    layout->addLayout(changing);
    auto* form = new QFormLayout;
    form->addRow("&Title", txtTitle);
    form->addRow("Text", txtText);
    form->addRow("Columns spanned", spnSpanColumns);
    form->addRow("Rows spanned", spnSpanRows);
    layout->addLayout(form);
    return layout;
}

QLayout* frmFigureSheet::MakePage() {
    auto* form = new QFormLayout;
    form->addRow("&Width", cboWidth);
    form->addRow("", spnWidth);
    form->addRow("&Columns", spnColumns);
    form->addRow("&Gap across", spnGap);
    form->addRow("Gap down", spnGapDown);
    form->addRow("&Letters", cboLetters);
    form->addRow("Lege&nd", cboLegend);
    form->addRow("Style", cboStyle);
    form->addRow("Resolution", spnDots);
    form->addRow(chkData);
    return form;
}

QLayout* frmFigureSheet::MakePreview() {
    auto* layout = new QVBoxLayout;
    layout->addWidget(lblPreview, 1);
    layout->addWidget(lblNote);
    auto* form = new QFormLayout;
    form->addRow("Ca&ption", txtCaption);
    layout->addLayout(form);
    layout->addWidget(txtPreviewCaption);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdCopyCaption);
    buttons->addStretch(1);
    for (QPushButton* button : {cmdOpen, cmdSave, cmdExport, cmdClose}) {
        buttons->addWidget(button);
    }
    layout->addLayout(buttons);
    return layout;
}

void frmFigureSheet::SetOrder() {
    TabOrder order;
    order.Then(lstPanels).Then(cboKind).Then(cmdAdd).Then(cmdRemove).Then(cmdUp).Then(cmdDown);
    order.Then(cmdUpdate).Then(cmdUndo).Then(cmdRedo);
    order.Then(txtTitle).Then(txtText).Then(spnSpanColumns).Then(spnSpanRows);
    order.Then(cboWidth)
        .Then(spnWidth)
        .Then(spnColumns)
        .Then(spnGap)
        .Then(spnGapDown)
        .Then(cboLetters);
    order.Then(cboLegend)
        .Then(cboStyle)
        .Then(spnDots)
        .Then(chkData)
        .Then(txtCaption)
        .Then(txtPreviewCaption);
    order.Then(cmdCopyCaption).Then(cmdOpen).Then(cmdSave).Then(cmdExport).Then(cmdClose);
}

} // namespace quandrel
