// SPDX-License-Identifier: MIT

#include "shell/controls/picture_box.h"
#include "shell/format/file_format_fixture.h"
#include "shell/format/format_grid.h"
#include "shell/styles/frm_symbol_select.h"

#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <map>
#include <set>

namespace quandrel {
namespace {

TEST_F(FileFormatTest, HasEveryControlByItsNameAndCaption) {
    Open();
    EXPECT_EQ(dialog_->windowTitle(), "File structure and data conventions");
    EXPECT_EQ(dialog_->objectName(), "frmFileFormat");
    Of<QTabWidget>("tabConventions");
    const std::map<std::string, std::string> captions = {
        {"optPrimary_1", "Directions"},
        {"optPrimary_2", "Plane"},
        {"optPrimary_3", "Line"},
        {"optSecondary_0", "None"},
        {"optSecondary_1", "Line"},
        {"optSecondary_2", "Plane"},
        {"optSecondary_3", "Line Pitch in Primary Plane"},
        {"optSecondary_4", "Line Trend in Primary Plane"},
        {"optSecondary_5", "Line as 360\u00b0 Hade in Prim.Plane"},
        {"chkAppended_0", "Line (fold axis, sample line, etc"},
        {"chkAppended_1", "Numeric value"},
        {"chkAppended_2", "Alphanumeric"},
        {"chkFreqIsAppended", "Numeric value is frequency of\nassociated direction"},
        {"chkTableHeadings", "First row contains column headings"},
        {"chkSaveSettings_0", "Save column settings"},
        {"chkSaveSettings_1", "Save Conventions settings"},
        {"chkSaveSettings_2", "Save name settings"},
        {"cmdUseSaved", "Use saved column settings"},
        {"optPlaneConv_1", "Dip,Dip Dir'n"},
        {"optPlaneConv_2", "Dip Dir'n,Dip"},
        {"optPlaneConv_3", "Strike,Dip,Sense"},
        {"optPlaneConv_4", "Dip,Sense,Strike"},
        {"optPlaneConv_5", "Dip,Strike (RH rule)"},
        {"optPlaneConv_6", "Strike,Dip (RH rule)"},
        {"optLineConv_0", "Plunge, Trend"},
        {"optLineConv_1", "Trend, Plunge"},
        {"optDirnConv_0", "Quadrant notation"},
        {"optDirnConv_1", "Azimuth notation"},
        {"optNegativePlunge_0", "the line's lower end"},
        {"optNegativePlunge_1", "the end it points to"},
        {"cmdDataType_1", "Planes"},
        {"cmdDataType_2", "Lines"},
        {"cmdDataType_3", "Polar Lines"},
        {"chkSecondaryData", "Apply to Secondary Data"},
        {"cmdButtons_0", "OK"},
        {"cmdButtons_1", "Cancel"},
        {"cmdButtons_2", "Defaults"},
        {"cmdButtons_3", "Change..."},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(Of<QAbstractButton>(name).text().remove('&').toStdString(), caption) << name;
    }
    for (int slot = 0; slot < kColumnSlots; ++slot) {
        Of<QComboBox>("cboColumns_" + std::to_string(slot));
        Of<QLabel>("lblColumns_" + std::to_string(slot));
    }
    const std::map<std::string, QStringList> lists = {
        {"cboDelim", {"tab", "space", ",", ";", "any"}},
        {"cboSeparator_0", {"-", "/", "\\", ","}},
        {"cboSeparator_1", {"-", "/", "\\", ","}},
        {"cboAppName_0",
         {"length", "thickness", "width", "vein width", "assay", "Mean wind frequency",
          "Raw wind speed", "speed", "size", "grainsize", "depth", "depth in hole", "distance",
          "aspect ratio", "weighting"}},
        {"cboAppName_1",
         {"type", "Mean wind speed", "season", "unit", "rockType", "fault Type", "subarea"}},
    };
    for (const auto& [name, entries] : lists) {
        const auto& list = Of<QComboBox>(name);
        QStringList found;
        for (int i = 0; i < list.count(); ++i) {
            found << list.itemText(i);
        }
        EXPECT_EQ(found, entries) << name;
    }
    EXPECT_EQ(Of<QLabel>("lblDataMismatch").text(), "Mismatched Data Format - please check!");
    EXPECT_EQ(Of<QLabel>("lblOtherData_0").text(), "No Secondary data");
    EXPECT_EQ(Of<QLabel>("lblOtherData_1").text(), "No Appended data");
    EXPECT_EQ(Of<QLabel>("lblPlotHint").text(), "Change data Format and convention settings before "
                                                "selecting a plot type button");
    EXPECT_EQ(Of<QLabel>("lblUpSymbol_0").text(), "down");
    EXPECT_EQ(Of<QLabel>("lblUpSymbol_1").text(), "up");
    Of<QWidget>("picCurrentSymbol_0");
    Of<QWidget>("picCurrentSymbol_1");
    Of<QTableWidget>("grdDataFormat");
}

TEST_F(FileFormatTest, TakesTheGlobalsAndGivesThemBackUnchanged) {
    gConventions = -14;
    gPrimaryDataType = kPrimaryLine;
    gSecondaryDataType = kHadeInPlane;
    gFileLineAppended = true;
    gFileNumericAppended = true;
    gFileNonNumericAppended = true;
    gFileAppNumName = "my number";
    gFileAppNonNumName = "season";
    gFileColumnSettings = {1, 2, 3, 4, 5, 6, 7, 8, 9, 12};
    gPlaneSeparator = "\\";
    gLineSeparator = "+";
    gFileDelimiter = "|";
    gSettings.format.hasHeadings = true;
    gPlotDataKind = kLines;
    const FormatSettings before = gSettings.format;
    const auto symbols = gSymbolTable;
    Open();
    PressOk();
    EXPECT_TRUE(IsAccepted());
    const FormatSettings after = gSettings.format;
    EXPECT_EQ(after.conventions, before.conventions);
    EXPECT_EQ(after.primary, before.primary);
    EXPECT_EQ(after.secondary, before.secondary);
    EXPECT_EQ(after.columns, before.columns);
    EXPECT_EQ(after.numericName, before.numericName);
    EXPECT_EQ(after.nonNumericName, before.nonNumericName);
    EXPECT_EQ(after.planeSeparator, before.planeSeparator);
    EXPECT_EQ(after.lineSeparator, before.lineSeparator);
    EXPECT_EQ(after.delimiter, before.delimiter);
    EXPECT_EQ(after.lineAppended, before.lineAppended);
    EXPECT_EQ(after.numericAppended, before.numericAppended);
    EXPECT_EQ(after.nonNumericAppended, before.nonNumericAppended);
    EXPECT_EQ(after.plotDataKind, before.plotDataKind);
    EXPECT_EQ(after.hasHeadings, before.hasHeadings);
    EXPECT_EQ(gSymbolTable, symbols);
}

TEST_F(FileFormatTest, LeavesEveryGlobalOnCancel) {
    const FormatSettings before = gSettings.format;
    const auto symbols = gSymbolTable;
    gSymbolTable[kRowSymbol] = {9, 9, 9};
    for (const bool byEsc : {false, true}) {
        Open();
        Press("optPrimary_3");
        Press("optSecondary_1");
        Press("chkAppended_0");
        Press("chkAppended_1");
        Press("chkAppended_2");
        Press("optPlaneConv_4");
        Press("optLineConv_1");
        Press("optDirnConv_0");
        Press("cmdDataType_3");
        Press("chkTableHeadings");
        Press("chkSaveSettings_0");
        Press("cmdButtons_2");
        Of<QComboBox>("cboDelim").setCurrentText("any");
        Of<QComboBox>("cboSeparator_0").setCurrentText(",");
        Choose(0, 7);
        if (byEsc) {
            QTest::keyClick(dialog_.get(), Qt::Key_Escape);
        } else {
            Press("cmdButtons_1");
        }
        EXPECT_FALSE(Stays());
        EXPECT_FALSE(IsAccepted());
        const FormatSettings after = gSettings.format;
        EXPECT_EQ(after.conventions, before.conventions);
        EXPECT_EQ(after.delimiter, before.delimiter);
        EXPECT_EQ(after.planeSeparator, before.planeSeparator);
        EXPECT_EQ(after.primary, before.primary);
        EXPECT_EQ(after.secondary, before.secondary);
        EXPECT_EQ(after.lineAppended, before.lineAppended);
        EXPECT_EQ(after.numericAppended, before.numericAppended);
        EXPECT_EQ(after.nonNumericAppended, before.nonNumericAppended);
        EXPECT_EQ(after.columns, before.columns);
        EXPECT_EQ(after.plotDataKind, before.plotDataKind);
        EXPECT_EQ(after.hasHeadings, before.hasHeadings);
        EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{9, 9, 9}));
        EXPECT_EQ(Saved(ColumnKey(0)), "nothing");
    }
    gSymbolTable = symbols;
}

