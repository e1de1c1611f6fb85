// SPDX-License-Identifier: MIT

#include "rose/rose_tables.h"
#include "shell/classes/class_boxes.h"
#include "shell/rose/rose_dialog_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QSlider>
#include <QTabWidget>
#include <QTest>

#include <array>
#include <map>
#include <set>

namespace quandrel {
namespace {

TEST_F(RoseDialogTest, HasEveryControlByItsNameAndCaption) {
    const std::map<std::string, std::string> captions = {
        {"optRoseType_0", "Frequency - Azimuth"},
        {"optRoseType_1", "Value - Azimuth"},
        {"optRoseType_2", "Mean Value - Azimuth"},
        {"optRoseType_3", "Value variance - Azimuth"},
        {"optRoseType_4", "Mean wind speed - Azimuth"},
        {"optRoseType_5", "\"Wind energy (speed^3) x frequency "},
        {"optRoseType_6", "Overlaid wind rose"},
        {"optRoseType_7", "Overlaid Value - Frequency plot"},
        {"optRoseType_8", " Overlaid Cum. Value - Mean Value"},
        {"optRoseClassif_0", "No classification"},
        {"optRoseClassif_1", "by length range"},
        {"optRoseClassif_2", "by type"},
        {"optRoseOptions_0", "Full Circle"},
        {"optRoseOptions_1", "N half-circle"},
        {"optRoseOptions_2", "E half-circle"},
        {"optRoseOptions_3", "S half-circle"},
        {"optRoseOptions_4", "W half-circle"},
        {"chkRoseWeight", "Area-weighted"},
        {"optHistStyle_0", "Linear histogram"},
        {"optHistStyle_1", "Flight diagram"},
        {"optHistStyle_2", "Rose diagram"},
        {"optHistStyle_3", "Circular histogram"},
        {"optSegShape_0", "Simple division"},
        {"optSegShape_1", "Stepped width"},
        {"optScale_0", "Circles"},
        {"optScale_1", "Tick marks"},
        {"chkRoseOuterCircle", "Show outer circle"},
        {"optBias_0", "None"},
        {"optBias_1", "3-D angle"},
        {"optBias_2", "Strike/trend"},
        {"optBias_3", "Dip only"},
        {"chkBiasAppended", "Use Appended"},
        {"cmdPreferences", "Fill Preferences..."},
        {"cmdRoseGo", "GO"},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(Of<QAbstractButton>(name).text().remove('&').toStdString(), caption) << name;
    }
    EXPECT_EQ(Of<QLabel>("lblCheckSectorSize").text(), "Check size matches input");
    EXPECT_EQ(Of<QLabel>("lblRoseWeight").text(), " sector lengths");
    EXPECT_EQ(Of<QLabel>("lblBiasLine").text(), "Line from file");
    EXPECT_EQ(Of<QLabel>("lblNumSectors").text().remove('&'), "Number:");
    EXPECT_EQ(Of<QLabel>("lblScaleInt").text().remove('&'), "Interval:");
    EXPECT_EQ(Of<QGroupBox>("fraBias").title(), "Terzaghi bias correction");
    EXPECT_EQ(Of<QGroupBox>("fraSectorWidth").title().remove('&'), "% sector width");
    EXPECT_EQ(Of<QGroupBox>("fraZeroCircle").title().remove('&'), "Zero-circle size");
    EXPECT_EQ(Of<QTabWidget>("tabRose").count(), 5);
    for (int page = 0; page < 5; ++page) {
        EXPECT_EQ(Of<QTabWidget>("tabRose").widget(page)->objectName().toStdString(),
                  "tabFrameRose_" + std::to_string(page));
    }
    for (const char* name :
         {"sldRoseSectSize", "sldRoseStartAz", "sldrSectorWidth", "sldrZeroCircle", "txtBias_0",
          "txtBias_1", "txtBias_2", "cboNumClasses_0", "cboRange", "cboType", "picPlotBox_0"}) {
        Of<QWidget>(name);
    }
}

TEST_F(RoseDialogTest, GivesTipsToItsControls) {
    const std::map<std::string, std::string> tips = {
        {"optRoseClassif_1", "Rose sectors, classed by \"length\" ranges"},
        {"optRoseClassif_2", "Rose sectors, classed by \"type\" ranges"},
        {"cboNumSectors", "Select  or enter no of sectors"},
        {"txtRoseSectSize", "Enter sector angular width in degrees"},
        {"txtRoseStartAz", "Enter the starting azimuth for defining the sectors"},
        {"sldRoseStartAz", "Set azimuth of start of first sector"},
        {"chkRoseWeight", "Sector lengths have equal area weighting (not advisable!)"},
        {"txtSectorWidth", "Set the %age width of the histogram sectors"},
        {"sldrSectorWidth", "Set the %age width of the histogram sectors"},
        {"txtZeroCircle", "Set the %age width of the central blank zero area of the plot"},
        {"sldrZeroCircle", "Set the %age width of the central blank zero area of the plot"},
        {"optScale_0", "Use concentric circles for scale"},
        {"optScale_1", "Use tick marks along axis for scale"},
        {"cboScaleInt", "Pick or enter scale interval (no more than 4 characters)"},
        {"chkRoseOuterCircle", "Flags whether a circle will be drawn around rose plot"},
        {"cmdRoseGo", "Plot rose using these settings"},
    };
    for (const auto& [name, tip] : tips) {
        EXPECT_EQ(Of<QWidget>(name).toolTip().toStdString(), tip) << name;
    }
    Check("optRoseClassif_1");
    EXPECT_EQ(Of<QWidget>("optSegShape_0").toolTip(),
              "Use simple sector patterned divisions for classes");
    EXPECT_EQ(Of<QWidget>("optSegShape_1").toolTip(),
              "Use discrete increasing sector widths for classes");
}

TEST_F(RoseDialogTest, ShowsTheSettingsOfTheActivePlot) {
    PlotRecord& record = Record();
    record.RoseType = 11;
    record.RoseShape = 4;
    record.RoseEqualArea = kTrue;
    record.RoseSectorSize = 15;
    record.RoseStartAngle = 7.5;
    record.RoseSectorFraction = 70;
    record.RoseZeroCircle = 12;
    record.RoseHistStyle = 3;
    record.RoseSegShape = 1;
    record.RoseScaleType = "circ2.5";
    record.RoseBiasMode = 2;
    record.RoseSamplePlunge = 20;
    record.RoseSampleTrend = 300;
    record.RoseMinBiasAngle = 8;
    gRoseOuterCircle = false;
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Rose: veins");
    for (const char* name :
         {"optRoseType_1", "optRoseClassif_1", "optRoseOptions_4", "chkRoseWeight",
          "optHistStyle_3", "optSegShape_1", "optScale_0", "optBias_2"}) {
        EXPECT_TRUE(Of<QAbstractButton>(name).isChecked()) << name;
    }
    EXPECT_FALSE(Of<QCheckBox>("chkRoseOuterCircle").isChecked());
    EXPECT_EQ(Text("txtRoseSectSize"), "15");
    EXPECT_EQ(Of<QSlider>("sldRoseSectSize").value(), 15);
    EXPECT_EQ(Of<QComboBox>("cboNumSectors").currentText(), "24");
    EXPECT_EQ(Text("txtRoseStartAz"), "7.5");
    EXPECT_EQ(Of<QSlider>("sldRoseStartAz").value(), 8);
    EXPECT_EQ(Text("txtSectorWidth"), "70");
    EXPECT_EQ(Of<QSlider>("sldrSectorWidth").value(), 70);
    EXPECT_EQ(Text("txtZeroCircle"), "12");
    EXPECT_EQ(Of<QSlider>("sldrZeroCircle").value(), 12);
    EXPECT_EQ(Of<QComboBox>("cboScaleInt").currentText(), "2.5");
    EXPECT_EQ(Text("txtBias_0") + " " + Text("txtBias_1") + " " + Text("txtBias_2"), "20 300 8");
    EXPECT_EQ(dialog->classBoxes->Kind(), ClassKind::Numbers);
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "") << "nothing was changed";
}

TEST_F(RoseDialogTest, SlidersStandAtTheirBoxesFromTheStart) {
    EXPECT_EQ(Text("txtSectorWidth"), "100");
    EXPECT_EQ(Of<QSlider>("sldrSectorWidth").value(), 100);
    EXPECT_EQ(Of<QSlider>("sldRoseSectSize").value(), 10);
}

TEST_F(RoseDialogTest, GoWritesEverythingAndStaysOpen) {
    Check("optRoseType_1");
    Check("optRoseOptions_2");
    Check("chkRoseWeight");
    Type("txtRoseSectSize", "20");
    Type("txtRoseStartAz", "5,5"); // either decimal delimiter
    Type("txtSectorWidth", "60");
    Type("txtZeroCircle", "15");
    Check("optScale_0");
    Of<QComboBox>("cboScaleInt").setEditText("4");
    Of<QCheckBox>("chkRoseOuterCircle").setChecked(false);
    Check("optBias_1");
    Type("txtBias_0", "30");
    Type("txtBias_1", "100");
    Type("txtBias_2", "12");
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), kPressGo);
    EXPECT_EQ(status.Text(), kPressGo);
    EXPECT_EQ(Record().RoseType, 0) << "nothing changes before GO";
    Go();
    const PlotRecord& record = Record();
    EXPECT_EQ(record.RoseType, 1);
    EXPECT_EQ(record.RoseShape, 2);
    EXPECT_EQ(record.RoseEqualArea, kTrue);
    EXPECT_EQ(record.RoseSectorSize, 20);
    EXPECT_EQ(record.RoseStartAngle, 5.5);
    EXPECT_EQ(record.RoseSectorFraction, 60);
    EXPECT_EQ(record.RoseZeroCircle, 15);
    EXPECT_EQ(record.RoseScaleType, "circ4");
    EXPECT_FALSE(gRoseOuterCircle);
    EXPECT_EQ(record.RoseBiasMode, 1);
    EXPECT_EQ(record.RoseSamplePlunge, 30);
    EXPECT_EQ(record.RoseSampleTrend, 100);
    EXPECT_EQ(record.RoseMinBiasAngle, 12);
    EXPECT_EQ(record.RoseStats[kRoseValueSum][kRawTotal], 21) << "1 + 2 + ... + 6 was counted";
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "");
}

