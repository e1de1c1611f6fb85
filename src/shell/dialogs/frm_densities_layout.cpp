// SPDX-License-Identifier: MIT
//
// The controls of the dialog of densities and their layout.

#include "density/density_levels.h"
#include "shell/controls/control_kit.h"
#include "shell/dialogs/frm_densities.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

namespace {

/// The table of maxima. Reached by Tab, it chooses a row at once, so that arrow keys go on from it.
class MaximaTable : public QTableWidget {
public:
    explicit MaximaTable(int columns)
        : QTableWidget(0, columns) {}

protected:
    void focusInEvent(QFocusEvent* event) override {
        QTableWidget::focusInEvent(event);
        const bool isByKey =
            event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
        if (isByKey && selectedItems().isEmpty() && rowCount() > 0) {
            selectRow(std::max(currentRow(), 0));
        }
    }
};

constexpr int kNumberWidth = 64;
constexpr int kSliderWidth = 130;
constexpr int kTableHeight = 120;
constexpr QSize kSampleSize(72, 14);

constexpr std::array<const char*, 6> kMethods = {"Counting cone (1% area)",  "Kamb, counts",
                                                 "Kamb, linear weight",      "Kamb, squared weight",
                                                 "Kamb, exponential weight", "Kernel"};

constexpr std::array<const char*, 5> kPalettes = {"Colours of levels", "Warm", "Cool", "Diverging",
                                                  "Grey"};

constexpr std::array<ControlText, 3> kLevelTexts = {{
    {"&Doubling", "Each level is double the one before"},
    {"&Even, step", "Levels at equal steps; an empty step is a round one"},
    {"By &hand", "The levels of the box, such as 2, 4, 8"},
}};

constexpr std::array<ControlText, 3> kPictureTexts = {{
    {"&Lines", "Contours as lines, each in the style of its level"},
    {"&Filled bands", "The bands between levels, filled"},
    {"&Both", "Lines over filled bands"},
}};

QSlider* MakeSlider(const char* name, const char* accessibleName, const char* tip, int lowest,
                    int highest, int step) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(name);
    slider->setAccessibleName(accessibleName);
    slider->setToolTip(tip);
    slider->setRange(lowest, highest);
    slider->setSingleStep(1);
    slider->setPageStep(step);
    slider->setMinimumWidth(kSliderWidth);
    return slider;
}

QLineEdit* MakeBox(const char* name, const char* accessibleName) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    return box;
}

QLabel* MakeWrapped(const QString& name, int width, int lines) {
    auto* label = MakeLabel({}, name);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setFixedWidth(width);
    label->setMinimumHeight(lines * label->fontMetrics().lineSpacing());
    return label;
}

} // namespace

void frmDensities::MakeControls() {
    constexpr int kNoteWidth = 470;
    constexpr int kNoteLines = 3;
    lblNote = MakeWrapped("lblNote", kNoteWidth, kNoteLines);
    cmdContours = MakeButton("cmdContours", "Show Con&tours", "Show this plot as contours");
    cmdClose = MakeButton("cmdClose", "Cl&ose", "Close this dialog");
    KeepRoomWhenHidden(*cmdContours);
    auto* left = new QVBoxLayout;
    left->addWidget(MakeMethod());
    left->addWidget(MakeLevels());
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    right->addWidget(MakePicture());
    right->addWidget(MakeMaxima(), 1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left);
    columns->addLayout(right);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addLayout(MakeBelow());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    cmdClose->setAutoDefault(false);
    for (QPushButton* button : {cmdWiderK, cmdCopy, cmdContours}) {
        button->setAutoDefault(false); // Return in a box presses none
    }
}

