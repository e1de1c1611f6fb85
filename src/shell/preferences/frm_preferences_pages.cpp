// SPDX-License-Identifier: MIT
//
// The pages of the preferences without style tables: plot style, fonts, general.

#include "core/figure_style.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/text_boxes.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/styles/sample_button.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cstdint>

namespace quandrel {

namespace {

constexpr QSize kAxesRoom(124, 124);

/// By value of gPlotAxesStyle.
constexpr std::array<ControlText, 4> kNetCaptions = {{
    {"Only the centre shown", "A cross at the centre"},
    {"qudrant ticks shown", "Ticks at the quadrants except the north, and a cross at the centre"},
    {"N-S & E-W axes shown", "Both axes, with a tick every 10° of plunge"},
    {"Ticks every 10° shown", "Ticks every 10° on the eastern rim and along the axes"},
}};

/// By value of gRoseAxesStyle; the last value draws the same as the second.
constexpr std::array<ControlText, 3> kRoseCaptions = {{
    {"N-S & E-W axes shown", "Axes through the centre"},
    {"qudrant ticks shown", "Ticks outside the circle"},
    {"No axes shown", "Neither axes nor ticks"},
}};

} // namespace

QGroupBox* frmPreferences::MakeNetStyles() {
    auto* box = new QGroupBox("circle/axes style");
    box->setObjectName("picAxes");
    auto* grid = new QGridLayout(box);
    netStyles_ = new QButtonGroup(this);
    for (int i = 0; i < static_cast<int>(kNetCaptions.size()); ++i) {
        const ControlText& text = kNetCaptions[static_cast<std::size_t>(i)];
        auto* sample =
            new SampleButton(now_.styles, kAxesRoom, [i](Surface& surface, const Styles& styles) {
                DrawNetSample(surface, styles, static_cast<std::int16_t>(i));
            });
        sample->setObjectName(Numbered("picAxes", i));
        sample->setAccessibleName(text.caption);
        sample->setToolTip(text.tip);
        sample->setCheckable(true);
        netStyles_->addButton(sample, i);
        grid->addWidget(sample, 0, i, Qt::AlignHCenter);
        auto* caption = new QLabel(text.caption);
        grid->addWidget(caption, 1, i, Qt::AlignHCenter);
    }
    chkShowNorth = MakeCheck("chkShowNorth", "&N at the top", "An N above the circle of nets");
    grid->addWidget(chkShowNorth, 2, 0);
    return box;
}

QGroupBox* frmPreferences::MakeRoseStyles() {
    auto* box = new QGroupBox("Rose axes style");
    box->setObjectName("picRoseAxes");
    auto* grid = new QGridLayout(box);
    roseStyles_ = new QButtonGroup(this);
    for (int i = 0; i < static_cast<int>(kRoseCaptions.size()); ++i) {
        const ControlText& text = kRoseCaptions[static_cast<std::size_t>(i)];
        auto* sample =
            new SampleButton(now_.styles, kAxesRoom, [i](Surface& surface, const Styles& styles) {
                DrawRoseAxesSample(surface, styles, static_cast<std::int16_t>(i));
            });
        sample->setObjectName(Numbered("picRoseAxes", i));
        sample->setAccessibleName(text.caption);
        sample->setToolTip(text.tip);
        sample->setCheckable(true);
        roseStyles_->addButton(sample, i);
        grid->addWidget(sample, 0, i, 3, 1, Qt::AlignHCenter);
        grid->addWidget(new QLabel(text.caption), 3, i, Qt::AlignHCenter);
    }
    chkRoseOuterCircle =
        MakeCheck("chkRoseOuterCircle", "Show &outer circle", "The circle around roses");
    chkShowCompass = MakeCheck("chkShowCompass", "Show &Compass points",
                               "All octants marked with direction, and the points between them");
    const int column = static_cast<int>(kRoseCaptions.size());
    grid->addWidget(chkRoseOuterCircle, 0, column, Qt::AlignBottom);
    grid->addWidget(chkShowCompass, 1, column);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(column, 1);
    return box;
}

QGroupBox* frmPreferences::MakeWindowSizes() {
    auto* box = new QGroupBox("New plot windows");
    auto* grid = new QGridLayout(box);
    txtPlotSize = new QLineEdit;
    txtPlotSize->setObjectName("txtPlotSize");
    txtPlotSize->setMaximumWidth(80);
    txtPlotSize->setToolTip("Width of new plot windows, in per cent of the main window");
    cboPlotAspect = new QComboBox;
    cboPlotAspect->setObjectName("cboPlotAspect");
    MakeEditable(*cboPlotAspect);
    cboPlotAspect->setInsertPolicy(QComboBox::NoInsert);
    cboPlotAspect->addItems({"0.50", "0.75"});
    cboPlotAspect->setMaximumWidth(80);
    cboPlotAspect->setToolTip("Height of new plot windows, as a share of their width");
    auto* size = new QLabel("Enter a %age number &1-100");
    size->setBuddy(txtPlotSize);
    auto* aspect = new QLabel("Enter hei&ght to width ratio of plot window");
    aspect->setBuddy(cboPlotAspect);
    chkPlotLast = MakeCheck("chkPlotLast", "Use &last resize",
                            "New plot windows take the size that one was last given. Applies until "
                            "Quandrel ends");
    grid->addWidget(size, 0, 0);
    grid->addWidget(txtPlotSize, 0, 1);
    grid->addWidget(chkPlotLast, 0, 2);
    grid->addWidget(aspect, 1, 0);
    grid->addWidget(cboPlotAspect, 1, 1);
    grid->setColumnStretch(3, 1);
    return box;
}

QWidget* frmPreferences::MakePlotStylePage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(MakeNetStyles());
    layout->addWidget(MakeRoseStyles());
    layout->addWidget(MakeWindowSizes());
    layout->addStretch(1);
    return page;
}

