// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/setting_keys.h"
#include "input/file_loading.h"
#include "shell/format/file_format_fixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace quandrel {
namespace {

// The plot type.

TEST_F(FileFormatTest, PresetsThePlotTypeByTheFileElseByTheFormat) {
    struct Row {
        std::int16_t primary;
        int fromFile;
        int pressed;
    };

    const Row rows[] = {{2, 0, 1}, {3, 0, 2}, {1, 0, 2}, {2, 2, 2}, {2, 3, 3}, {3, 1, 1}};
    for (const Row& row : rows) {
        gPrimaryDataType = row.primary;
        FormatQuestion question;
        question.command = "New";
        question.plotKindFromFile = row.fromFile;
        Open(question);
        for (int kind = 1; kind <= 3; ++kind) {
            EXPECT_EQ(Of<QPushButton>("cmdDataType_" + std::to_string(kind)).isChecked(),
                      kind == row.pressed)
                << row.primary << ' ' << row.fromFile;
        }
    }
}

TEST_F(FileFormatTest, HasNoPlanesOfDirections) {
    Open();
    Press("optPrimary_1");
    EXPECT_FALSE(Of<QPushButton>("cmdDataType_1").isEnabled());
    EXPECT_TRUE(Of<QPushButton>("cmdDataType_2").isChecked());
    Press("optPrimary_2");
    EXPECT_TRUE(Of<QPushButton>("cmdDataType_1").isEnabled());
}

TEST_F(FileFormatTest, SetsTheKindOfPlot) {
    gPrimaryDataType = kPrimaryLine;
    Open();
    Press("cmdDataType_3");
    EXPECT_TRUE(Of<QPushButton>("cmdDataType_3").isChecked());
    EXPECT_FALSE(Of<QPushButton>("cmdDataType_2").isChecked());
    PressOk();
    EXPECT_EQ(gPlotDataKind, kPolarLines);
}

TEST_F(FileFormatTest, AsksWhenFormatAndPlotTypeDisagree) {
    Open();
    Press("cmdDataType_2");
    Expect("You have indicated that your Primary data are Planes\nDo you want to continue and plot "
           "these as Lines?",
           Button::Cancel);
    PressOk();
    EXPECT_TRUE(Stays());
    EXPECT_EQ(gPlotDataKind, kPlanes);
    Expect("You have indicated that your Primary data are Planes", Button::Ok);
    PressOk();
    EXPECT_TRUE(IsAccepted());
    EXPECT_EQ(gPlotDataKind, kLines);
    for (const ShownBox& box : prompts.Shown()) {
        EXPECT_EQ(box.message.title, gCaption);
        EXPECT_EQ(box.message.buttons, Buttons::OkCancel);
    }
}

/// A dialog on a file of directions that calls itself one of planes: no plot type can be preset.
FormatQuestion Contradiction(const std::string& command) {
    gPrimaryDataType = kDirections;
    FormatQuestion question;
    question.command = command;
    question.plotKindFromFile = kPlanes;
    return question;
}

TEST_F(FileFormatTest, AsksWhenNoPlotTypeIsChosen) {
    const char* const text = "You have not yet selected the type of data to be plotted.\nIf you "
                             "Cancel now no data will be plotted.\nDo you want to plot this data?";
    Open(Contradiction("New"));
    Expect(text, Button::Cancel);
    PressOk();
    EXPECT_FALSE(Stays()) << "no data are plotted";
    EXPECT_FALSE(IsAccepted());
    Open(Contradiction("New"));
    Expect(text, Button::Ok);
    PressOk();
    EXPECT_TRUE(IsAccepted());
    EXPECT_EQ(gPlotDataKind, kLines);
}

TEST_F(FileFormatTest, AsksNothingAboutPlotsWhenNothingIsPlotted) {
    Open(Contradiction("None"));
    PressOk();
    EXPECT_TRUE(IsAccepted());
    gPrimaryDataType = kPrimaryPlane;
    Open("None");
    Press("cmdDataType_2");
    PressOk();
    EXPECT_TRUE(IsAccepted());
    EXPECT_EQ(gPlotDataKind, kLines);
}

TEST_F(FileFormatTest, PlotsTheSecondarySetWhereThereIsOne) {
    Open();
    EXPECT_FALSE(Of<QWidget>("chkSecondaryData").isEnabled());
    Press("optSecondary_1");
    EXPECT_TRUE(Of<QWidget>("chkSecondaryData").isEnabled());
    Press("chkSecondaryData");
    EXPECT_TRUE(dialog_->PlotSecondary());
    EXPECT_TRUE(Of<QPushButton>("cmdDataType_2").isChecked()) << "lines are plotted now";
    PressOk();
    EXPECT_TRUE(dialog_->Answer().plotSecondary);
    Open();
    Press("chkSecondaryData");
    Press("cmdDataType_1");
    Expect(
        "You have indicated that your Secondary data are Lines\nDo you want to continue and plot "
        "these as Planes?",
        Button::Cancel);
    PressOk();
    EXPECT_TRUE(Stays());
    Press("optSecondary_0");
    EXPECT_FALSE(dialog_->PlotSecondary());
    EXPECT_FALSE(dialog_->Answer().plotSecondary);
}

TEST_F(FileFormatTest, ShowsTheSetOfThePlotThatRowsJoin) {
    NewPlot();
    ActiveRecord().NumLoadedData = 4;
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    ActiveRecord().ShowSecondary = kTrue;
    gSecondaryDataType = kSecondaryLine;
    Open("Merge");
    EXPECT_TRUE(Of<QCheckBox>("chkSecondaryData").isChecked());
    EXPECT_FALSE(Of<QCheckBox>("chkSecondaryData").isEnabled());
    EXPECT_FALSE(Of<QCheckBox>("chkSecondaryData").toolTip().isEmpty());
}

// Columns on OK.

TEST_F(FileFormatTest, StaysWithAColumnThatIsUsedTwice) {
    Open();
    dialog_->activateWindow();
    Choose(kSlotDirection, 0);
    Of<QTabWidget>("tabConventions").setCurrentIndex(1);
    Expect("Column 1 is used more than once for the same orientation data\nThis must be resolved "
           "before the data can be plotted",
           Button::Ok);
    const ColumnSettings before = gFileColumnSettings;
    PressOk();
    EXPECT_TRUE(Stays());
    EXPECT_EQ(gFileColumnSettings, before);
    EXPECT_EQ(prompts.Shown().back().message.buttons, Buttons::Ok);
    EXPECT_EQ(Of<QTabWidget>("tabConventions").currentIndex(), 0);
    EXPECT_EQ(dialog_->focusWidget(), dialog_->cboColumns[kSlotDirection]);
}

TEST_F(FileFormatTest, AsksAboutSharedColumnsOneAfterTheOther) {
    const char* const questions[] = {"contains both the Dip and the Sense",
                                     "is used both for the appended line and for other orientation",
                                     "is used both for the appended Length and for the appended",
                                     "is used to refer to different orientation data items"};
    // All up to number n - 1 are accepted, number n is not.
    for (int refused = 0; refused <= 4; ++refused) {
        SetDefaultSettings();
        Open();
        Press("optPlaneConv_3");
        Press("optSecondary_1");
        for (int box = 0; box < 3; ++box) {
            Press("chkAppended_" + std::to_string(box));
        }
        Choose(kSlotSense, dialog_->cboColumns[kSlotDip]->currentIndex());
        Choose(kSlotAppendedPlunge, dialog_->cboColumns[kSlotDirection]->currentIndex());
        Choose(kSlotText, dialog_->cboColumns[kSlotNumber]->currentIndex());
        Choose(kSlotSecondaryDip, dialog_->cboColumns[kSlotDip]->currentIndex());
        for (int i = 0; i < 4 && i <= refused; ++i) {
            Expect(questions[i], i == refused ? Button::Cancel : Button::Ok);
        }
        PressOk();
        EXPECT_EQ(Stays(), refused < 4) << refused;
        EXPECT_EQ(IsAccepted(), refused == 4) << refused;
        EXPECT_EQ(prompts.Problems(), "");
    }
}

TEST_F(FileFormatTest, ChecksColumnsWhenNothingIsPlottedToo) {
    Open("None");
    Choose(kSlotDirection, 0);
    Expect("is used more than once", Button::Ok);
    PressOk();
    EXPECT_TRUE(Stays());
}

// Saving.

TEST_F(FileFormatTest, SavesTheGroupsThatAreTicked) {
    for (int ticks = 0; ticks < 8; ++ticks) {
        settings = MemorySettingsStore();
        Open();
        for (int box = 0; box < 3; ++box) {
            if ((ticks >> box & 1) != 0) {
                Press("chkSaveSettings_" + std::to_string(box));
            }
        }
        PressOk();
        const auto isSaved = [this](const std::string& key) { return Saved(key) != "nothing"; };
        const bool columns = (ticks & 1) != 0;
        const bool conventions = (ticks & 2) != 0;
        const bool names = (ticks & 4) != 0;
        for (std::size_t slot = 0; slot < kColumnSlots; ++slot) {
            EXPECT_EQ(isSaved(ColumnKey(slot)), columns) << ticks;
        }
        for (const char* key : {"gSecondaryDataType", "gFileLineAppended", "gFileNumericAppended",
                                "gFileNonNumericAppended"}) {
            EXPECT_EQ(isSaved(key), columns) << key << ticks;
        }
        for (const char* key :
             {"Conventions", "PlaneSeparator", "LineSeparator", "gFileDelimiter"}) {
            EXPECT_EQ(isSaved(key), conventions) << key << ticks;
        }
        for (const char* key : {"gFileAppNumName", "gFileAppNonNumName"}) {
            EXPECT_EQ(isSaved(key), names) << key << ticks;
        }
        EXPECT_FALSE(isSaved("gPrimaryDataType"));
    }
}

TEST_F(FileFormatTest, SavesWhatWasChosen) {
    Open();
    Press("optPlaneConv_2");
    Press("chkSaveSettings_0");
    Press("chkSaveSettings_1");
    PressOk();
    EXPECT_EQ(Saved("Conventions"), "2");
    EXPECT_EQ(Saved(ColumnKey(0)), "1");
}

TEST_F(FileFormatTest, UsesSavedColumnSettings) {
    Open();
    EXPECT_FALSE(Of<QWidget>("cmdUseSaved").isEnabled());
    EXPECT_FALSE(Of<QWidget>("cmdUseSaved").toolTip().isEmpty());
    Press("optSecondary_4");
    Press("chkAppended_2");
    Choose(kSlotText, 7);
    Choose(kSlotDip, 3);
    Press("chkSaveSettings_0");
    PressOk();
    SetDefaultSettings();
    gFileNonNumericAppended = false;
    Open();
    EXPECT_TRUE(Of<QWidget>("cmdUseSaved").isEnabled());
    Press("cmdUseSaved");
    EXPECT_TRUE(Of<QRadioButton>("optSecondary_4").isChecked());
    EXPECT_TRUE(Of<QCheckBox>("chkAppended_2").isChecked());
    EXPECT_EQ(dialog_->cboColumns[kSlotText]->currentIndex(), 7);
    EXPECT_EQ(dialog_->cboColumns[kSlotDip]->currentIndex(), 3);
    PressOk();
    EXPECT_EQ(gSecondaryDataType, kTrendInPlane);
    EXPECT_EQ(gFileColumnSettings[kSlotText], 7);
}

class FullStore : public MemorySettingsStore {
public:
    [[nodiscard]] bool Sync() override { return false; }
};

TEST_F(FileFormatTest, TellsWhenSettingsCannotBeSaved) {
    FullStore full;
    gPlatform.settings = &full;
    Open();
    Press("chkSaveSettings_1");
    Expect("could not be saved");
    PressOk();
    EXPECT_TRUE(IsAccepted()) << "the data can be plotted all the same";
    gPlatform.settings = &settings;
}

// Doubts.

TEST_F(FileFormatTest, MarksSuspiciousSettingsOfAnUnknownFile) {
    Open();
    QLabel& mismatch = Of<QLabel>("lblDataMismatch");
    EXPECT_FALSE(mismatch.isVisible());
    const FormatSettings before = gSettings.format;
    Press("optPlaneConv_2");
    ASSERT_TRUE(mismatch.isVisible());
    EXPECT_TRUE(mismatch.accessibleDescription().startsWith(
        "Column 2 is the dip, but holds \"120\" in line 2, above 90; has it been swapped"));
    EXPECT_TRUE(mismatch.toolTip().contains("above 90"));
    EXPECT_TRUE(Of<QLabel>("lblMismatchReasons").text().contains("above 90"));
    EXPECT_TRUE(Of<QRadioButton>("optPlaneConv_2").isChecked()) << "no setting is changed";
    EXPECT_EQ(gSettings.format.conventions, before.conventions);
    Press("optPlaneConv_1");
    EXPECT_FALSE(mismatch.isVisible());
    EXPECT_TRUE(mismatch.accessibleDescription().isEmpty());
    Of<QComboBox>("cboDelim").setCurrentText("tab");
    EXPECT_TRUE(mismatch.accessibleDescription().contains("with \",\" there are 4"));
}

TEST_F(FileFormatTest, DoesNotDoubtFilesThatItKnows) {
    const char* const steep = "45,120\n91,120\n";
    path_ = WriteFile("steep.csv", steep);
    Open();
    EXPECT_TRUE(Of<QLabel>("lblDataMismatch").isVisible());
    gSettings.files.recent = {path_};
    Open();
    EXPECT_FALSE(Of<QLabel>("lblDataMismatch").isVisible());
    Of<QComboBox>("cboDelim").setCurrentText("tab");
    EXPECT_TRUE(Of<QLabel>("lblDataMismatch").isVisible()) << "what cannot work is always reported";
    gSettings.files.recent.clear();
    path_ = WriteFile("own.csv", std::string("/T1 /C1\n") + steep);
    Open();
    EXPECT_FALSE(Of<QLabel>("lblDataMismatch").isVisible());
}

TEST_F(FileFormatTest, ShowsTextsOfFilesAsTheyAre) {
    path_ = WriteFile("html.csv", "<b>45</b>1,120\n<b>45</b>1,120\n");
    Open();
    QLabel& reasons = Of<QLabel>("lblMismatchReasons");
    EXPECT_EQ(reasons.textFormat(), Qt::PlainText);
    EXPECT_TRUE(reasons.text().contains("<b>"));
    EXPECT_FALSE(reasons.toolTip().contains("<b>"));
    EXPECT_TRUE(reasons.toolTip().contains("&lt;b&gt;"));
}

TEST_F(FileFormatTest, TellsWhatDoesNotFitThePlotThatRowsJoin) {
    NewPlot();
    ActiveRecord().NumLoadedData = 4;
    ActiveRecord().HasAppendedNumeric = kTrue;
    Open("Merge");
    EXPECT_TRUE(Of<QLabel>("lblDataMismatch").accessibleDescription().contains("appended number"));
    Press("chkAppended_1");
    EXPECT_FALSE(Of<QLabel>("lblDataMismatch").isVisible());
}

TEST_F(FileFormatTest, TellsWhichDataThereAreNone) {
    Open();
    EXPECT_TRUE(Of<QLabel>("lblOtherData_0").isVisible());
    EXPECT_TRUE(Of<QLabel>("lblOtherData_1").isVisible());
    Press("optSecondary_1");
    EXPECT_FALSE(Of<QLabel>("lblOtherData_0").isVisible());
    EXPECT_TRUE(Of<QLabel>("lblOtherData_1").isVisible());
    for (int box = 0; box < 3; ++box) {
        Press("chkAppended_" + std::to_string(box));
        EXPECT_FALSE(Of<QLabel>("lblOtherData_1").isVisible()) << box;
        Press("chkAppended_" + std::to_string(box));
        EXPECT_TRUE(Of<QLabel>("lblOtherData_1").isVisible()) << box;
    }
}

// A whole load.

TEST_F(FileFormatTest, LoadsAFileAsTheDialogSays) {
    path_ = WriteFile("joints.csv", "station,dip direction,dip,spacing,rock\n"
                                    "Q1,320,85,1.5,limestone\n"
                                    "Q2,52,30,0.25,marl\n");
    int headings = 0;
    prompts.OnFormat([&](const FormatQuestion& question) -> std::optional<FormatAnswer> {
        frmFileFormat& dialog = Open(question);
        Press("cmdOwnSettings");
        Press("chkTableHeadings");
        Press("optPlaneConv_2");
        Choose(kSlotDirection, 1);
        Choose(kSlotDip, 2);
        Press("chkAppended_1");
        Press("chkAppended_2");
        headings = static_cast<int>(dialog.HeaderString().size());
        Of<QComboBox>("cboAppName_0").setCurrentText("spacing");
        PressOk();
        return IsAccepted() ? std::optional<FormatAnswer>(dialog.Answer()) : std::nullopt;
    });
    const int slot = NewPlot();
    ASSERT_EQ(ReadTextFile(kNewCommand, path_), kNewCommand);
    EXPECT_EQ(headings, 38);
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
    EXPECT_EQ(ActiveRecord().AppNumName, "spacing");
    EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
    EXPECT_EQ(gDataDip.At(slot, 1), 85);
    EXPECT_EQ(gDataAz.At(slot, 1), 320);
    EXPECT_EQ(gDataDip.At(slot, 2), 30);
    EXPECT_EQ(gDataAz.At(slot, 2), 52);
    EXPECT_EQ(gAppNumeric.At(slot, 1), 1.5F);
    EXPECT_EQ(gAppText(slot, 2), "marl");
}

} // namespace
} // namespace quandrel
