// SPDX-License-Identifier: MIT
//
// What the rose dialog refuses, corrects and closes.

#include "rose/rose_tables.h"
#include "session/closing.h"
#include "shell/classes/class_boxes.h"
#include "shell/rose/rose_dialog_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include <array>
#include <vector>

namespace quandrel {
namespace {

struct RefusedCase {
    const char* box;
    const char* text;
    const char* valid;
    int page;
};

TEST_F(RoseDialogTest, GoMarksTheBoxThatItRefusesAndSaysWhy) {
    const std::vector<RefusedCase> cases = {
        {"txtRoseSectSize", "0.5", "10", kRoseSectorPage},
        {"txtRoseSectSize", "361", "10", kRoseSectorPage},
        {"txtRoseSectSize", "wide", "10", kRoseSectorPage},
        {"txtRoseSectSize", "", "10", kRoseSectorPage},
        {"txtRoseStartAz", "400", "0", kRoseSectorPage},
        {"txtRoseStartAz", "north", "0", kRoseSectorPage},
        {"txtSectorWidth", "0", "100", kRoseSectorPage},
        {"txtSectorWidth", "101", "100", kRoseSectorPage},
        {"txtSectorWidth", "x", "100", kRoseSectorPage},
        {"txtZeroCircle", "91", "0", kRoseSectorPage},
        {"txtZeroCircle", "-1", "0", kRoseSectorPage},
    };
    for (const RefusedCase& test : cases) {
        auto& box = Of<QLineEdit>(test.box);
        dialog->tabRose->setCurrentIndex(kRoseTypePage);
        Type(test.box, test.text);
        const QColor unmarked = box.palette().color(QPalette::Base);
        const RoseSettings before = RoseSettingsOf(ActiveRecord());
        Go();
        EXPECT_NE(box.palette().color(QPalette::Base), unmarked) << test.box << test.text;
        EXPECT_EQ(dialog->tabRose->currentIndex(), test.page);
        EXPECT_EQ(dialog->focusWidget(), &box);
        EXPECT_NE(status.Text(), kPressGo);
        EXPECT_EQ(status.Text().substr(0, 4), "The ");
        EXPECT_EQ(Of<QLabel>("lblRoseStatus").text().toStdString(), status.Text());
        EXPECT_EQ(Record().RoseSectorSize, before.sectorSize);
        EXPECT_EQ(Record().RoseStartAngle, before.startAngle);
        Type(test.box, test.valid);
        EXPECT_EQ(box.palette().color(QPalette::Base), unmarked) << "typing takes the mark away";
    }
    Type("txtRoseStartAz", ""); // north
    Go();
    EXPECT_EQ(Record().RoseStartAngle, 0);
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "");
}

TEST_F(RoseDialogTest, RefusesAnIntervalOfTooManyMarks) {
    Go(); // half of the data lies in one sector
    ASSERT_GT(Record().RoseRangeB[kTopRoseLayer][kInPerCent], 40);
    for (const char* interval : {"0.3", "-1", "none"}) {
        Of<QComboBox>("cboScaleInt").setEditText(interval);
        Go();
        EXPECT_EQ(Of<QLabel>("lblRoseStatus").text().left(18), "The scale interval") << interval;
        EXPECT_EQ(dialog->tabRose->currentIndex(), kRoseStylePage);
    }
}

TEST_F(RoseDialogTest, CorrectsTheSamplingLineOnLeavingABox) {
    dialog->activateWindow(); // the focus moves only in the active window
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    dialog->tabRose->setCurrentIndex(kRoseBiasPage);
    Check("optBias_1");
    const std::vector<std::array<const char*, 3>> cases = {
        {"txtBias_0", "91", "90"},   {"txtBias_0", "-9999", "0"}, {"txtBias_1", "400", "360"},
        {"txtBias_1", "-5", "0"},    {"txtBias_2", "0", "1"},     {"txtBias_2", "120", "90"},
        {"txtBias_0", "steep", "0"}, {"txtBias_0", "45", "45"},
    };
    for (const auto& [name, typed, corrected] : cases) {
        auto& box = Of<QLineEdit>(name);
        box.setFocus();
        box.clear();
        QTest::keyClicks(&box, typed);
        EXPECT_EQ(Text(name), typed) << "not while it is typed";
        dialog->chkBiasAppended->setFocus();
        dialog->cmdRoseGo->setFocus();
        EXPECT_EQ(Text(name), corrected) << typed;
    }
}

TEST_F(RoseDialogTest, OpensTheBoxesThatTheBiasCorrectionReads) {
    EXPECT_FALSE(IsOpen("txtBias_0"));
    EXPECT_FALSE(IsOpen("chkBiasAppended"));
    Check("optBias_2");
    EXPECT_FALSE(IsOpen("txtBias_0")) << "a strike has no plunge";
    EXPECT_TRUE(IsOpen("txtBias_1"));
    EXPECT_TRUE(IsOpen("txtBias_2"));
    EXPECT_FALSE(IsOpen("chkBiasAppended"));
    EXPECT_EQ(Of<QWidget>("chkBiasAppended").toolTip(), "The plot has no appended lines");
    Check("optRoseType_4");
    EXPECT_FALSE(IsOpen("fraBias"));
    Check("optRoseType_0");
    EXPECT_TRUE(IsOpen("fraBias"));
}

TEST_F(RoseDialogTest, ShowsTheCorrectionThatDirectionsHadInstead) {
    Record().PrimaryFormat = kDirections;
    Record().RoseBiasMode = 1;
    dialog->FollowActivePlot();
    EXPECT_TRUE(Of<QAbstractButton>("optBias_1").isChecked());
    EXPECT_FALSE(IsOpen("optBias_1"));
    Go();
    EXPECT_EQ(Record().RoseBiasMode, 2);
    EXPECT_TRUE(Of<QAbstractButton>("optBias_2").isChecked());
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "");
}

