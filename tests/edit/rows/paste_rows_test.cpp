// SPDX-License-Identifier: MIT

#include "edit/commands/edit_menu.h"
#include "edit/edit_plot.h"
#include "edit/history/edit_step.h"
#include "edit/rows/edit_rows.h"
#include "edit/rows/paste_rows.h"
#include "edit/rows/pasted_format.h"

#include <random>

namespace quandrel {

namespace {

using PasteRows = EditTest;
using Texts = std::vector<std::string>;

constexpr const char* kOwnPlanes = ";Quandrel, ver 9.5.1\r\n/T1\t/P0\t/N1\t/I2\t/C1\t/15\r\n";
constexpr const char* kOwnLines = ";Quandrel, ver 9.5.1\r\n/T2\t/P0\t/N1\t/I2\t/C1\t/15\r\n";
constexpr const char* kOwnPolarLines = ";Quandrel, ver 9.5.1\r\n/T3\t/P0\t/N1\t/I2\t/C1\t/15\r\n";

std::vector<std::int32_t> AllRows(int slot) {
    std::vector<std::int32_t> rows;
    for (std::int32_t row = 1; row <= RecordOf(slot).NumLoadedData; ++row) {
        rows.push_back(row);
    }
    return rows;
}

TEST_F(PasteRows, IntoAnEmptyPlotTakesTheKindOfTheTextAndAsksNothing) {
    for (const std::int16_t kind : {kPlanes, kLines, kPolarLines}) {
        const int slot = NewPlanes({});
        clipboard.SetText(std::string(kind == kPlanes  ? kOwnPlanes
                                      : kind == kLines ? kOwnLines
                                                       : kOwnPolarLines)
                          + "30\t120\r\n");
        PasteData();
        const PlotRecord& record = RecordOf(slot);
        EXPECT_EQ(record.DataKind, kind);
        EXPECT_EQ(record.PrimaryFormat, kind == kPlanes ? kPrimaryPlane : kPrimaryLine);
        EXPECT_EQ(record.NumValidData, 1);
        EXPECT_EQ(record.NumLoadedData, 1);
        EXPECT_NE(record.Modified, 0);
        EXPECT_EQ(gDataDip(slot, 1), 30);
        EXPECT_EQ(gDataAz(slot, 1), 120);
        EXPECT_EQ(gLastEditKind, kPasteEdit);
        EXPECT_EQ(UndoCaption(), "&Undo Paste");
    }
}

TEST_F(PasteRows, OfAllFieldsIntoAnEmptyPlotGivesTheSameRows) {
    std::mt19937 random(17);
    const int source = NewPlanes({});
    for (int row = 0; row < 60; ++row) {
        AddRow(static_cast<std::int32_t>(random() % 91), static_cast<std::int32_t>(random() % 360));
        gDataOrder.At(source, row + 1) = row + 1;
    }
    AddFields();
    gData2Dip.At(source, 7) = kErrorRow;
    gData2Az.At(source, 7) = kErrorRow;
    gAppLineDip.At(source, 8) = kInvalidAppendedLine;
    gAppLineAz.At(source, 8) = 0;
    gAppNumeric.At(source, 9) = kInvalidNumber;
    gAppText.Set(source, 10, "");
    gAppText.Set(source, 11, "\"quoted\"");
    SelectRows(source, AllRows(source));
    EditSelection(kCopyAllItem);
    const int target = NewPlanes({});
    PasteData();
    EXPECT_EQ(Rows(target), Rows(source));
    EXPECT_EQ(RecordOf(target).AppNumName, "Length");
    EXPECT_EQ(RecordOf(target).AppNonNumName, "Rock");
    EXPECT_EQ(RecordOf(target).SecondaryFormat, kSecondaryLine);
}

TEST_F(PasteRows, DoesNotMindTheFormatInForceAndLeavesIt) {
    gConventions = -3;
    gFileDelimiter = ";";
    gPrimaryDataType = kPrimaryLine;
    gSettings.format.hasHeadings = true;
    gDecimalIsComma = true;
    const int source = NewPlanes({{30, 120}, {45, 7}});
    AddFields();
    SelectRows(source, {1, 2});
    EditSelection(kCopyAllItem);
    const int target = NewPlanes({});
    PasteData();
    EXPECT_EQ(RecordOf(target).NumData, 2);
    EXPECT_EQ(gDataDip(target, 2), 45);
    EXPECT_EQ(gAppNumeric(target, 1), 1.5F);
    EXPECT_EQ(gConventions, -3);
    EXPECT_EQ(gFileDelimiter, ";");
    EXPECT_EQ(gPrimaryDataType, kPrimaryLine);
    EXPECT_TRUE(gSettings.format.hasHeadings);
}

TEST_F(PasteRows, OfTheSameKindAsksNothing) {
    const int slot = NewPlanes({{1, 2}});
    clipboard.SetText(std::string(kOwnPlanes) + "30\t120\r\n60\t300\r\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(gDataDip(slot, 3), 60);
    EXPECT_EQ(gDataSymbol(slot, 3), CodeOfStyleRow(0));
}

TEST_F(PasteRows, OfAnotherKindAsksWithTheWholeQuestion) {
    NewPlanes({{1, 2}});

    const struct {
        std::int16_t plot;
        const char* text;
        const char* question;
    } cases[] = {
        {kPlanes, kOwnLines, "You are trying to paste lines into a plot containing planes."},
        {kPlanes, kOwnPolarLines,
         "You are trying to paste polar lines into a plot containing planes."},
        {kLines, kOwnPlanes, "You are trying to paste planes into a plot containing lines."},
        {kPolarLines, kOwnLines,
         "You are trying to paste lines into a plot containing polar lines."},
    };

    for (const auto& row : cases) {
        ActiveRecord().DataKind = row.plot;
        ActiveRecord().PrimaryFormat = row.plot == kPlanes ? kPrimaryPlane : kPrimaryLine;
        const PastedFormat format =
            FormatOfPastedText(gSettings.format, ReadParameterLines(row.text), true);
        EXPECT_EQ(QuestionBeforePaste(ActiveRecord(), format),
                  std::string(row.question)
                      + "\nThe pasted data will be transformed into the new format."
                        "\nContinue pasting?");
    }
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    ParameterItems items =
        ReadParameterLines(";Quandrel\r\n/T3\t/I2\t/C1\t/12\t/23\t/S1\t/A0\t/L0\t/W0\r\n");
    ActiveRecord().DataKind = kPlanes;
    EXPECT_EQ(
        QuestionBeforePaste(ActiveRecord(), FormatOfPastedText(gSettings.format, items, true)),
        "You are trying to paste Secondary polar lines into a plot containing planes."
        "\nThe pasted data will be transformed into the new format."
        "\n(This may have unwanted side effects if you try to use the data in this new data "
        "set)\nContinue pasting?");
    items.S = false;
    const auto primary =
        QuestionBeforePaste(ActiveRecord(), FormatOfPastedText(gSettings.format, items, true));
    ASSERT_TRUE(primary);
    EXPECT_NE(primary->find("paste Primary polar lines"), std::string::npos);
}

TEST_F(PasteRows, ANoLeavesThePlotAsItWas) {
    const int slot = NewPlanes({{1, 2}});
    const Texts before = Rows(slot);
    clipboard.SetText(std::string(kOwnLines) + "30\t120\r\n");
    Expect("You are trying to paste lines", Button::No);
    PasteData();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(RecordOf(slot).Modified, 0);
}

TEST_F(PasteRows, BetweenPlanesAndLinesKeepsThePlacesOnTheNet) {
    std::mt19937 random(3);
    std::vector<Attitude> rows;
    for (int i = 0; i < 50; ++i) {
        rows.push_back(
            {static_cast<std::int32_t>(random() % 91), static_cast<std::int32_t>(random() % 360)});
    }
    for (const bool fromPlanes : {true, false}) {
        const int source = fromPlanes ? NewPlanes(rows) : NewLines(rows);
        const std::vector<Point> places = Places(source);
        for (const int item : {kCopyItem, kCopyAllItem}) {
            gActivePlot = source;
            SelectRows(source, AllRows(source));
            EditSelection(item);
            const int target = fromPlanes ? NewLines({{0, 0}}) : NewPlanes({{0, 0}});
            Expect("You are trying to paste", Button::Yes);
            PasteData();
            ASSERT_EQ(RecordOf(target).NumData, 51);
            for (std::size_t i = 0; i < places.size(); ++i) {
                ExpectSamePlace(Places(target)[i + 1], places[i]);
            }
        }
    }
}

TEST_F(PasteRows, ColumnsThatThePlotLacksAreDropped) {
    const int source = NewPlanes({{30, 120}});
    AddFields();
    SelectRows(source, {1});
    EditSelection(kCopyAllItem);
    const int target = NewPlanes({{1, 2}});
    PasteData();
    EXPECT_EQ(RecordOf(target).NumData, 2);
    EXPECT_EQ(gDataDip(target, 2), 30);
    EXPECT_EQ(RecordOf(target).HasAppendedText, 0);
    EXPECT_EQ(RecordOf(target).SecondaryFormat, kNoSecondary);
}

TEST_F(PasteRows, ColumnsThatTheTextLacksAreMissingValues) {
    const int slot = NewPlanes({{1, 2}});
    AddFields();
    clipboard.SetText(std::string(kOwnPlanes) + "30\t120\r\n");
    PasteData();
    ASSERT_EQ(RecordOf(slot).NumData, 2);
    EXPECT_EQ(gData2Dip(slot, 2), kErrorRow);
    EXPECT_EQ(gAppLineDip(slot, 2), kInvalidAppendedLine);
    EXPECT_EQ(gAppNumeric(slot, 2), kInvalidNumber);
    EXPECT_EQ(gAppText(slot, 2), "");
    EXPECT_EQ(gAppText(slot, 1), "rock 1");
}

TEST_F(PasteRows, RefusedLinesAreToldAndTheOthersGoIn) {
    const int slot = NewPlanes({{1, 2}});
    clipboard.SetText(std::string(kOwnPlanes)
                      + "30\t120\r\n95\t10\r\nword\r\n\r\n; comment\r\n60\t300");
    Expect("2 lines of the text are not data and were not pasted.");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(RecordOf(slot).NumValidData, 3);
    EXPECT_EQ(gDataDip(slot, 3), 60);
}

TEST_F(PasteRows, ATextWithoutAnyRowChangesNothing) {
    const int slot = NewLines({});
    clipboard.SetText(std::string(kOwnPlanes) + "99\t999\r\n");
    Expect("1 line of the text is not data and was not pasted.");
    PasteData();
    EXPECT_EQ(RecordOf(slot).DataKind, kLines);
    EXPECT_EQ(RecordOf(slot).PrimaryFormat, kPrimaryLine);
    EXPECT_EQ(RecordOf(slot).NumLoadedData, 0);
    EXPECT_EQ(RecordOf(slot).Modified, 0);
    EXPECT_FALSE(CanUndo());
}

TEST_F(PasteRows, OverAnOverlayGoesToAnOverlayMadeByHand) {
    const int slot = NewPlanes({{1, 2}});
    AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
    RecordOf(slot).OverlayFiles[1] = {"lines.txt"};
    const Texts before = Rows(slot);
    clipboard.SetText(std::string(kOwnPlanes) + "30\t120\r\n");
    PasteData();
    const PlotRecord& record = RecordOf(slot);
    EXPECT_EQ(record.NumData, 1);
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(record.OverlayKind[1], kOverlayLines);
    EXPECT_EQ(record.OverlayKind[2], kOverlayPolarLines);
    EXPECT_EQ(record.OverlayRows[2], 1);
    // The pole of 30/120 is 60/300.
    EXPECT_EQ(gDataDip(slot, 3), 60);
    EXPECT_EQ(gDataAz(slot, 3), 300);
    UndoEdits();
    EXPECT_EQ(Rows(slot), before);
    RedoEdits();
    PasteData();
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 2);
    EXPECT_EQ(record.OverlayRows[2], 2);
}

TEST_F(PasteRows, TooManyOverlaysAreTold) {
    const int slot = NewPlanes({{1, 2}});
    for (int k = 0; k < kMaxOverlays; ++k) {
        AddOverlay(kOverlayLines, 20, 50, CodeOfStyleRow(3));
    }
    const Texts before = Rows(slot);
    clipboard.SetText(std::string(kOwnPlanes) + "30\t120\r\n");
    Expect("You can't overlay any more points on this plot");
    PasteData();
    EXPECT_EQ(Rows(slot), before);
}

TEST_F(PasteRows, OverSecondaryDataPointsGoToAnOverlayAndFullRowsToTheMainRows) {
    const int slot = NewPlanes({{30, 120}});
    AddFields();
    PlotRecord& record = RecordOf(slot);
    record.ShowSecondary = kTrue;
    record.DataKind = kLines;
    RebuildRowTable(slot);
    const Point place = Places(slot)[0];
    SelectRows(slot, {1});
    EditSelection(kCopyAllItem);
    PasteData();
    EXPECT_EQ(record.NumData, 2);
    EXPECT_EQ(gDataDip(slot, 2), 30);
    EXPECT_EQ(gData2Dip(slot, 2), 11);
    ExpectSamePlace(Places(slot)[1], place);
    EditSelection(kCopyItem);
    PasteData();
    EXPECT_EQ(record.NumData, 2);
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 1);
    ExpectSamePlace(Places(slot)[2], place);
    SelectRows(slot, {1});
    EditSelection(kCopyAllItem);
    PasteData();
    ASSERT_EQ(record.OverlayRows[1], 2);
    ExpectSamePlace(Places(slot)[3], place);
    EXPECT_EQ(gData2Dip(slot, 4), 30);
}

TEST_F(PasteRows, UndoTakesThePastedRowsAwayAndTheFormatsWithThem) {
    const int slot = NewLines({});
    const Texts before = Rows(slot);
    const int source = NewPlanes({{30, 120}});
    AddFields();
    SelectRows(source, {1});
    EditSelection(kCopyAllItem);
    gActivePlot = slot;
    PasteData();
    ASSERT_EQ(RecordOf(slot).NumData, 1);
    const Texts behind = Rows(slot);
    UndoEdits();
    EXPECT_EQ(Rows(slot), before);
    EXPECT_EQ(RecordOf(slot).DataKind, kLines);
    EXPECT_EQ(RecordOf(slot).PrimaryFormat, kPrimaryLine);
    EXPECT_EQ(RecordOf(slot).HasAppendedText, 0);
    RedoEdits();
    EXPECT_EQ(Rows(slot), behind);
    EXPECT_EQ(RecordOf(slot).DataKind, kPlanes);
}

TEST_F(PasteRows, AfterACutOfAllTakesAnyKindWithoutAQuestion) {
    const int slot = NewPlanes({{30, 120}});
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    clipboard.SetText(std::string(kOwnLines) + "10\t20\r\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).DataKind, kLines);
    EXPECT_EQ(RecordOf(slot).NumValidData, 1);
}

TEST_F(PasteRows, ForeignTextIsReadByTheDialogOnceAndThenAtOnce) {
    const int slot = NewPlanes({{1, 2}});
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryPlane;
        gPlotDataKind = kPlanes;
        gConventions = 2;
        gFileDelimiter = "\t";
        gFileColumnSettings = {1, 0, 9, 9, 9, 9, 9, 9, 9, 9};
        gSettings.format.hasHeadings = false;
    });
    clipboard.SetText("120\t30\n300\t60\n");
    PasteData();
    ASSERT_EQ(formatQuestions.size(), 1U);
    EXPECT_EQ(formatQuestions[0].command, "Paste");
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(gDataDip(slot, 2), 30);
    EXPECT_EQ(gDataAz(slot, 2), 120);
    gConventions = 1; // another format in force meanwhile
    clipboard.SetText("10\t20");
    PasteData();
    EXPECT_EQ(formatQuestions.size(), 1U);
    EXPECT_EQ(gDataDip(slot, 4), 20);
    EXPECT_EQ(gDataAz(slot, 4), 10);
}