TEST_F(FileFormatTest, SetsThePrimaryFormat) {
    for (std::int16_t code = 1; code <= 3; ++code) {
        Open();
        Press("optPrimary_" + std::to_string(code));
        PressOk();
        EXPECT_TRUE(IsAccepted());
        EXPECT_EQ(gPrimaryDataType, code);
        EXPECT_EQ(gPlotDataKind, code == kPrimaryPlane ? kPlanes : kLines);
    }
}

TEST_F(FileFormatTest, StoresTheCodesOfSecondaryCaptions) {
    const std::int16_t codes[] = {0, 3, 4, 1, 2, 5};
    for (int index = 0; index < 6; ++index) {
        Open();
        Press("optSecondary_" + std::to_string(index));
        PressOk();
        EXPECT_EQ(gSecondaryDataType, codes[index]) << index;
        EXPECT_TRUE(Open().optSecondary[static_cast<std::size_t>(index)]->isChecked()) << index;
    }
}

TEST_F(FileFormatTest, AnglesInThePlaneAreGreyWithoutPlanes) {
    frmFileFormat& dialog = Open();
    const auto inPlane = {3, 4, 5}; // pitch, trend, hade
    for (const int option : inPlane) {
        EXPECT_TRUE(Of<QRadioButton>("optSecondary_" + std::to_string(option)).isEnabled());
    }
    Press("optSecondary_3");
    Press("optPrimary_3"); // a line has no plane to measure in
    EXPECT_TRUE(dialog.optSecondary[0]->isChecked());
    EXPECT_FALSE(dialog.cboColumns[kSlotSecondaryDirection]->isEnabled());
    for (const int option : inPlane) {
        EXPECT_FALSE(Of<QRadioButton>("optSecondary_" + std::to_string(option)).isEnabled());
    }
    for (const int option : {0, 1, 2}) {
        EXPECT_TRUE(Of<QRadioButton>("optSecondary_" + std::to_string(option)).isEnabled());
    }
    Press("optPrimary_2");
    EXPECT_TRUE(dialog.optSecondary[5]->isEnabled());
}