TEST_F(RoseDialogTest, KeepsTheSizeOfANumberOfSectorsInFull) {
    Of<QComboBox>("cboNumSectors").setEditText("7");
    EXPECT_EQ(Text("txtRoseSectSize"), "51.429");
    EXPECT_TRUE(Of<QLabel>("lblCheckSectorSize").isHidden());
    Go();
    EXPECT_EQ(Record().RoseSectorSize, 360.0 / 7);
    dialog->FollowActivePlot();
    Type("txtZeroCircle", "5"); // the size stays as it was given
    Go();
    EXPECT_EQ(Record().RoseSectorSize, 360.0 / 7);
    EXPECT_EQ(Of<QComboBox>("cboNumSectors").currentText(), "7");
}

TEST_F(RoseDialogTest, SizeNumberAndSliderGoTogether) {
    auto& number = Of<QComboBox>("cboNumSectors");
    auto& slider = Of<QSlider>("sldRoseSectSize");
    auto& check = Of<QLabel>("lblCheckSectorSize");
    dialog->tabRose->setCurrentIndex(kRoseSectorPage);
    Type("txtRoseSectSize", "30");
    EXPECT_EQ(number.currentText(), "12");
    EXPECT_EQ(slider.value(), 30);
    EXPECT_FALSE(check.isVisible());
    slider.setValue(45);
    EXPECT_EQ(Text("txtRoseSectSize"), "45");
    EXPECT_EQ(number.currentText(), "8");
    number.setCurrentIndex(number.findText("36"));
    EXPECT_EQ(Text("txtRoseSectSize"), "10");
    EXPECT_EQ(slider.value(), 10);
    Type("txtRoseSectSize", "7"); // 51 sectors and 3 degrees
    EXPECT_EQ(number.currentText(), "52");
    EXPECT_TRUE(check.isVisible());
    Type("txtRoseSectSize", "seven");
    EXPECT_EQ(number.currentText(), "");
    EXPECT_FALSE(check.isVisible());
}