TEST_F(RoseDialogTest, UsesTheLinesOfTheRows) {
    Record().HasAppendedLine = kTrue;
    dialog->FollowActivePlot();
    Check("optBias_1");
    Check("chkBiasAppended");
    EXPECT_FALSE(IsOpen("txtBias_0"));
    EXPECT_FALSE(IsOpen("txtBias_1"));
    EXPECT_TRUE(IsOpen("txtBias_2"));
    Go();
    EXPECT_EQ(Record().RoseSamplePlunge, kOwnSampleLine);
    dialog->FollowActivePlot();
    EXPECT_TRUE(Of<QCheckBox>("chkBiasAppended").isChecked());
    EXPECT_EQ(Text("txtBias_0"), "0");
}

TEST_F(RoseDialogTest, MeansAndVariancesHaveNoClasses) {
    for (const char* kind : {"optRoseType_2", "optRoseType_3"}) {
        Check("optRoseType_0");
        Check("optRoseClassif_2");
        EXPECT_TRUE(IsOpen("optSegShape_1"));
        Check(kind);
        EXPECT_TRUE(Of<QAbstractButton>("optRoseClassif_0").isChecked());
        EXPECT_FALSE(IsOpen("optRoseClassif_1"));
        EXPECT_FALSE(IsOpen("optSegShape_1"));
        EXPECT_EQ(dialog->classBoxes->Kind(), ClassKind::None);
    }
}

TEST_F(RoseDialogTest, ClosesWhatThePlotHasNoDataFor) {
    Record().HasAppendedText = 0;
    dialog->FollowActivePlot();
    EXPECT_TRUE(IsOpen("optRoseType_1"));
    EXPECT_FALSE(IsOpen("optRoseType_5"));
    EXPECT_FALSE(IsOpen("optRoseClassif_2"));
    EXPECT_EQ(Of<QWidget>("optRoseClassif_2").toolTip(), "The plot has no appended texts");
    Record().HasAppendedText = kTrue;
    dialog->FollowActivePlot();
    EXPECT_TRUE(IsOpen("optRoseType_5"));
    EXPECT_EQ(Of<QWidget>("optRoseClassif_2").toolTip(),
              "Rose sectors, classed by \"type\" ranges");
}