TEST_F(FileFormatTest, CutsNoTexts) {
    frmFileFormat& dialog = Open();
    dialog.resize(dialog.minimumSizeHint());
    for (const QComboBox* list : dialog.cboAppName) {
        for (int i = 0; i < list->count(); ++i) {
            EXPECT_LT(list->fontMetrics().horizontalAdvance(list->itemText(i)),
                      list->lineEdit()->width())
                << list->itemText(i).toStdString();
        }
    }
    for (const char* name : {"optSecondary_5", "chkAppended_0", "chkFreqIsAppended"}) {
        const auto& button = Of<QAbstractButton>(name);
        EXPECT_GE(button.width(), button.sizeHint().width()) << name;
    }
    FormatQuestion question;
    question.command = "New";
    question.path = WriteFile(std::string(200, 'x') + ".txt", kPlanesFile);
    frmFileFormat& longName = Open(question);
    const QString shown = longName.lblPreview->text();
    EXPECT_TRUE(shown.startsWith("First lines of xxx") && shown.endsWith("x.txt"));
    EXPECT_LE(longName.lblPreview->fontMetrics().horizontalAdvance(shown),
              longName.lblPreview->width());
}

TEST_F(FileFormatTest, ShowsAPastedTextInThePreview) {
    FormatQuestion question;
    question.command = "Paste";
    question.text = "dip,direction\n30,120\n95,200\n";
    question.columnHeadings = true;
    frmFileFormat& dialog = Open(question);
    EXPECT_EQ(dialog.lblPreview->text(), "First lines of the pasted text");
    EXPECT_EQ(dialog.HeaderString(), "dip,direction");
    EXPECT_TRUE(dialog.chkTableHeadings->isChecked());
    EXPECT_TRUE(dialog.lblMismatchReasons->text().contains("\"95\"")) << "doubted like any file";
    dialog.chkTableHeadings->setChecked(false);
    PressOk();
    EXPECT_FALSE(dialog.Answer().columnHeadings);
}

TEST_F(FileFormatTest, MakesTheCodeOfConventions) {
    for (int plane = 1; plane <= 6; ++plane) {
        for (const int line : {0, 1}) {
            for (const int notation : {0, 1}) {
                Open();
                Press("optPlaneConv_" + std::to_string(plane));
                Press("optLineConv_" + std::to_string(line));
                Press("optDirnConv_" + std::to_string(notation));
                const int code = (plane + 10 * line) * (notation == 0 ? -1 : 1);
                EXPECT_EQ(dialog_->SetConventions(), code);
                PressOk();
                EXPECT_EQ(gConventions, code);
            }
        }
    }
}