QGroupBox* frmDensities::MakeMethod() {
    constexpr int kWarningWidth = 330;
    fraMethod = MakeGroup("fraMethod", "Density");
    cboMethod = MakeList("cboMethod", "Method");
    cboMethod->setToolTip("How much each row counts at a place");
    for (const char* method : kMethods) {
        cboMethod->addItem(method);
    }
    sldK = MakeSlider("sldK", "k of Kamb's methods", "The greater, the wider the cone", 10, 100, 5);
    txtK = MakeBox("txtK", "k of Kamb's methods");
    lblCone = MakeLabel({}, "lblCone");
    lblCone->setToolTip("Half-angle of the cone");
    lblCone->setMinimumWidth(fontMetrics().horizontalAdvance("cone 88.8°"));
    lblNarrow = MakeWrapped("lblNarrow", kWarningWidth, 1);
    cmdWiderK = MakeButton("cmdWiderK", "U&se k = 888.8 (3 degrees)",
                           "The least k whose cone is not narrower than 3 degrees");
    KeepRoomWhenHidden(*cmdWiderK);
    sldWidth =
        MakeSlider("sldWidth", "Half-width of the kernel", "The greater, the smoother", 4, 90, 4);
    txtWidth = MakeBox("txtWidth", "Half-width of the kernel, degrees");
    chkAutomatic =
        MakeCheck("chkAutomatic", "&Automatic", "The half-width that makes the rows most likely");
    cboUnit = MakeList("cboUnit", "Unit of densities and levels");
    cboUnit->setToolTip("Unit of densities and levels");
    txtK->setFixedWidth(kNumberWidth);
    txtWidth->setFixedWidth(kNumberWidth);
    auto* grid = new QGridLayout(fraMethod);
    grid->addWidget(MakeLabel("&Method", {}, cboMethod), 0, 0);
    grid->addWidget(cboMethod, 0, 1, 1, 3);
    grid->addWidget(MakeLabel("&k", {}, txtK), 1, 0);
    grid->addWidget(sldK, 1, 1);
    grid->addWidget(txtK, 1, 2);
    grid->addWidget(lblCone, 1, 3);
    grid->addWidget(lblNarrow, 2, 0, 1, 4);
    grid->addWidget(cmdWiderK, 3, 1, 1, 3, Qt::AlignLeft);
    grid->addWidget(MakeLabel("Half-&width", {}, txtWidth), 4, 0);
    grid->addWidget(sldWidth, 4, 1);
    grid->addWidget(txtWidth, 4, 2);
    grid->addWidget(chkAutomatic, 4, 3);
    grid->addWidget(MakeLabel("&Unit", {}, cboUnit), 5, 0);
    grid->addWidget(cboUnit, 5, 1, 1, 3);
    return fraMethod;
}

QGroupBox* frmDensities::MakeLevels() {
    fraLevels = MakeGroup("fraLevels", "Levels");
    auto* group = new QButtonGroup(fraLevels);
    auto* grid = new QGridLayout(fraLevels);
    for (std::size_t i = 0; i < optLevels.size(); ++i) {
        optLevels[i] =
            MakeOption(Numbered("optLevels", i), kLevelTexts[i], group, static_cast<int>(i));
        grid->addWidget(optLevels[i], static_cast<int>(i), 0);
    }
    txtStep = MakeBox("txtStep", "Step of even levels");
    txtStep->setFixedWidth(kNumberWidth);
    txtStep->setPlaceholderText("round");
    txtLevels = MakeBox("txtLevels", "Levels by hand");
    grid->addWidget(txtStep, kEvenLevels, 1, Qt::AlignLeft);
    grid->addWidget(txtLevels, kLevelsByHand, 1);
    grid->setColumnStretch(1, 1);
    return fraLevels;
}

