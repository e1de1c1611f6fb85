// SPDX-License-Identifier: MIT
//
// The controls of the print layout dialog and their layout.

#include "shell/controls/bad_text.h"
#include "shell/controls/control_kit.h"
#include "shell/print/frm_print_dialog.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr QSize kPageRoom(300, 330);
constexpr int kNumberBoxWidth = 64;
constexpr int kSliderStep = 10; ///< a millimetre
constexpr int kSliderPage = 100;

QSlider* MakeSlider(const QString& name, const QString& title) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(name);
    slider->setAccessibleName(title);
    slider->setSingleStep(kSliderStep);
    slider->setPageStep(kSliderPage);
    slider->setMinimumWidth(150);
    return slider;
}

} // namespace

void frmPrintDialog::MakeControls() {
    MakeSelection();
    MakeScale();
    MakeDestination();
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(MakePage(), 0, Qt::AlignTop);
    auto* column = new QVBoxLayout;
    column->addWidget(frmSelection);
    column->addWidget(frmScaleBox);
    column->addWidget(fraDestination);
    column->addStretch(1);
    column->addWidget(MakeButtons());
    layout->addLayout(column);
    cmdOK[0]->setDefault(true);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* frmPrintDialog::MakePage() {
    auto* room = new QWidget;
    room->setFixedSize(kPageRoom);
    auto* page = new QFrame(room);
    page->setObjectName("picPage");
    page->setAccessibleName("The page in small");
    page->setToolTip("Drag a circle to move its plot");
    page->setStyleSheet("#picPage { background: white; border: 1px solid #808080 }");
    picPage = page;
    return room;
}

void frmPrintDialog::AddPageMarks() {
    while (picPlotCircle.size() < layout_.plots.size()) {
        const std::size_t index = picPlotCircle.size();
        auto* legend = new QFrame(picPage);
        legend->setObjectName(Numbered("shpLegend", index));
        legend->setStyleSheet("border: 1px dashed #909090; background: transparent");
        legend->setToolTip("Room for the legend and texts of the plot");
        auto* number = new QLabel(picPage);
        number->setObjectName(Numbered("PlotNo", index));
        number->setStyleSheet("color: black; background: transparent");
        auto* circle = new QLabel(picPage);
        circle->setObjectName(Numbered("picPlotCircle", index));
        circle->setCursor(Qt::SizeAllCursor);
        circle->installEventFilter(this);
        shpLegend.push_back(legend);
        PlotNo.push_back(number);
        picPlotCircle.push_back(circle);
    }
}

void frmPrintDialog::MakeSelection() {
    frmSelection = new QGroupBox("Selection");
    frmSelection->setObjectName("frmSelection");
    cboPlotName = new QComboBox;
    cboPlotName->setObjectName("cboPlotName");
    cboPlotName->setAccessibleName("Open plots");
    cboPlotName->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboPlotName->setMinimumContentsLength(26);
    cmdSelect[0] = MakeButton("cmdSelect_0", "Se&lect", "Puts the plot on the page");
    cmdSelect[1] = MakeButton("cmdSelect_1", "&Remove", "Takes the plot off the page");
    auto* layout = new QHBoxLayout(frmSelection);
    layout->addWidget(cboPlotName, 1);
    for (QPushButton* button : cmdSelect) {
        layout->addWidget(button);
    }
}

void frmPrintDialog::MakeScale() {
    constexpr int kOverEdgeRow = 6;
    frmScaleBox = new QGroupBox("Scale");
    frmScaleBox->setObjectName("frmScaleBox");
    auto* grid = new QGridLayout(frmScaleBox);
    AddScaleChoice(*grid);
    AddSize(*grid, 1);
    AddUnits(*grid, 2);
    AddCentre(*grid, 3);
    lblOverEdge = MakeLabel({}, "lblOverEdge");
    lblOverEdge->setAccessibleName("Plots over the edge");
    QPalette colours;
    colours.setColor(QPalette::WindowText, BadTextColour());
    lblOverEdge->setPalette(colours);
    grid->addWidget(lblOverEdge, kOverEdgeRow, 0, 1, 4);
    grid->setColumnStretch(3, 1);
}

void frmPrintDialog::AddScaleChoice(QGridLayout& grid) {
    constexpr std::array<const char*, 2> kScales = {"&Fit to Page", "&Manual Fit"};
    auto* group = new QButtonGroup(frmScaleBox);
    for (std::size_t i = 0; i < optScale.size(); ++i) {
        optScale[i] = new QRadioButton(kScales[i]);
        optScale[i]->setObjectName(Numbered("optScale", i));
        group->addButton(optScale[i], static_cast<int>(i));
        grid.addWidget(optScale[i], 0, i == 0 ? 0 : 2, 1, 2);
    }
}

void frmPrintDialog::AddNumber(QGridLayout& grid, int row, QLabel* label, QLineEdit* box,
                               QSlider* slider) {
    box->setFixedWidth(kNumberBoxWidth);
    box->setAlignment(Qt::AlignRight);
    box->installEventFilter(this);
    label->setBuddy(box);
    grid.addWidget(label, row, 0);
    grid.addWidget(box, row, 1);
    grid.addWidget(slider, row, 2, 1, 2);
}

void frmPrintDialog::AddSize(QGridLayout& grid, int row) {
    txtScale = new QLineEdit;
    txtScale->setObjectName("txtScale");
    txtScale->setToolTip("Radius of the net on paper");
    sldScale = MakeSlider("sldScale", "Size");
    AddNumber(grid, row, MakeLabel("Si&ze (radius)", "lblScale"), txtScale, sldScale);
}

void frmPrintDialog::AddUnits(QGridLayout& grid, int row) {
    cboScaleUnits = new QComboBox;
    cboScaleUnits->setObjectName("cboScaleUnits");
    cboScaleUnits->addItems({kPageUnitNames[0], kPageUnitNames[1]});
    auto* units = MakeLabel("&units", "lblScaleUnits");
    units->setBuddy(cboScaleUnits);
    grid.addWidget(units, row, 0);
    grid.addWidget(cboScaleUnits, row, 1, 1, 2, Qt::AlignLeft);
}

void frmPrintDialog::AddCentre(QGridLayout& grid, int row) {
    constexpr std::array<const char*, 2> kAxes = {"&Horiz.", "&Vert."};
    constexpr std::array<const char*, 2> kCentres = {"Centre, horizontal", "Centre, vertical"};
    grid.addWidget(MakeLabel("Location of Centre", "lblLocation"), row, 0, 1, 2);
    lblCentre = MakeLabel("from top left ", "lblCentre");
    grid.addWidget(lblCentre, row, 2, 1, 2);
    for (std::size_t i = 0; i < txtCentre.size(); ++i) {
        lblXY[i] = MakeLabel(kAxes[i], Numbered("lblXY", i));
        txtCentre[i] = new QLineEdit;
        txtCentre[i]->setObjectName(Numbered("txtCentre", i));
        txtCentre[i]->setAccessibleName(kCentres[i]);
        SldCentre[i] = MakeSlider(Numbered("SldCentre", i), kCentres[i]);
        AddNumber(grid, ++row, lblXY[i], txtCentre[i], SldCentre[i]);
    }
}

void frmPrintDialog::MakeDestination() {
    fraDestination = new QGroupBox("Destination");
    fraDestination->setObjectName("fraDestination");
    lblDefaultPrinter = MakeLabel("Default Printer:", "lblDefaultPrinter");
    lblPrinterName = MakeLabel({}, "lblPrinterName");
    lblPrinterName->setTextFormat(Qt::PlainText);
    lblPrinterName->setWordWrap(true);
    lblOrientation = MakeLabel({}, "lblOrientation");
    cmdPrinterSetup =
        MakeButton("cmdPrinterSetup", "Printer &Setup...", "Choose printer, paper and orientation");
    auto* grid = new QGridLayout(fraDestination);
    grid->addWidget(lblDefaultPrinter, 0, 0);
    grid->addWidget(lblPrinterName, 0, 1);
    grid->addWidget(lblOrientation, 1, 1);
    grid->addWidget(cmdPrinterSetup, 1, 2);
    grid->setColumnStretch(1, 1);
}

QWidget* frmPrintDialog::MakeButtons() {
    cmdOK[0] = MakeButton("cmdOK_0", "&Print", "Prints the plots of the page");
    cmdOK[1] = MakeButton("cmdOK_1", "&Close", "Back to the plots");
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    // The caption changes during printing; the size of the button does not.
    cmdOK[0]->setMinimumWidth(fontMetrics().horizontalAdvance("Stop printing") + 40);
    for (QPushButton* button : cmdOK) {
        layout->addWidget(button);
    }
    return line;
}

void frmPrintDialog::SetOrder() {
    TabOrder().Then(std::array<QWidget*, 15>{cboPlotName, cmdSelect[0], cmdSelect[1], optScale[0],
                                             optScale[1], txtScale, sldScale, cboScaleUnits,
                                             txtCentre[0], SldCentre[0], txtCentre[1], SldCentre[1],
                                             cmdPrinterSetup, cmdOK[0], cmdOK[1]});
}

} // namespace quandrel