TEST_F(FileFormatTest, SetsWhatTheTrendBesideANegativePlungeNames) {
    EXPECT_EQ(Open().findChild<QGroupBox*>("fraNegativePlunge")->title(),
              "A negative plunge: the trend names");
    EXPECT_TRUE(dialog_->optNegativePlunge[0]->isChecked());
    Press("optNegativePlunge_1");
    Press("cmdButtons_1");
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::LowerEnd) << "cancelled";
    Open();
    Press("optNegativePlunge_1");
    Press("chkSaveSettings_1");
    PressOk();
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::Vector);
    EXPECT_EQ(Saved("NegativePlunge"), "1");
    EXPECT_TRUE(Open().optNegativePlunge[1]->isChecked());
    Press("optNegativePlunge_0");
    PressOk();
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::LowerEnd);
}

TEST_F(FileFormatTest, TellsTheConventionsInWords) {
    Open();
    Press("optPlaneConv_6");
    Press("optLineConv_1");
    EXPECT_EQ(Of<QLabel>("lblConventions").text().toStdString(),
              "Planes as Strike,Dip (RH rule); Lines as Trend,Plunge (all in azimuth notation)");
}

TEST_F(FileFormatTest, NamesAndEnablesTheSelectors) {
    struct Row {
        std::vector<std::string> presses;
        std::map<int, std::string> enabled;
    };

    const Row rows[] = {
        {{"optPrimary_1"}, {{1, "direction"}}},
        {{"optPrimary_2"}, {{0, "dip"}, {1, "direction"}}},
        {{"optPrimary_3"}, {{0, "plunge"}, {1, "trend"}}},
        {{"optPlaneConv_3"}, {{0, "dip"}, {1, "strike"}, {2, "sense"}}},
        {{"optPlaneConv_5"}, {{0, "dip"}, {1, "strike"}}},
        {{"optSecondary_1"}, {{0, "dip"}, {1, "direction"}, {3, "plunge"}, {4, "trend"}}},
        {{"optSecondary_2", "optPlaneConv_4"},
         {{0, "dip"}, {1, "strike"}, {2, "sense"}, {3, "dip"}, {4, "strike"}, {5, "sense"}}},
        {{"optSecondary_3"}, {{0, "dip"}, {1, "direction"}, {4, "pitch"}, {5, "sense"}}},
        {{"optSecondary_4"}, {{0, "dip"}, {1, "direction"}, {4, "trend"}}},
        {{"optSecondary_5"}, {{0, "dip"}, {1, "direction"}, {4, "hade"}}},
        {{"chkAppended_0"}, {{0, "dip"}, {1, "direction"}, {6, "plunge"}, {7, "trend"}}},
        {{"chkAppended_1"}, {{0, "dip"}, {1, "direction"}, {8, "number"}}},
        {{"chkAppended_2"}, {{0, "dip"}, {1, "direction"}, {9, "text"}}},
    };
    for (const Row& row : rows) {
        Open();
        for (const std::string& name : row.presses) {
            Press(name);
        }
        for (int slot = 0; slot < kColumnSlots; ++slot) {
            const std::string number = std::to_string(slot);
            const auto found = row.enabled.find(slot);
            const bool isEnabled = found != row.enabled.end();
            EXPECT_EQ(Of<QComboBox>("cboColumns_" + number).isEnabled(), isEnabled)
                << row.presses[0] << ' ' << slot;
            if (isEnabled) {
                EXPECT_EQ(Of<QLabel>("lblColumns_" + number).text().toStdString(), found->second)
                    << row.presses[0];
                EXPECT_GE(Of<QComboBox>("cboColumns_" + number).currentIndex(), 0);
            }
        }
    }
}

TEST_F(FileFormatTest, PutsTheChosenColumnsIntoTheSlots) {
    Open();
    Press("optPlaneConv_3");
    Press("optSecondary_2");
    for (int box = 0; box < 3; ++box) {
        Press("chkAppended_" + std::to_string(box));
    }
    const int columns[] = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    for (int slot = 0; slot < kColumnSlots; ++slot) {
        Choose(slot, columns[slot]);
    }
    PressOk();
    EXPECT_TRUE(IsAccepted());
    EXPECT_EQ(gFileColumnSettings, (ColumnSettings{9, 8, 7, 6, 5, 4, 3, 2, 1, 0}));
}

TEST_F(FileFormatTest, FollowsTheOrderOfTheConvention) {
    Open();
    Press("optPlaneConv_3");
    EXPECT_EQ(dialog_->cboColumns[kSlotDirection]->currentIndex(), 0);
    EXPECT_EQ(dialog_->cboColumns[kSlotDip]->currentIndex(), 1);
    EXPECT_EQ(dialog_->cboColumns[kSlotSense]->currentIndex(), 2);
    Press("optPrimary_3");
    Press("optLineConv_1");
    EXPECT_EQ(dialog_->cboColumns[kSlotDirection]->currentIndex(), 0);
    EXPECT_EQ(dialog_->cboColumns[kSlotDip]->currentIndex(), 1);
}