TEST_F(RoseDialogTest, HistogramStylesAreClosedAndKept) {
    Record().RoseHistStyle = 3;
    dialog->FollowActivePlot();
    for (int style = 0; style < 4; ++style) {
        const auto& option = Of<QRadioButton>("optHistStyle_" + std::to_string(style));
        EXPECT_FALSE(option.isEnabled());
        EXPECT_FALSE(option.toolTip().isEmpty());
    }
    Go();
    EXPECT_EQ(Record().RoseHistStyle, 3);
}

TEST_F(RoseDialogTest, GoTakesTheClassesFromTheirBoxes) {
    Check("optRoseClassif_2");
    Check("optSegShape_1");
    Go();
    EXPECT_EQ(Record().RoseType, 20);
    EXPECT_EQ(Record().RoseSegShape, 1);
    // The types found first, one class each.
    EXPECT_EQ(TextOf(Record().ClassTable[kLowestRow][kNameClasses]), "marl");
    EXPECT_EQ(TextOf(Record().ClassTable[kLowestRow + 1][kNameClasses]), "chalk");
    EXPECT_EQ(TextOf(Record().ClassTable[kLowestRow + 2][kNameClasses]), "sandst");
    double marl = 0;
    for (int sector = 1; sector <= gRoseSectors->Sectors(); ++sector) {
        marl += gRoseSectors(sector, 2, kRoseFrequencyLayer);
    }
    EXPECT_EQ(marl, 3);
    Check("optRoseClassif_1");
    Of<QComboBox>("cboNumClasses_0").setCurrentIndex(1);
    Go();
    EXPECT_EQ(Record().RoseType, 10);
    EXPECT_EQ(NumberOf(Record().ClassTable[kBaseRow][kNumberClasses]), 2);
    EXPECT_EQ(NumberOf(Record().ClassTable[kTopRow][kNumberClasses]), 6);
}

TEST_F(RoseDialogTest, GoShowsTheClassBoxThatHoldsNoNumber) {
    Check("optRoseClassif_1");
    auto& limit = Of<QLineEdit>("txtRange_1");
    dialog->tabRose->setCurrentIndex(kRoseClassPage);
    limit.setFocus();
    limit.clear();
    QTest::keyClicks(&limit, "abc");
    dialog->tabRose->setCurrentIndex(kRoseTypePage);
    Go();
    EXPECT_EQ(dialog->tabRose->currentIndex(), kRoseClassPage);
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "A class limit is not a number.");
    EXPECT_EQ(dialog->focusWidget(), &limit);
    EXPECT_EQ(Record().RoseType, 0);
}

TEST_F(RoseDialogTest, PatchesShowTheFillsOfTheClasses) {
    Check("optRoseClassif_2");
    ClassBoxes& boxes = *dialog->classBoxes;
    for (std::size_t line = 0; line < 4; ++line) {
        EXPECT_EQ(boxes.picPlotBox[line]->Style(), gSymbolTable[kFirstRoseClassStyle + line])
            << line;
    }
    ClassStyles fills = boxes.Styles();
    fills[1] = {5, kCrossHatch, 0};
    boxes.SetStyles(fills);
    EXPECT_NE(gSymbolTable[kFirstRoseClassStyle + 1], fills[1]) << "not before GO";
    Go();
    EXPECT_EQ(gSymbolTable[kFirstRoseClassStyle + 1], fills[1]);
}