TEST_F(PasteRows, ForeignTextThatDoesNotFitIsAskedForAgain) {
    const int slot = NewPlanes({{1, 2}});
    AcceptFormat([](FormatAnswer&) { gFileDelimiter = ""; }, 2);
    clipboard.SetText("30 120");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    clipboard.SetText("no data here");
    Expect("1 line of the text is not data");
    PasteData();
    clipboard.SetText("40 130");
    PasteData();
    EXPECT_EQ(formatQuestions.size(), 2U);
    EXPECT_EQ(RecordOf(slot).NumData, 3);
}

TEST_F(PasteRows, ACancelledDialogPastesNothing) {
    const int slot = NewPlanes({{1, 2}});
    prompts.OnFormat([](const FormatQuestion&) -> std::optional<FormatAnswer> {
        gConventions = 6;
        return std::nullopt;
    });
    clipboard.SetText("30 120");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 1);
    EXPECT_EQ(gConventions, 1);
}

TEST_F(PasteRows, AHeadingOfForeignTextIsSkipped) {
    const int slot = NewPlanes({{1, 2}});
    AcceptFormat([](FormatAnswer& answer) {
        gFileDelimiter = "";
        gSettings.format.hasHeadings = true;
        answer.columnHeadings = true;
    });
    clipboard.SetText("dip dir\n30 120\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    gSettings.format.hasHeadings = false;
}

TEST_F(PasteRows, ForeignUpwardLinesAreReadAsTheFormatSays) {
    const int slot = NewLines({{1, 2}}, kPolarLines);
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        gFileDelimiter = "";
        gSettings.format.negativePlunge = NegativePlunge::Vector;
    });
    clipboard.SetText("-30 120\n");
    PasteData();
    ASSERT_EQ(RecordOf(slot).NumData, 2);
    EXPECT_EQ(gDataDip(slot, 2), -30);
    EXPECT_EQ(gDataAz(slot, 2), 300);
}