TEST_F(RoseDialogTest, SlidersFollowTheirBoxesAndMoveThem) {
    const std::vector<std::array<const char*, 2>> pairs = {{"sldRoseStartAz", "txtRoseStartAz"},
                                                           {"sldrSectorWidth", "txtSectorWidth"},
                                                           {"sldrZeroCircle", "txtZeroCircle"}};
    for (const auto& [slider, box] : pairs) {
        Of<QSlider>(slider).setValue(40);
        EXPECT_EQ(Text(box), "40");
        Type(box, "55");
        EXPECT_EQ(Of<QSlider>(slider).value(), 55);
        Type(box, "9999");
        EXPECT_EQ(Of<QSlider>(slider).value(), Of<QSlider>(slider).maximum());
        EXPECT_EQ(Text(box), "9999") << "a slider at its end leaves the box alone";
    }
    Type("txtSectorWidth", "50");
    Type("txtZeroCircle", "50");
    Type("txtRoseStartAz", "33.5");
    Go();
    EXPECT_EQ(Record().RoseStartAngle, 33.5);
}

TEST_F(RoseDialogTest, GoesOnShowingAutoAfterADrawing) {
    auto& interval = Of<QComboBox>("cboScaleInt");
    EXPECT_EQ(interval.currentText(), "auto");
    Check("optScale_1");
    Go();
    EXPECT_EQ(Record().RoseScaleType, "tickauto");
    dialog->FollowActivePlot();
    EXPECT_EQ(interval.currentText(), "auto");
    Check("optScale_0");
    Go();
    EXPECT_EQ(Record().RoseScaleType.substr(0, 4), "circ");
    interval.setEditText("12345");
    EXPECT_EQ(interval.currentText(), "1234") << "no more than four characters";
    interval.setEditText("AUTO");
    Go();
    dialog->FollowActivePlot();
    EXPECT_EQ(interval.currentText(), "auto");
}