QGroupBox* frmDensities::MakePicture() {
    fraPicture = MakeGroup("fraPicture", "Contours");
    auto* group = new QButtonGroup(fraPicture);
    auto* options = new QHBoxLayout;
    for (std::size_t i = 0; i < optPicture.size(); ++i) {
        optPicture[i] =
            MakeOption(Numbered("optPicture", i), kPictureTexts[i], group, static_cast<int>(i));
        options->addWidget(optPicture[i]);
    }
    options->addStretch(1);
    cboPalette = MakeList("cboPalette", "Palette of the bands");
    cboPalette->setToolTip("Colours of the bands, the lowest first");
    cboPalette->setIconSize(kSampleSize);
    for (const char* palette : kPalettes) {
        cboPalette->addItem(palette);
    }
    chkReversed = MakeCheck("chkReversed", "&Reversed", "The colours in reversed order");
    sldOpacity = MakeSlider("sldOpacity", "Opacity of the bands, per cent",
                            "Rows and net show through at less than 100%", 0, 100, 10);
    lblOpacity = MakeLabel({}, "lblOpacity");
    lblOpacity->setMinimumWidth(fontMetrics().horizontalAdvance("100%"));
    auto* grid = new QGridLayout(fraPicture);
    grid->addLayout(options, 0, 0, 1, 3);
    grid->addWidget(MakeLabel("&Palette", {}, cboPalette), 1, 0);
    grid->addWidget(cboPalette, 1, 1);
    grid->addWidget(chkReversed, 1, 2);
    grid->addWidget(MakeLabel("Opacit&y", {}, sldOpacity), 2, 0);
    grid->addWidget(sldOpacity, 2, 1);
    grid->addWidget(lblOpacity, 2, 2);
    return fraPicture;
}

QGroupBox* frmDensities::MakeMaxima() {
    fraMaxima = MakeGroup("fraMaxima", "Significance and maxima");
    chkEnvelope =
        MakeCheck("chkEnvelope", "En&velope of significance",
                  "Outline of densities that even data reach anywhere in only 5% of samples");
    chkMaxima =
        MakeCheck("chkMaxima", "Ma&xima", "Mark the local maxima on the net and list them here");
    tblMaxima = new MaximaTable(4);
    tblMaxima->setObjectName("tblMaxima");
    tblMaxima->setAccessibleName("Local maxima");
    tblMaxima->setToolTip(
        "Click a maximum to ring it on the net; Return or a double click goes to the plot");
    tblMaxima->setHorizontalHeaderLabels({"No.", "Line", "Density", "Rows"});
    tblMaxima->setSelectionBehavior(QAbstractItemView::SelectRows);
    tblMaxima->setSelectionMode(QAbstractItemView::SingleSelection);
    tblMaxima->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tblMaxima->setTabKeyNavigation(false);
    tblMaxima->verticalHeader()->hide();
    tblMaxima->horizontalHeader()->setStretchLastSection(true);
    tblMaxima->horizontalHeader()->setHighlightSections(false);
    tblMaxima->setMinimumHeight(kTableHeight);
    cmdCopy = MakeButton("cmdCopy", "&Copy", "Copy the table of maxima as text");
    auto* checks = new QHBoxLayout;
    checks->addWidget(chkMaxima);
    checks->addStretch(1);
    checks->addWidget(cmdCopy);
    auto* layout = new QVBoxLayout(fraMaxima);
    layout->addWidget(chkEnvelope);
    layout->addLayout(checks);
    layout->addWidget(tblMaxima, 1);
    return fraMaxima;
}

QLayout* frmDensities::MakeBelow() {
    auto* below = new QHBoxLayout;
    below->addWidget(lblNote, 1);
    below->addWidget(cmdContours, 0, Qt::AlignBottom);
    below->addWidget(cmdClose, 0, Qt::AlignBottom);
    return below;
}

void frmDensities::SetOrder() {
    TabOrder()
        .Then(cboMethod)
        .Then(sldK)
        .Then(txtK)
        .Then(cmdWiderK)
        .Then(sldWidth)
        .Then(txtWidth)
        .Then(chkAutomatic)
        .Then(cboUnit)
        .Then(optLevels)
        .Then(txtStep)
        .Then(txtLevels)
        .Then(optPicture)
        .Then(cboPalette)
        .Then(chkReversed)
        .Then(sldOpacity)
        .Then(chkEnvelope)
        .Then(chkMaxima)
        .Then(cmdCopy)
        .Then(tblMaxima)
        .Then(cmdContours)
        .Then(cmdClose);
}

} // namespace quandrel