TEST_F(PasteRows, TellsWhatWasDoneWithPlainUpwardLines) {
    NewLines({{1, 2}}, kLines);
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        gFileDelimiter = "";
    });
    Expect("2 lines have a negative plunge. Their trends were taken to name their lower ends.");
    clipboard.SetText("-30 120\n40 10\n-5 10\n");
    PasteData();
    clipboard.SetText(std::string(kOwnLines) + "-30\t120\r\n");
    PasteData(); // the program's own lines are as they were
}

TEST_F(PasteRows, OwnUpwardLinesHaveTheTrendsOfTheirLowerEnds) {
    const int slot = NewLines({{1, 2}}, kPolarLines);
    gSettings.format.negativePlunge = NegativePlunge::Vector;
    for (const char* word : {"", "/U0\t"}) {
        clipboard.SetText(std::string(";Quandrel, ver 9.5.1\r\n") + word
                          + "/T3\t/P0\t/N1\t/I2\t/C1\t/15\r\n-30\t120\r\n");
        PasteData();
        EXPECT_EQ(gDataDip(slot, RecordOf(slot).NumData), -30);
        EXPECT_EQ(gDataAz(slot, RecordOf(slot).NumData), 120);
    }
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(gSettings.format.negativePlunge, NegativePlunge::Vector);
}