TEST_F(RoseDialogTest, AFaultOfValuesClosesTheirKinds) {
    for (std::int32_t row = 1; row <= Record().NumData; ++row) {
        gAppNumeric.At(gActivePlot, row) = kInvalidNumber;
    }
    Check("optRoseType_1");
    Expect("data were found in this data set.");
    Go();
    EXPECT_EQ(Record().RoseType, 0);
    EXPECT_TRUE(Of<QAbstractButton>("optRoseType_0").isChecked());
    for (int kind = 1; kind <= 5; ++kind) {
        EXPECT_FALSE(IsOpen("optRoseType_" + std::to_string(kind))) << kind;
    }
    EXPECT_TRUE(IsOpen("optRoseType_7"));
    gAppNumeric.At(gActivePlot, 1) = 2;
    dialog->FollowActivePlot();
    EXPECT_TRUE(IsOpen("optRoseType_1")) << "newly loaded data may have values";
}

TEST_F(RoseDialogTest, AFaultOfTypesGivesTheirClassesUp) {
    Check("optRoseType_1");
    Check("optRoseClassif_2");
    for (int i = 0; i < 3; ++i) {
        dialog->classBoxes->txtType[static_cast<std::size_t>(i)]->clear();
        QTest::keyClicks(dialog->classBoxes->txtType[static_cast<std::size_t>(i)], "granite");
    }
    Of<QCheckBox>("chkShowOthers_4").setChecked(false);
    Expect("(Try checking your classification range settings)");
    Go();
    EXPECT_EQ(Record().RoseType, 0);
    EXPECT_TRUE(Of<QAbstractButton>("optRoseType_0").isChecked());
    EXPECT_TRUE(Of<QAbstractButton>("optRoseClassif_0").isChecked());
    EXPECT_TRUE(IsOpen("optRoseClassif_2")) << "other names may have rows";
}

TEST_F(RoseDialogTest, KeepsASizeThatTheUserThinksBetterOf) {
    Go();
    Type("txtRoseSectSize", "7");
    Expect("one sector will be smaller than the others.", Button::Cancel);
    Go();
    EXPECT_EQ(Record().RoseSectorSize, 10) << "the old rose stays";
    EXPECT_EQ(Text("txtRoseSectSize"), "7");
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), kPressGo);
    Expect("one sector will be smaller than the others.");
    Go();
    EXPECT_EQ(Record().RoseSectorSize, 7);
}

TEST_F(RoseDialogTest, StillWantsGoAfterACancelledOneOfTheSameSize) {
    Type("txtRoseSectSize", "7");
    Expect("one sector will be smaller than the others.");
    Go();
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "");
    Type("txtRoseStartAz", "25");
    Expect("one sector will be smaller than the others.", Button::Cancel);
    Go();
    EXPECT_EQ(Record().RoseStartAngle, 0) << "the old rose stays";
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), kPressGo);
    dialog->FollowActivePlot();
    EXPECT_EQ(Text("txtRoseStartAz"), "25") << "what was typed is not plotted yet";
    Expect("one sector will be smaller than the others.");
    Go();
    EXPECT_EQ(Record().RoseStartAngle, 25);
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "");
}

TEST_F(RoseDialogTest, TakesNumbersAsTheyAreTyped) {
    auto& sectors = Of<QComboBox>("cboNumSectors");
    dialog->tabRose->setCurrentIndex(kRoseSectorPage);
    sectors.setFocus();
    sectors.lineEdit()->selectAll();
    QTest::keyClicks(sectors.lineEdit(), "7");
    EXPECT_EQ(sectors.currentText(), "7") << "there is a 72 in the list";
    EXPECT_EQ(Text("txtRoseSectSize"), "51.429");
    EXPECT_EQ(sectors.completer(), nullptr);
    auto& interval = Of<QComboBox>("cboScaleInt");
    interval.lineEdit()->selectAll();
    QTest::keyClicks(interval.lineEdit(), "1");
    EXPECT_EQ(interval.currentText(), "1") << "there is a 10 in the list";
    Go();
    EXPECT_EQ(Record().RoseSectorSize, 360.0 / 7);
    EXPECT_EQ(RoseSettingsOf(ActiveRecord()).interval, 1);
}

} // namespace
} // namespace quandrel
