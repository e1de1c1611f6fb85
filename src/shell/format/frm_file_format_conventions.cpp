// SPDX-License-Identifier: MIT
//
// The conventions page of the format dialog.

#include "shell/controls/control_kit.h"
#include "shell/format/frm_file_format.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr ControlText kPlaneOptions[] = {
    {"Dip,Dip Dir'n", "45  120"},
    {"Dip Dir'n,Dip", "120  45"},
    {"Strike,Dip,Sense", "030  45  SE, or 030  45SE"},
    {"Dip,Sense,Strike", "45  SE  030, or 45SE  030"},
    {"Dip,Strike (RH rule)", "45  030: the plane dips to the right of the strike"},
    {"Strike,Dip (RH rule)", "030  45: the plane dips to the right of the strike"},
};

constexpr ControlText kLineOptions[] = {
    {"Plunge, Trend", "20  145"},
    {"Trend, Plunge", "145  20"},
};

constexpr ControlText kNotationOptions[] = {
    {"Quadrant notation", "S35E"},
    {"Azimuth notation", "145"},
};

constexpr ControlText kNegativePlungeOptions[] = {
    {"the line's lower end",
     "-30  120 lies in the line 30  120 and points the other way, up toward "
     "300"},
    {"the end it points to", "-30  120 points up toward 120: the way of palaeomagnetic directions. "
                             "It is stored as -30  300, by its lower end"},
};

} // namespace

QGroupBox* frmFileFormat::MakePlaneConventionBox() {
    auto* box = MakeGroup("fraPlaneConv", "Pla&nes are written as");
    auto* layout = new QGridLayout(box);
    auto* group = new QButtonGroup(box);
    for (int code = kDipDipDirection; code <= kStrikeDipRightHand; ++code) {
        auto* option =
            MakeOption(Numbered("optPlaneConv", code), kPlaneOptions[code - 1], group, code);
        optPlaneConv[static_cast<std::size_t>(code)] = option;
        auto* sample = MakeLabel(kPlaneOptions[code - 1].tip, Numbered("lblPlaneSample", code));
        lblPlaneSample[static_cast<std::size_t>(code)] = sample;
        layout->addWidget(option, code - 1, 0);
        layout->addWidget(sample, code - 1, 1);
    }
    layout->setColumnStretch(1, 1);
    return box;
}

QGroupBox* frmFileFormat::MakeSeparatorBox() {
    auto* box = MakeGroup("fraSeparator", "Separators (Output only)");
    auto* layout = new QGridLayout(box);
    constexpr const char* kNames[] = {"Pl&anes", "L&ines"};
    for (int i = 0; i < 2; ++i) {
        auto* list = MakeList(Numbered("cboSeparator", i), {});
        for (const char* separator : kOutputSeparators) {
            list->addItem(separator);
        }
        list->setToolTip("Separates the two values wherever the program writes them");
        auto* label = MakeLabel(kNames[i], Numbered("lblSeparator", i));
        label->setBuddy(list);
        layout->addWidget(label, 0, 2 * i);
        layout->addWidget(list, 0, 2 * i + 1);
        cboSeparator[static_cast<std::size_t>(i)] = list;
    }
    layout->setColumnStretch(4, 1);
    return box;
}

QGroupBox* frmFileFormat::MakeNegativePlungeBox() {
    auto* box = MakeGroup("fraNegativePlunge", "A negative plunge: the trend names");
    auto* layout = new QHBoxLayout(box);
    auto* group = new QButtonGroup(box);
    for (const int meaning : {0, 1}) {
        auto* option = MakeOption(Numbered("optNegativePlunge", meaning),
                                  kNegativePlungeOptions[meaning], group, meaning);
        optNegativePlunge[static_cast<std::size_t>(meaning)] = option;
        layout->addWidget(option);
    }
    return box;
}

QGroupBox* frmFileFormat::MakeCommentBox() {
    auto* box = MakeGroup("fraComments", "Co&mment lines begin with");
    auto* layout = new QHBoxLayout(box);
    constexpr const char* kMarks[] = {"#", "%", "//"};
    for (int mark = 0; mark < 3; ++mark) {
        auto* option = new QCheckBox(kMarks[mark]);
        option->setObjectName(Numbered("chkComments", mark));
        option->setToolTip("Lines that begin so are not read, like those with ; and *");
        layout->addWidget(option);
        chkComments[static_cast<std::size_t>(mark)] = option;
    }
    layout->addStretch(1);
    return box;
}

QWidget* frmFileFormat::MakeConventionsPage() {
    auto* lines = MakeGroup("fraLineConv", "Lines are &written as");
    auto* lineLayout = new QVBoxLayout(lines);
    auto* lineGroup = new QButtonGroup(lines);
    for (const int first : {1, 0}) {
        auto* option =
            MakeOption(Numbered("optLineConv", first), kLineOptions[first], lineGroup, first);
        optLineConv[static_cast<std::size_t>(first)] = option;
        lineLayout->addWidget(option);
    }
    auto* notation = MakeGroup("fraDirnConv", "Dir&ections are in");
    auto* notationLayout = new QVBoxLayout(notation);
    auto* notationGroup = new QButtonGroup(notation);
    for (const int code : {0, 1}) {
        auto* option =
            MakeOption(Numbered("optDirnConv", code), kNotationOptions[code], notationGroup, code);
        optDirnConv[static_cast<std::size_t>(code)] = option;
        notationLayout->addWidget(option);
    }
    chkPairs = new QCheckBox("A cell hold&s both angles: 045/60NE");
    chkPairs->setObjectName("chkPairs");
    chkPairs->setToolTip("Where both angles of an orientation have the same column, its cells are "
                         "split at /, :, @, - or a blank");
    chkSaveSettings[1] = new QCheckBox("Save Conventions settin&gs");
    chkSaveSettings[1]->setObjectName("chkSaveSettings_1");
    chkSaveSettings[1]->setToolTip("On OK conventions, separators and delimiter are kept for the "
                                   "next start of the program");
    lblConventions = MakeLabel({}, "lblConventions");
    auto* page = new QWidget;
    auto* layout = new QGridLayout(page);
    layout->addWidget(MakePlaneConventionBox(), 0, 0, 3, 1);
    layout->addWidget(lines, 0, 1);
    layout->addWidget(notation, 1, 1);
    layout->addWidget(MakeSeparatorBox(), 2, 1);
    layout->addWidget(MakeNegativePlungeBox(), 3, 0, 1, 2);
    layout->addWidget(MakeCommentBox(), 4, 0);
    layout->addWidget(chkPairs, 4, 1);
    layout->addWidget(lblConventions, 5, 0);
    layout->addWidget(chkSaveSettings[1], 5, 1, Qt::AlignRight);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(2, 1);
    return page;
}

} // namespace quandrel