TEST_F(PasteRows, TheHeadingBoxHoldsForOnePasteAlone) {
    const int slot = NewPlanes({{1, 2}});
    gSettings.format.hasHeadings = false;
    AcceptFormat([](FormatAnswer&) { gFileDelimiter = ""; });
    clipboard.SetText("dip dir\n30 120\n");
    PasteData();
    ASSERT_EQ(formatQuestions.size(), 1U);
    EXPECT_TRUE(formatQuestions[0].columnHeadings) << "as the text suggests";
    EXPECT_EQ(formatQuestions[0].text, "dip dir\n30 120\n");
    EXPECT_FALSE(gSettings.format.hasHeadings) << "files are another matter";
    clipboard.SetText("40 130\n50 140\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 4);
    EXPECT_EQ(gDataDip(slot, 3), 40);
    clipboard.SetText("Dip\tDip direction\n60 150\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 5);
    EXPECT_EQ(formatQuestions.size(), 1U);
    EXPECT_TRUE(prompts.Shown().empty());
}

TEST_F(PasteRows, TheHeadingBoxStartsAsTheTextSuggestsWhateverFilesHad) {
    NewPlanes({{1, 2}});
    gSettings.format.hasHeadings = true;
    AcceptFormat([](FormatAnswer&) { gFileDelimiter = ""; });
    clipboard.SetText("30 120\n40 130\n");
    PasteData();
    EXPECT_FALSE(formatQuestions[0].columnHeadings);
    EXPECT_EQ(ActiveRecord().NumData, 3);
    EXPECT_TRUE(gSettings.format.hasHeadings);
    gSettings.format.hasHeadings = false;
}

TEST_F(PasteRows, AFirstLineThatReadsAsDataIsNeverDroppedInSilence) {
    NewPlanes({{1, 2}});
    AcceptFormat([](FormatAnswer& answer) {
        gFileDelimiter = "";
        answer.columnHeadings = true; // the user insists
    });
    clipboard.SetText("30 120\n40 130\n");
    Expect("The first line was left out as column headings, but reads as data.");
    PasteData();
    EXPECT_EQ(ActiveRecord().NumData, 2);
}

TEST_F(PasteRows, TheDialogGetsTheFirstLinesOfALongText) {
    NewPlanes({{1, 2}});
    std::string text;
    for (int i = 0; i < 5000; ++i) {
        text += "30 " + std::to_string(i % 360) + "\n";
    }
    AcceptFormat([](FormatAnswer&) { gFileDelimiter = ""; });
    clipboard.SetText(text);
    PasteData();
    EXPECT_LT(formatQuestions[0].text.size(), 1000U);
    EXPECT_TRUE(text.starts_with(formatQuestions[0].text));
    EXPECT_TRUE(formatQuestions[0].text.ends_with("30 99\n"));
    EXPECT_EQ(ActiveRecord().NumData, 5001);
}

TEST_F(PasteRows, TextOfTheCompanionTellsItsFormatOrIsAskedFor) {
    const int slot = NewLines({{1, 2}});
    clipboard.SetText(";Velmixor 2\r\n/T2\t/I2\t/C1\t/15\r\n30\t120\r\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    EXPECT_EQ(gDataDip(slot, 2), 30);
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        gFileDelimiter = "";
    });
    clipboard.SetText(";Velmixor 2\r\n40 130\r\n");
    PasteData();
    EXPECT_EQ(formatQuestions.size(), 1U);
    EXPECT_EQ(gDataDip(slot, 3), 40);
}

TEST_F(PasteRows, AnnotationsAreAskedAboutOnTheDataLayer) {
    const int slot = NewPlanes({{1, 2}});
    clipboard.SetText(";Quandrel, ver 9.5.1\r\n/Annotations 1\r\n10\t20\t21\t3\t4\t0\t1\r\n");
    Expect("The data on the clipboard is annotation data. Plot it in the annotation layer?",
           Button::No);
    PasteData();
    EXPECT_EQ(gActiveLayer, kDataLayer);
    Expect("The data on the clipboard is annotation data. Plot it in the annotation layer?",
           Button::Yes);
    PasteData();
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
    ASSERT_TRUE(RecordOf(slot).PlotAnnotations);
    EXPECT_EQ(RecordOf(slot).PlotAnnotations->size(), 1U);
    EXPECT_EQ(RecordOf(slot).NumData, 1);
}

TEST_F(PasteRows, AppendedTextsWithTheOtherDelimiterAreToldAfterwards) {
    const int slot = NewPlanes({{1, 2}});
    AddFields();
    gAppText.Set(slot, 1, "");
    clipboard.SetText(";Quandrel\r\n/T1\t/P0\t/N1\t/I2\t/C1\t/12\t/20\t/S0\t/A0\t/L0\t/W1\r\n"
                      "30\t120\t2,5\r\n31\t121\t3,5\r\n");
    Expect("Apparent decimal values entered into your Appended data do not appear to use period "
           "decimal delimiters as indicated in your Windows regional settings.\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(gAppText(slot, 2), "2,5");
}

TEST_F(PasteRows, OwnTextIsKnownInAnyCaseAndNeverAskedFor) {
    const int slot = NewPlanes({{1, 2}});
    gSettings.format.hasHeadings = true;
    clipboard.SetText(";QUANDREL\r\n30\t120\r\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    EXPECT_EQ(gDataDip(slot, 2), 30);
    gSettings.format.hasHeadings = false;
}

TEST_F(PasteRows, RowsThatMemoryEndsAtAreToldAndTheOthersStay) {
    const int slot = NewPlanes({{1, 2}});
    const std::int32_t former = gPlatform.mostRows;
    gPlatform.mostRows = 2;
    clipboard.SetText(std::string(kOwnPlanes) + "30\t120\r\n60\t300\r\n");
    Expect("There is not enough memory for more than 1 row of the text.");
    PasteData();
    gPlatform.mostRows = former;
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    EXPECT_EQ(TableOf(slot).size(), 2U);
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).NumData, 1);
}

TEST_F(PasteRows, DirectionsGoIntoAnEmptyPlotAsARose) {
    const int slot = NewPlanes({});
    clipboard.SetText(";Quandrel, ver 9.5.1\r\n/T2\t/P0\t/N3\t/I1\t/C1\t/15\r\n77\r\n");
    PasteData();
    EXPECT_EQ(RecordOf(slot).PlotKind, kRose);
    EXPECT_EQ(RecordOf(slot).PrimaryFormat, kDirections);
    EXPECT_EQ(gDataAz(slot, 1), 77);
}

TEST_F(PasteRows, AnEmptyClipboardDoesNothing) {
    const int slot = NewPlanes({{1, 2}});
    PasteData();
    clipboard.SetText("");
    PasteData();
    EXPECT_EQ(RecordOf(slot).NumData, 1);
}

TEST_F(PasteRows, AppendedNumbersWithTheOtherDelimiterCanEndThePaste) {
    const struct {
        Button answer;
        std::int32_t rows;
        float number;
    } cases[] = {
        {Button::Abort, 2, 0}, {Button::Retry, 3, 2.5F}, {Button::Ignore, 3, kInvalidNumber}};

    for (const auto& row : cases) {
        const int slot = NewPlanes({{1, 2}});
        AddFields();
        ForgetPasteFormat();
        gConvertDecimals = false;
        AcceptFormat([](FormatAnswer&) {
            gPrimaryDataType = kPrimaryPlane;
            gPlotDataKind = kPlanes;
            gFileDelimiter = "\t";
            gFileNumericAppended = true;
            gFileColumnSettings = {0, 1, 9, 9, 9, 9, 9, 9, 2, 9};
        });
        clipboard.SetText("30\t120\t7\n40\t130\t2,5\n");
        Expect("decimal", row.answer);
        PasteData();
        gFileNumericAppended = false;
        EXPECT_EQ(RecordOf(slot).NumData, row.rows);
        if (row.rows == 3) {
            EXPECT_EQ(gAppNumeric(slot, 3), row.number);
        }
        ReleasePlotSlot(slot);
    }
    gConvertDecimals = false;
}

TEST_F(PasteRows, ARoseIsNotAskedAboutAnnotations) {
    const int slot = NewPlanes({{30, 120}});
    RecordOf(slot).PlotKind = kRose;
    clipboard.SetText(";Quandrel, ver 9.5.1\r\n/Annotations 1\r\n10\t20\t21\t3\t4\t0\t1\r\n");
    Expect("a rose has no annotations");
    PasteData();
    EXPECT_EQ(gActiveLayer, kDataLayer);
    EXPECT_EQ(RecordOf(slot).PlotAnnotations, nullptr);
}

} // namespace

} // namespace quandrel