TEST_F(RoseDialogTest, FollowsTheActivePlot) {
    Type("txtZeroCircle", "33");
    const int first = gActivePlot;
    AddPlot("joints <b>");
    Record().RoseZeroCircle = 20;
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Rose: joints <b>");
    EXPECT_EQ(Text("txtZeroCircle"), "20");
    EXPECT_EQ(Of<QLabel>("lblRoseStatus").text(), "");
    Go();
    EXPECT_EQ(RecordOf(first).RoseZeroCircle, 0);
    gActivePlot = first;
    dialog->FollowActivePlot();
    EXPECT_EQ(Text("txtZeroCircle"), "0") << "what was not plotted is gone with the plot";
}

TEST_F(RoseDialogTest, KeepsWhatIsTypedWhenTheSamePlotIsActivatedAnew) {
    Type("txtZeroCircle", "33");
    Record().PlotTitle = "renamed";
    dialog->FollowActivePlot();
    EXPECT_EQ(Text("txtZeroCircle"), "33");
    EXPECT_EQ(dialog->windowTitle(), "Rose: renamed");
    dialog->close();
    dialog->show();
    EXPECT_EQ(Text("txtZeroCircle"), "0") << "closing drops it";
}

TEST_F(RoseDialogTest, IsOutOfUseWithoutAPlot) {
    ReleasePlotSlot(gActivePlot);
    gActivePlot = 0;
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Rose Diagram");
    EXPECT_FALSE(IsOpen("cmdRoseGo"));
    EXPECT_FALSE(IsOpen("txtZeroCircle"));
    EXPECT_TRUE(IsOpen("cmdClose"));
}

TEST_F(RoseDialogTest, GoMakesARoseOfAStereoPlot) {
    Record().PlotKind = kEqualArea;
    Go();
    EXPECT_EQ(Record().PlotKind, kRose);
}