TEST_F(FileFormatTest, PutsColumnsInOrderAgain) {
    Open();
    Choose(kSlotDip, 3);
    Choose(kSlotDirection, 2);
    Press("cmdInitialColumns");
    EXPECT_EQ(dialog_->cboColumns[kSlotDip]->currentIndex(), 0);
    EXPECT_EQ(dialog_->cboColumns[kSlotDirection]->currentIndex(), 1);
}

TEST_F(FileFormatTest, SetsNamesAndFrequency) {
    Open();
    EXPECT_FALSE(Of<QWidget>("cboAppName_0").isEnabled());
    EXPECT_FALSE(Of<QWidget>("cboAppName_1").isEnabled());
    EXPECT_FALSE(Of<QWidget>("chkFreqIsAppended").isEnabled());
    Press("chkAppended_1");
    Press("chkAppended_2");
    Press("chkFreqIsAppended");
    Of<QComboBox>("cboAppName_0").setCurrentText(" ore grade ");
    Of<QComboBox>("cboAppName_1").setCurrentText("season");
    EXPECT_EQ(dialog_->AppendedNumericName(), "ore grade");
    EXPECT_EQ(dialog_->AppendedNonNumericName(), "season");
    PressOk();
    EXPECT_EQ(gFileAppNumName, "ore grade");
    EXPECT_EQ(gFileAppNonNumName, "season");
    EXPECT_TRUE(gFileNumericAppended);
    EXPECT_TRUE(gFileNonNumericAppended);
    EXPECT_FALSE(gFileLineAppended);
    EXPECT_TRUE(dialog_->Answer().frequencyColumn);
}

TEST_F(FileFormatTest, HasNoFrequencyWithoutANumber) {
    FormatQuestion question;
    question.command = "New";
    question.frequencyColumn = true;
    Open(question);
    EXPECT_TRUE(Of<QCheckBox>("chkFreqIsAppended").isChecked());
    EXPECT_FALSE(dialog_->Answer().frequencyColumn);
    Press("chkAppended_1");
    EXPECT_TRUE(dialog_->Answer().frequencyColumn);
}

TEST_F(FileFormatTest, KeepsANameThatIsEmptied) {
    Open();
    Press("chkAppended_1");
    Of<QComboBox>("cboAppName_0").setCurrentText("  ");
    PressOk();
    EXPECT_FALSE(gFileAppNumName.empty());
}

TEST_F(FileFormatTest, SetsDelimiterAndSeparators) {
    const std::map<std::string, std::string> delimiters = {
        {"tab", "\t"}, {"space", " "}, {",", ","}, {";", ";"}, {"any", ""}};
    for (const auto& [name, delimiter] : delimiters) {
        Open();
        Of<QComboBox>("cboDelim").setCurrentText(QString::fromStdString(name));
        Of<QComboBox>("cboSeparator_0").setCurrentText("\\");
        Of<QComboBox>("cboSeparator_1").setCurrentText(",");
        PressOk();
        EXPECT_EQ(gFileDelimiter, delimiter);
        EXPECT_EQ(gPlaneSeparator, "\\");
        EXPECT_EQ(gLineSeparator, ",");
    }
}

TEST_F(FileFormatTest, TellsTheHeading) {
    Open();
    EXPECT_EQ(dialog_->HeaderString(), "");
    EXPECT_FALSE(dialog_->Answer().columnHeadings);
    Press("chkTableHeadings");
    EXPECT_EQ(dialog_->HeaderString(), "dip,direction,spacing,rock");
    EXPECT_TRUE(dialog_->Answer().columnHeadings);
    EXPECT_EQ(dialog_->cboColumns[0]->itemText(2), "3");
    EXPECT_EQ(dialog_->cboColumns[0]->itemData(2).toString(), "spacing");
    PressOk();
    EXPECT_TRUE(gSettings.format.hasHeadings);
}

// The preview.

TEST_F(FileFormatTest, SplitsThePreviewByTheDelimiter) {
    Open();
    QTableWidget& grid = Of<QTableWidget>("grdDataFormat");
    ASSERT_EQ(grid.rowCount(), 5);
    ASSERT_EQ(grid.columnCount(), 4);
    EXPECT_EQ(grid.item(1, 0)->text(), "45");
    EXPECT_EQ(grid.item(4, 3)->text(), "sandstone");
    EXPECT_EQ(grid.item(3, 0)->text(), "; a comment");
    EXPECT_EQ(grid.columnSpan(3, 0), 4);
    Of<QComboBox>("cboDelim").setCurrentText(";");
    ASSERT_EQ(grid.columnCount(), 1);
    EXPECT_EQ(grid.item(1, 0)->text(), "45,120,1.5,marl");
}