QGroupBox* frmPreferences::MakeFolderBox() {
    auto* box = new QGroupBox("Default files directory...");
    auto* grid = new QGridLayout(box);
    txtDirectory = new QLineEdit;
    txtDirectory->setObjectName("txtDirectory");
    txtDirectory->setReadOnly(true);
    txtDirectory->setAccessibleName("Default files directory");
    cmdDirectory = new QPushButton("Chan&ge...");
    cmdDirectory->setObjectName("cmdDirectory");
    chkUseLastDirectory =
        MakeCheck("chkUseLastDirectory",
                  "&Always use last-accessed directory (deselect to set default directory)",
                  "File dialogs start in the folder of the file that was last opened");
    grid->addWidget(txtDirectory, 0, 0);
    grid->addWidget(cmdDirectory, 0, 1);
    grid->addWidget(chkUseLastDirectory, 1, 0, 1, 2);
    return box;
}

QGroupBox* frmPreferences::MakeFormulasBox() {
    auto* box = new QGroupBox("Formulas of statistics:");
    box->setObjectName("fraFormulas");
    auto* choices = new QHBoxLayout(box);
    constexpr std::array<const char*, 2> kCaptions = {"Quandrel's o&wn", "&Textbook"};
    constexpr std::array<const char*, 2> kTips = {
        "Statistics, arrows, arcs and cones by the program's own definitions. Where the textbook's "
        "result differs, it is shown below",
        "Statistics, arrows, arcs and cones by the formulas of the textbooks"};
    for (std::size_t i = 0; i < kCaptions.size(); ++i) {
        optFormulas[i] = new QRadioButton(kCaptions[i]);
        optFormulas[i]->setObjectName(Numbered("optFormulas", i));
        optFormulas[i]->setToolTip(kTips[i]);
        choices->addWidget(optFormulas[i]);
    }
    choices->addStretch(1);
    return box;
}