TEST_F(RoseDialogTest, KeysPlotAndClose) {
    dialog->tabRose->setCurrentIndex(kRoseSectorPage);
    auto& box = Of<QLineEdit>("txtZeroCircle");
    box.setFocus();
    box.setText("25");
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(Record().RoseZeroCircle, 25);
    EXPECT_TRUE(dialog->isVisible());
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(dialog->isModal());
}

TEST_F(RoseDialogTest, WhatItSaysEndsWithIt) {
    auto& box = Of<QLineEdit>("txtZeroCircle");
    box.setText("26");
    ASSERT_FALSE(dialog->lblRoseStatus->text().isEmpty());
    EXPECT_EQ(status.Text(), dialog->lblRoseStatus->text().toStdString());
    dialog->hide();
    EXPECT_EQ(status.Text(), "");
}

TEST_F(RoseDialogTest, OpensThePreferencesWhereThereAreSome) {
    EXPECT_FALSE(IsOpen("cmdPreferences"));
    EXPECT_FALSE(Of<QWidget>("cmdPreferences").toolTip().isEmpty());
    int shown = -1;
    dialog = std::make_unique<frmRoseDiag>(nullptr, [&shown](int tab) { shown = tab; });
    dialog->show();
    Of<QPushButton>("cmdPreferences").click();
    EXPECT_EQ(shown, 2) << "Symbols, Lines, Roses";
}

TEST_F(RoseDialogTest, FollowsAFaultOfAnotherCommandOnce) {
    Check("optRoseType_1");
    Go();
    for (std::int32_t row = 1; row <= Record().NumData; ++row) {
        gAppNumeric.At(gActivePlot, row) = kInvalidNumber;
    }
    Check("optRoseType_2");
    Expect("data were found in this data set.");
    ReplotActivePlot(true);
    EXPECT_TRUE(Of<QAbstractButton>("optRoseType_2").isChecked());
    dialog->FollowActivePlot();
    EXPECT_TRUE(Of<QAbstractButton>("optRoseType_0").isChecked());
    Check("optRoseType_7");
    dialog->FollowActivePlot();
    EXPECT_TRUE(Of<QAbstractButton>("optRoseType_7").isChecked()) << "it is reported once";
}

/// The letters of the Alt keys that work while a page shows.
std::vector<QChar> AltKeys(const QWidget& window) {
    std::vector<QChar> keys;
    const auto add = [&keys](const QString& text) {
        for (qsizetype i = 0; i + 1 < text.size(); ++i) {
            if (text[i] == '&' && text[i + 1] != '&') {
                keys.push_back(text[i + 1].toUpper());
            }
        }
    };
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible()) {
            continue;
        }
        if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            add(button->text());
        } else if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            add(label->text());
        } else if (const auto* box = qobject_cast<const QGroupBox*>(widget)) {
            add(box->title());
        } else if (const auto* tabs = qobject_cast<const QTabWidget*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                add(tabs->tabText(i));
            }
        }
    }
    return keys;
}

TEST_F(RoseDialogTest, AltKeysAreDifferentOnEveryPage) {
    for (const char* classes : {"optRoseClassif_1", "optRoseClassif_2"}) {
        Check(classes);
        for (int page = 0; page < 5; ++page) {
            dialog->tabRose->setCurrentIndex(page);
            const std::vector<QChar> keys = AltKeys(*dialog);
            EXPECT_GE(keys.size(), 8U);
            EXPECT_EQ(std::set<QChar>(keys.begin(), keys.end()).size(), keys.size()) << page;
        }
    }
}

TEST_F(RoseDialogTest, FitsASmallScreen) {
    for (const char* classes : {"optRoseClassif_1", "optRoseClassif_2"}) {
        Check(classes);
        const QSize size = dialog->sizeHint().expandedTo(dialog->minimumSizeHint());
        EXPECT_LE(size.width(), 1240);
        EXPECT_LE(size.height(), 740);
    }
}

} // namespace
} // namespace quandrel