TEST_F(FileFormatTest, NamesAndColoursTheColumnsOfThePreview) {
    Open();
    Press("chkAppended_2");
    Choose(kSlotText, 3);
    QTableWidget& grid = Of<QTableWidget>("grdDataFormat");
    EXPECT_EQ(grid.horizontalHeaderItem(0)->text(), "1\ndip");
    EXPECT_EQ(grid.horizontalHeaderItem(1)->text(), "2\ndirection");
    EXPECT_EQ(grid.horizontalHeaderItem(2)->text(), "3\n");
    EXPECT_EQ(grid.horizontalHeaderItem(3)->text(), "4\ntype");
    std::set<QRgb> colours;
    for (const int column : {0, 1, 3}) {
        const QColor head = grid.horizontalHeaderItem(column)->background().color();
        const QColor cell = grid.item(1, column)->background().color();
        EXPECT_NE(head, cell);
        EXPECT_LE(std::abs(head.hslHue() - cell.hslHue()), 8) << "of one hue";
        colours.insert(head.rgb());
    }
    EXPECT_EQ(colours.size(), 3U);
    EXPECT_EQ(grid.item(1, 2)->background().style(), Qt::NoBrush) << "not read";
    EXPECT_EQ(grid.item(3, 0)->background().style(), Qt::NoBrush) << "a comment";
    Choose(kSlotDip, 2);
    EXPECT_EQ(grid.horizontalHeaderItem(2)->text(), "3\ndip");
    EXPECT_EQ(grid.horizontalHeaderItem(0)->text(), "1\n");
}

TEST_F(FileFormatTest, NamesBothItemsOfAColumn) {
    Open();
    Press("optPlaneConv_3");
    Choose(kSlotSense, 1);
    EXPECT_EQ(Of<QTableWidget>("grdDataFormat").horizontalHeaderItem(1)->text(), "2\ndip + sense");
}

TEST_F(FileFormatTest, PlotAsButtonsAnswerToBeingTurnedAsWellAsPressed) {
    Open();
    // Assistive technology turns a button without a press.
    const auto down = [this] {
        std::vector<int> kinds;
        for (int kind = kPlanes; kind <= kPolarLines; ++kind) {
            if (Of<QAbstractButton>("cmdDataType_" + std::to_string(kind)).isChecked()) {
                kinds.push_back(kind);
            }
        }
        return kinds;
    };
    ASSERT_EQ(down(), std::vector<int>{kPlanes});
    Of<QAbstractButton>("cmdDataType_2").setChecked(true);
    EXPECT_EQ(down(), std::vector<int>{kLines});
    Of<QAbstractButton>("cmdDataType_2").setChecked(false);
    EXPECT_EQ(down(), std::vector<int>{kLines}) << "one is always down";
    Of<QAbstractButton>("cmdDataType_3").toggle();
    EXPECT_EQ(down(), std::vector<int>{kPolarLines});
    Of<QAbstractButton>("cmdDataType_1").click();
    EXPECT_EQ(down(), std::vector<int>{kPlanes});
    PressOk();
    EXPECT_EQ(gPlotDataKind, kPlanes);
}

TEST_F(FileFormatTest, ColoursAreReadableInLightAndDark) {
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Text, Qt::white);
    QPalette light;
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
               + 0.0722 * linear(colour.blueF());
    };
    const auto contrast = [&](const QColor& one, const QColor& other) {
        const double a = luminance(one);
        const double b = luminance(other);
        return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
    };
    constexpr double kLegible = 4.5; // WCAG 2.1, 1.4.3
    for (const QPalette& palette : {light, dark}) {
        const QColor text = palette.color(QPalette::Text);
        EXPECT_GE(contrast(MutedText(palette), palette.color(QPalette::Base)), kLegible);
        for (int slot = 0; slot < kColumnSlots; ++slot) {
            for (const ItemPlace place : {ItemPlace::Heading, ItemPlace::Cell}) {
                EXPECT_GE(contrast(ItemColour(slot, place, palette), text), kLegible) << slot;
            }
        }
    }
}