QLayout* frmPreferences::MakePlotCount() {
    auto* plots = new QHBoxLayout;
    txtNumPlots = new QLineEdit;
    txtNumPlots->setObjectName("txtNumPlots");
    txtNumPlots->setMaximumWidth(60);
    txtNumPlots->setValidator(new QIntValidator(1, kMostPlots, txtNumPlots));
    auto* label = new QLabel("Ma&ximum number of simultaneously open plots (Max. = 99)");
    label->setBuddy(txtNumPlots);
    plots->addWidget(label);
    plots->addWidget(txtNumPlots);
    plots->addStretch(1);
    return plots;
}

QGroupBox* frmPreferences::MakePitchBox() {
    auto* pitch = new QGroupBox("pitch/rake nomenclature:");
    pitch->setObjectName("fraPitchName");
    auto* names = new QHBoxLayout(pitch);
    constexpr std::array<const char*, 2> kNames = {"&pitch", "&rake"};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        optPitchName[i] = new QRadioButton(kNames[i]);
        optPitchName[i]->setObjectName(Numbered("optPitchName", i));
        names->addWidget(optPitchName[i]);
    }
    names->addStretch(1);
    return pitch;
}

void frmPreferences::AddGeneralChecks(QVBoxLayout& layout) {
    chkUseDecimals = MakeCheck("chkUseDecimals", "&Use decimals of orientations in new plots",
                               "New plots start with Plot > Use Decimals switched on");
    chkDecimalConv = MakeCheck(
        "chkDecimalConv", "&Convert 'invalid' decimal-like numbers to agree with Regional Settings",
        "Numbers with the other decimal delimiter are read as numbers");
    chkSaveLinesOption =
        MakeCheck("chkSaveLinesOption", "&Include non-data lines in ASCII Saves [default = No]",
                  "Texts of plots keep comments and other lines that are not data");
    chkIsolatedPts =
        MakeCheck("chkIsolatedPts", "&Show single isolated pts with contours",
                  "Contour plots mark each point that has no other point within its counting cone");
    for (QCheckBox* box : {chkUseDecimals, chkDecimalConv, chkSaveLinesOption, chkIsolatedPts}) {
        layout.addWidget(box);
    }
}

QLayout* frmPreferences::MakeStyleOfNewPlots() {
    auto* row = new QHBoxLayout;
    cboNewPlotStyle = new QComboBox;
    cboNewPlotStyle->setObjectName("cboNewPlotStyle");
    cboNewPlotStyle->setToolTip("The style that new plots begin with. Plot > Style changes that of "
                                "a plot");
    for (const FigureStyle& style : StandardStyles()) {
        cboNewPlotStyle->addItem(QString::fromStdString(style.name));
    }
    auto* label = new QLabel("St&yle of new plots");
    label->setBuddy(cboNewPlotStyle);
    row->addWidget(label);
    row->addWidget(cboNewPlotStyle);
    row->addStretch(1);
    return row;
}

QWidget* frmPreferences::MakeGeneralPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(MakePlotCount());
    auto* note = new QLabel("(Only adjust as necessary, or to conserve memory ). Save any changes "
                            "then restart Quandrel");
    note->setWordWrap(true);
    layout->addWidget(note);
    layout->addSpacing(8);
    layout->addWidget(MakeFolderBox());
    layout->addWidget(MakePitchBox());
    layout->addWidget(MakeFormulasBox());
    layout->addLayout(MakeStyleOfNewPlots());
    layout->addSpacing(8);
    AddGeneralChecks(*layout);
    layout->addStretch(1);
    return page;
}

void frmPreferences::ShowFolder() {
    const bool isSet = !chkUseLastDirectory->isChecked();
    txtDirectory->setText(QString::fromStdString(now_.files.folder));
    txtDirectory->setEnabled(isSet);
    cmdDirectory->setEnabled(isSet);
    cmdDirectory->setToolTip(isSet ? "Choose the folder that file dialogs start in"
                                   : "File dialogs start in the folder of the last file");
}

void frmPreferences::ChooseFolder() {
    const auto folder = askFolder(QString::fromStdString(now_.files.folder));
    if (!folder) {
        return;
    }
    now_.files.folder = folder->toStdString();
    chkUseLastDirectory->setChecked(folder->isEmpty());
    ShowFolder();
}

} // namespace quandrel