TEST_F(FileFormatTest, FollowsThePaletteWhenItChanges) {
    Open();
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Window, QColor(50, 50, 50));
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    dialog_->setPalette(dark);
    const QColor expected = ItemColour(kSlotDip, ItemPlace::Heading, dark);
    EXPECT_EQ(Of<QTableWidget>("grdDataFormat").horizontalHeaderItem(0)->background().color(),
              expected);
    EXPECT_EQ(Of<QLabel>("lblColumns_0").palette().color(QPalette::Window), expected);
    EXPECT_EQ(Of<QLabel>("lblColumns_0").palette().color(QPalette::WindowText), QColor(Qt::white));
}

TEST_F(FileFormatTest, OpensWithoutAFileAndWithOneThatCannotBeRead) {
    FormatQuestion question;
    question.command = "None";
    Open(question);
    EXPECT_EQ(Of<QTableWidget>("grdDataFormat").rowCount(), 0);
    EXPECT_FALSE(Of<QLabel>("lblDataMismatch").isVisible());
    question.path = (folder / "none.txt").string();
    Open(question);
    EXPECT_TRUE(Of<QLabel>("lblPreview").text().startsWith("none.txt: "));
    EXPECT_EQ(Of<QTableWidget>("grdDataFormat").rowCount(), 0);
}

// Symbols.

/// How many pixels of a picture are of a colour.
int Count(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

TEST_F(FileFormatTest, DrawsTheSymbolsAndPutsThemBack) {
    const SymbolRow first = gSymbolTable[kRowSymbol];
    gSymbolTable[kRowSymbol] = {8, 3, 9}; // a large red square
    gSymbolTable[kUpRowSymbol] = {19, 3, 9};
    Open();
    const auto grabbed = [this](std::size_t i) {
        return dialog_->picCurrentSymbol[i]->grab().toImage();
    };
    EXPECT_GT(Count(grabbed(0), QColor(255, 0, 0)), 20);
    EXPECT_GT(Count(grabbed(1), QColor(0, 0, 255)), 20);
    Press("cmdButtons_2");
    EXPECT_EQ(Count(grabbed(0), QColor(255, 0, 0)), 0);
    EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{8, 3, 9})) << "before OK";
    PressOk();
    EXPECT_EQ(gSymbolTable[kRowSymbol], first);
}

TEST_F(FileFormatTest, ChangesBothSymbolsInThePicker) {
    const auto table = gSymbolTable;
    gSymbolTable[kRowSymbol] = {5, 3, 4};
    gSymbolTable[kUpRowSymbol] = {8, 7, 4};
    Open();
    EXPECT_TRUE(Of<QWidget>("cmdButtons_3").isEnabled());
    std::pair<SymbolRow, SymbolRow> asked;
    const auto answer = [&](bool takes) {
        QTimer::singleShot(0, dialog_.get(), [&asked, takes] {
            auto* picker = static_cast<frmSymbolSelect*>(QApplication::activeModalWidget());
            asked = {picker->Down(), picker->Up()};
            QTest::mouseClick(picker->picColour[19], Qt::LeftButton);
            QTest::mouseClick(picker->picSymbolTypes[13], Qt::RightButton);
            takes ? picker->accept() : picker->reject();
        });
        Press("cmdButtons_3");
    };
    const auto blue = [this] {
        return Count(dialog_->picCurrentSymbol[0]->grab().toImage(), QColor(0, 0, 255));
    };
    answer(false);
    EXPECT_EQ(asked, std::pair(SymbolRow{5, 3, 4}, SymbolRow{8, 7, 4}));
    EXPECT_EQ(blue(), 0);
    answer(true);
    EXPECT_GT(blue(), 5);
    EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{5, 3, 4})) << "before OK";
    PressOk();
    EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{19, 3, 4}));
    EXPECT_EQ(gSymbolTable[kUpRowSymbol], (SymbolRow{8, 13, 4}));
    gSymbolTable = table;
}

// The keyboard.

TEST_F(FileFormatTest, TakesEnterForOkAndEscForCancel) {
    Open();
    EXPECT_TRUE(Of<QPushButton>("cmdButtons_0").isDefault());
    QTest::keyClick(dialog_.get(), Qt::Key_Return);
    EXPECT_TRUE(IsAccepted());
    Open();
    QTest::keyClick(dialog_.get(), Qt::Key_Escape);
    EXPECT_FALSE(IsAccepted());
    EXPECT_FALSE(Stays());
}

TEST_F(FileFormatTest, HasUniqueMnemonicsOnEachPage) {
    Open();
    auto& tabs = Of<QTabWidget>("tabConventions");
    for (int page = 0; page < tabs.count(); ++page) {
        tabs.setCurrentIndex(page);
        std::map<QString, QString> owners;
        const auto take = [&owners](const QString& text) {
            const int at = static_cast<int>(text.indexOf('&'));
            if (at >= 0) {
                const QString key = text.mid(at + 1, 1).toLower();
                EXPECT_EQ(owners.count(key), 0U)
                    << text.toStdString() << " and " << owners[key].toStdString();
                owners[key] = text;
            }
        };
        for (int i = 0; i < tabs.count(); ++i) {
            take(tabs.tabText(i));
        }
        for (const auto* button : dialog_->findChildren<QAbstractButton*>()) {
            if (button->isVisible()) {
                take(button->text());
            }
        }
        for (const auto* box : dialog_->findChildren<QGroupBox*>()) {
            if (box->isVisible()) {
                take(box->title());
            }
        }
        for (const auto* label : dialog_->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                take(label->text());
            }
        }
        EXPECT_GE(owners.size(), 10U);
    }
}

TEST_F(FileFormatTest, ReactsToAltKeys) {
    Open();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
    QTest::keyClick(dialog_.get(), Qt::Key_V, Qt::AltModifier);
    EXPECT_EQ(Of<QTabWidget>("tabConventions").currentIndex(), 1);
    QTest::keyClick(dialog_.get(), Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(Of<QTabWidget>("tabConventions").currentIndex(), 0);
    QTest::keyClick(dialog_.get(), Qt::Key_L, Qt::AltModifier);
    // A button pressed by its key is shown down for a moment before it acts.
    EXPECT_TRUE(QTest::qWaitFor([this] { return Of<QPushButton>("cmdDataType_2").isChecked(); }));
    QTest::keyClick(dialog_.get(), Qt::Key_F, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Of<QCheckBox>("chkTableHeadings").isChecked(); }));
    QTest::keyClick(dialog_.get(), Qt::Key_D, Qt::AltModifier);
    EXPECT_EQ(dialog_->focusWidget(), &Of<QWidget>("cboDelim"));
}

TEST_F(FileFormatTest, GoesThroughAllControlsByTab) {
    Open();
    dialog_->activateWindow();
    Press("optSecondary_1");
    Press("chkAppended_0");
    Press("chkAppended_1");
    Press("chkAppended_2");
    dialog_->optPrimary[2]->setFocus();
    std::vector<std::string> visited;
    for (int i = 0; i < 60; ++i) {
        QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
        visited.push_back(dialog_->focusWidget()->objectName().toStdString());
        if (visited.back() == "optPrimary_2") {
            break;
        }
    }
    const auto at = [&visited](const std::string& name) {
        const auto found = std::find(visited.begin(), visited.end(), name);
        EXPECT_NE(found, visited.end()) << name;
        return found;
    };
    const char* const order[] = {
        "cboColumns_0",      "cboColumns_1",      "optSecondary_1",    "cboColumns_3",
        "cboColumns_4",      "chkAppended_0",     "chkAppended_1",     "cboAppName_0",
        "chkAppended_2",     "cboAppName_1",      "chkFreqIsAppended", "cboColumns_6",
        "cboColumns_7",      "cboColumns_8",      "cboColumns_9",      "cmdInitialColumns",
        "chkSaveSettings_0", "chkSaveSettings_2", "cmdDataType_1",     "cmdDataType_2",
        "cmdDataType_3",     "chkSecondaryData",  "cmdButtons_3",      "cmdButtons_2",
        "cboDelim",          "chkTableHeadings",  "grdDataFormat",     "cmdButtons_0",
        "cmdButtons_1"};
    for (std::size_t i = 1; i < std::size(order); ++i) {
        EXPECT_LT(at(order[i - 1]), at(order[i])) << order[i];
    }
}

TEST_F(FileFormatTest, NamesControlsForScreenReaders) {
    Open();
    EXPECT_EQ(dialog_->cboColumns[kSlotDip]->accessibleName(), "Column of dip");
    EXPECT_FALSE(Of<QWidget>("cboAppName_0").accessibleName().isEmpty());
    EXPECT_FALSE(Of<QWidget>("grdDataFormat").accessibleName().isEmpty());
    EXPECT_FALSE(Of<QWidget>("picCurrentSymbol_0").accessibleName().isEmpty());
}

TEST_F(FileFormatTest, FitsIntoASmallScreen) {
    Open();
    Press("optSecondary_2");
    Press("optPlaneConv_2"); // with a warning
    for (int page = 0; page < 2; ++page) {
        Of<QTabWidget>("tabConventions").setCurrentIndex(page);
        dialog_->grab();
        EXPECT_LE(dialog_->width(), 1000);
        EXPECT_LE(dialog_->height(), 700);
    }
    EXPECT_LE(dialog_->minimumSizeHint().width(), 1000);
}

} // namespace
} // namespace quandrel
