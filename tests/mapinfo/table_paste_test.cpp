// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/edit_step.h"
#include "input/line_loop.h"
#include "input/load_report.h"
#include "input/text_file.h"
#include "link_test_base.h"
#include "mapinfo/table_paste.h"

#include <chrono>
#include <random>
#include <utility>

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

class TablePaste : public LinkTest {
protected:
    static std::int32_t TableRow(int slot, std::int32_t row) {
        std::int32_t miRow = 0;
        const MIGeoLink* link = gMIGeoLinks.Item(slot);
        return link != nullptr && link->GetMIRow(row, miRow) ? miRow : 0;
    }
};

TEST_F(TablePaste, ReadsUpwardLinesAsTheFormatSaysAndTellsOfPlainOnes) {
    script.tables = {{"Poles", {"Inc", "Dec"}, {{"-30", "120"}, {"40", "10"}}}};
    Link();
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        gSecondaryDataType = kNoSecondary;
        gFileColumnSettings = {0, 1, 9, 9, 9, 9, 9, 9, 9, 9};
        gSettings.format.negativePlunge = NegativePlunge::Vector;
    });
    Expect("1 line has a negative plunge. Its trend was taken to name the end that it points to");
    ASSERT_EQ(PasteMITable("Poles", kNewCommand), kNewCommand);
    EXPECT_EQ(gDataDip(gActivePlot, 1), -30);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 300);
    EXPECT_EQ(gDataAz(gActivePlot, 2), 10);
}

TEST_F(TablePaste, SaysThisToTheSession) {
    script.tables = {{"Joints", {"Id", "Dip", "DipDir"}, {{"a", "30", "120"}, {"b", "45", "200"}}}};
    Link();
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryPlane;
        gConventions = kDipDipDirection;
        gPlotDataKind = kPlanes;
        gFileNumericAppended = false;
        gFileNonNumericAppended = false;
        gFileLineAppended = false;
        gSecondaryDataType = kNoSecondary;
        gFileColumnSettings = {1, 2, 9, 9, 9, 9, 9, 9, 9, 9};
    });
    ASSERT_EQ(PasteMITable("Joints", kNewCommand), kNewCommand);
    const std::string head = R"(Eval TableInfo(Joints,8)
Eval TableInfo(Joints,4)
Eval ColumnInfo(Joints,"COL1",1)
Eval ColumnInfo(Joints,"COL2",1)
Eval ColumnInfo(Joints,"COL3",1)
Do Fetch First From Joints
Eval EOT(Joints)
Eval Joints.Col(1)
Eval Joints.Col(2)
Eval Joints.Col(3)
Do Fetch Next From Joints
Eval EOT(Joints)
Eval Joints.Col(1)
Eval Joints.Col(2)
Eval Joints.Col(3)
)";
    const std::string rows = R"(Do Fetch Rec 1 From Joints
Eval EOT(Joints)
Eval Joints.Col(2)
Eval Joints.Col(3)
Do Fetch Rec 2 From Joints
Eval EOT(Joints)
Eval Joints.Col(2)
Eval Joints.Col(3)
)";
    const std::string said = script.TakeSaid();
    EXPECT_EQ(said.substr(0, head.size() + rows.size()), head + rows);
    EXPECT_EQ(gMIGeoLinks.Item(gActivePlot)->DataColumns, (std::vector<int>{2, 3}));
}

TEST_F(TablePaste, PlotsTheRowsOfATableAndLinksThem) {
    script.tables = {Joints(5)};
    Link();
    const int slot = PasteNew("Joints");
    const PlotRecord& record = RecordOf(slot);
    EXPECT_EQ(record.NumData, 5);
    EXPECT_EQ(record.NumValidData, 5);
    EXPECT_EQ(record.FileTitle, "MapInfo Table:Joints");
    EXPECT_NE(record.MapInfoLinked, 0);
    EXPECT_EQ(record.NumFiles, 0);
    for (std::int32_t row = 1; row <= 5; ++row) {
        EXPECT_EQ(gDataDip(slot, row), 10 + row);
        EXPECT_EQ(gDataAz(slot, row), row * 7);
        EXPECT_FLOAT_EQ(gAppNumeric(slot, row), static_cast<float>(row) + 0.5F);
        EXPECT_EQ(gAppText(slot, row), row % 2 == 0 ? "vein" : "joint");
        EXPECT_EQ(TableRow(slot, row), row);
    }
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), 5U);
    EXPECT_TRUE(status.Text() != "" && !gBusy);
}

TEST_F(TablePaste, KeepsTheDecimalsOfRowsThatHaveThem) {
    script.tables = {Joints(3)};
    script.tables[0].rows[1][0] = "47.3";
    script.tables[0].rows[1][1] = "218.654321";
    Link();
    const int slot = PasteNew("Joints");
    const PlotRows& rows = PlotOf(slot).rows;
    EXPECT_FALSE(HasDecimals(rows, 1));
    const Attitude measured = MeasuredAttitude(rows, RowAngles::Primary, 2);
    EXPECT_NEAR(measured.dip, 47.3, 1e-7);
    EXPECT_NEAR(measured.azimuth, 218.654321, 1e-7);
    EXPECT_EQ(gDataDip(slot, 2), 47);
    EXPECT_EQ(gDataAz(slot, 2), 219);
    EXPECT_EQ(LastLoad().rowsWithDecimals, 1);
    SelectRows(slot, {1});
    RemoveSelectedRows(kDeleteEdit);
    EXPECT_EQ(MeasuredAttitude(rows, RowAngles::Primary, 1), measured);
    EXPECT_EQ(TableRow(slot, 1), 2);
}

TEST_F(TablePaste, ShowsTheTableToTheFormatDialogAsAFileWithNamedColumns) {
    script.tables = {Joints(30)};
    Link();
    Result<Texts> lines = Failure{"not asked"};
    std::string delimiter;
    prompts.OnFormat([&](const FormatQuestion& question) -> std::optional<FormatAnswer> {
        lines = FirstLines(question.path, 100);
        delimiter = gFileDelimiter;
        EXPECT_TRUE(question.columnHeadings);
        formatQuestions.push_back(question);
        return std::nullopt;
    });
    gFileDelimiter = ",";
    gSettings.format.hasHeadings = false;
    EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    ASSERT_TRUE(lines);
    EXPECT_EQ(lines->at(0), "Dip\tDipDir\tLength\tKind");
    EXPECT_EQ(lines->at(1), "11\t7\t1.5\tjoint");
    EXPECT_EQ(lines->size(), 21U);
    EXPECT_EQ(delimiter, "\t");
    EXPECT_EQ(gFileDelimiter, ",") << "what is set for a table does not stay";
    EXPECT_FALSE(gSettings.format.hasHeadings);
    const std::filesystem::path shown = formatQuestions.at(0).path;
    EXPECT_EQ(shown.filename(), "Joints") << "the dialog names the table, not a file of it";
    EXPECT_FALSE(std::filesystem::exists(shown));
    EXPECT_EQ(gActivePlot, 0) << "the window that was opened for it is closed";
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(TablePaste, DelimiterAndHeadingsOfFilesStayAfterAPaste) {
    script.tables = {Joints()};
    Link();
    gFileDelimiter = ",";
    gSettings.format.hasHeadings = false;
    PasteNew("Joints");
    EXPECT_EQ(gFileDelimiter, ",");
    EXPECT_FALSE(gSettings.format.hasHeadings);
}

TEST_F(TablePaste, TakesDecimalPointsWhereACommaIsTheRule) {
    gDecimalIsComma = true;
    script.tables = {Joints(2)};
    Link();
    const int slot = PasteNew("Joints");
    EXPECT_FLOAT_EQ(gAppNumeric(slot, 1), 1.5F);
    EXPECT_FLOAT_EQ(gAppNumeric(slot, 2), 2.5F);
    EXPECT_EQ(LastLoad().badNumeric, 0);
}

TEST_F(TablePaste, ValuesWithDelimitersStayInTheirColumns) {
    script.tables = {Joints(1)};
    script.tables[0].rows[0][3] = "vein, quartz; open\twide";
    Link();
    const int slot = PasteNew("Joints");
    EXPECT_EQ(gAppText(slot, 1), "vein, quartz; open wide");
}

TEST_F(TablePaste, ARowThatIsNoDataIsCountedAndNotLinked) {
    script.tables = {Joints(4)};
    script.tables[0].rows[1][0] = "95";
    script.tables[0].rows[2] = {"", "", "", ""};
    Link();
    Expect("invalid orientation data", Button::Ignore);
    Expect("1 invalid data have been detected");
    const int slot = PasteNew("Joints");
    EXPECT_EQ(LastLoad().invalidLines, 1);
    EXPECT_EQ(LastLoad().blankLines, 1);
    EXPECT_EQ(RecordOf(slot).NumData, 4);
    EXPECT_EQ(RecordOf(slot).NumValidData, 2);
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), 2U);
    EXPECT_EQ(TableRow(slot, 1), 1);
    EXPECT_EQ(TableRow(slot, 2), 0);
    EXPECT_EQ(TableRow(slot, 4), 4);
    EXPECT_EQ(PlotOf(slot).rows.errorLines.at(2), "95\t14\t2.5\tvein");
}

TEST_F(TablePaste, ATypeThatBeginsLikeAnErrorIsNone) {
    script.tables = {Joints(1)};
    script.tables[0].rows[0][3] = "Eocene";
    Link();
    const int slot = PasteNew("Joints");
    EXPECT_EQ(gAppText(slot, 1), "Eocene");
    EXPECT_EQ(TableRow(slot, 1), 1);
}

TEST_F(TablePaste, ARowThatCannotBeFetchedIsLeftOut) {
    script.tables = {Joints(4)};
    script.badRows = {2};
    Link();
    Expect("1 invalid data have been detected");
    const int slot = PasteNew("Joints");
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(TableRow(slot, 1), 1);
    EXPECT_EQ(TableRow(slot, 2), 3);
    EXPECT_EQ(TableRow(slot, 3), 4);
}

TEST_F(TablePaste, EndsAtTheEndOfTheTableWhateverTheCountSays) {
    script.tables = {Joints(3)};
    script.answers["TableInfo(Joints,8)"] = "1000000000000";
    Link();
    const int slot = PasteNew("Joints");
    EXPECT_EQ(RecordOf(slot).NumData, 3);
}

TEST_F(TablePaste, ReadsNoMoreThanTheCountSays) {
    script.tables = {Joints(3)};
    script.answers["TableInfo(Joints,8)"] = "2";
    script.answers["EOT(Joints)"] = "F";
    Link();
    EXPECT_EQ(RecordOf(PasteNew("Joints")).NumData, 2);
}

TEST_F(TablePaste, ATableWithoutRowsIsToldSo) {
    script.tables = {Joints(0)};
    Link();
    Expect("The table Joints has no rows.");
    EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_EQ(gMIGeoLinks.Count(), 0U);
}

TEST_F(TablePaste, AsksForTheFormatAgainWhenNoRowIsData) {
    script.tables = {Joints(2)};
    Link();
    int times = 0;
    prompts.OnFormat([&](const FormatQuestion&) -> std::optional<FormatAnswer> {
        gPrimaryDataType = kPrimaryPlane;
        gSecondaryDataType = kNoSecondary;
        gConventions = kDipDipDirection;
        gPlotDataKind = kPlanes;
        gFileLineAppended = gFileNumericAppended = gFileNonNumericAppended = false;
        const bool isFirst = ++times == 1;
        gFileColumnSettings = {isFirst ? 3 : 0, 1, 9, 9, 9, 9, 9, 9, 9, 9};
        return FormatAnswer{};
    });
    Expect("invalid orientation data", Button::Ignore);
    Expect("All datalines were found to contain invalid data");
    ASSERT_EQ(PasteMITable("Joints", kNewCommand), kNewCommand);
    EXPECT_EQ(times, 2);
    EXPECT_EQ(RecordOf(gActivePlot).NumData, 2);
    EXPECT_EQ(gMIGeoLinks.Item(gActivePlot)->RowCount(), 2U);
    EXPECT_TRUE(ActivePlot().rows.errorLines.empty());
}

TEST_F(TablePaste, RetryAtABadRowAsksForTheFormatAgainAndAbortKeepsTheRowsSoFar) {
    script.tables = {Joints(3)};
    script.tables[0].rows[1][0] = "95";
    Link();
    AcceptJoints(2);
    Expect("invalid orientation data", Button::Retry);
    Expect("invalid orientation data", Button::Abort);
    ASSERT_EQ(PasteMITable("Joints", kNewCommand), kNewCommand);
    EXPECT_EQ(formatQuestions.size(), 2U);
    EXPECT_EQ(RecordOf(gActivePlot).NumValidData, 1);
}

TEST_F(TablePaste, AColumnThatTheTableLacksIsMissing) {
    script.tables = {Joints(2)};
    Link();
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kPrimaryPlane;
        gSecondaryDataType = kNoSecondary;
        gConventions = kDipDipDirection;
        gFileLineAppended = gFileNumericAppended = gFileNonNumericAppended = false;
        gFileColumnSettings = {0, 77, 9, 9, 9, 9, 9, 9, 9, 9};
    });
    Expect("Critical orientation information appears to be missing", Button::Ignore);
    Expect("All datalines were found to contain invalid data");
    EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    for (const std::string& line : script.said) {
        EXPECT_EQ(line.find("Col(78)"), std::string::npos);
    }
}

TEST_F(TablePaste, SenselessShapesAreTold) {
    script.tables = {Joints()};
    Link();
    for (const auto& [expression, nonsense] :
         std::vector<std::pair<std::string, std::string>>{{"TableInfo(Joints,8)", "some"},
                                                          {"TableInfo(Joints,8)", "-1"},
                                                          {"TableInfo(Joints,4)", ""},
                                                          {"TableInfo(Joints,4)", "1e9"}}) {
        script.answers = {{expression, nonsense}};
        Expect("Couldn't get information from Joints\nPlease check your settings");
        EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    }
    script.answers.clear();
    Expect("Couldn't get information from Roads\nPlease check your settings");
    EXPECT_EQ(PasteMITable("Roads", kNewCommand), kLoadError);
    script.refused = {"ColumnInfo(Joints,\"COL2\",1)"};
    Expect("Couldn't get information from Joints");
    EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    script.refused = {"Fetch First From Joints"};
    Expect("Couldn't fetch the first row of Joints");
    EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError);
    EXPECT_TRUE(IsMapInfoLinked());
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(TablePaste, ATableWithoutColumnsAndALinkedPlotAreRefused) {
    const std::string refusal =
        "The selected Table cannot be pasted into the current Quandrel plot.\n"
        "Check that the Table is of a type that is suitable for linking";
    script.tables = {Joints(), {"Empty", {}, {}}, {"Faults", {"A", "B", "C", "D"}, {}}};
    Link();
    Expect(refusal);
    EXPECT_EQ(PasteMITable("Empty", kNewCommand), kLoadError);
    Expect(refusal);
    EXPECT_EQ(PasteMITable("Joints", kMergeCommand), kLoadError) << "there is no plot";
    PasteNew("Joints");
    Expect(refusal);
    EXPECT_EQ(PasteMITable("Joints", kMergeCommand), kLoadError);
    Expect(refusal);
    EXPECT_EQ(PasteMITable("Faults", kMergeCommand), kLoadError);
}

TEST_F(TablePaste, MergedRowsStandBehindTheOthersAndAreLinkedThere) {
    const int slot = NewPlot();
    AddRow(30, 120);
    AddRow(60, 300);
    ActiveRecord().FileTitle = "outcrop.txt";
    ActiveRecord().PlotTitle = "outcrop.txt: 1";
    script.tables = {Joints(2)};
    Link();
    AcceptJoints();
    ASSERT_EQ(PasteMITable("Joints", kMergeCommand), kMergeCommand);
    EXPECT_EQ(gActivePlot, slot);
    EXPECT_EQ(RecordOf(slot).NumData, 4);
    EXPECT_EQ(gDataDip(slot, 3), 11);
    EXPECT_EQ(TableRow(slot, 2), 0);
    EXPECT_EQ(TableRow(slot, 3), 1);
    EXPECT_EQ(TableRow(slot, 4), 2);
    EXPECT_EQ(RecordOf(slot).FileTitle, "outcrop.txt");
    EXPECT_EQ(RecordOf(slot).PlotTitle, "outcrop.txt: 1 + MapInfo Table:Joints");
    EXPECT_EQ(formatQuestions.at(0).command, kMergeCommand);
}

TEST_F(TablePaste, MergedRowsGoIntoTheTopOverlay) {
    const int slot = NewPlot();
    AddRow(30, 120);
    AddOverlay(kOverlayPoles, 10, 20, CodeOfStyleRow(0));
    script.tables = {Joints(2)};
    Link();
    AcceptJoints();
    ASSERT_EQ(PasteMITable("Joints", kMergeCommand), kMergeCommand);
    EXPECT_EQ(RecordOf(slot).NumData, 1);
    EXPECT_EQ(RecordOf(slot).OverlayRows[1], 3);
    EXPECT_EQ(RecordOf(slot).NumLoadedData, 4);
    EXPECT_EQ(TableRow(slot, 3), 1);
}

TEST_F(TablePaste, RowsOfAnotherKindAreAskedAboutAndNoLeavesThePlot) {
    const int slot = NewPlot();
    AddRow(30, 120);
    RecordOf(slot).DataKind = kLines;
    RecordOf(slot).PrimaryFormat = kPrimaryLine;
    script.tables = {Joints(2)};
    Link();
    AcceptJoints();
    Expect("You are trying to paste planes into a plot containing lines", Button::No);
    EXPECT_EQ(PasteMITable("Joints", kMergeCommand), kLoadError);
    EXPECT_EQ(RecordOf(slot).NumLoadedData, 1);
    EXPECT_EQ(TableOf(slot).size(), 1U);
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, 0);
    EXPECT_EQ(gMIGeoLinks.Count(), 0U);
}

TEST_F(TablePaste, BlankFillsTheEmptyPlotAndElseOpensANewOne) {
    const int slot = NewPlot();
    script.tables = {Joints(2), {"Faults", {"A", "B", "C", "D"}, Joints(1).rows}};
    Link();
    AcceptJoints();
    ASSERT_EQ(PasteMITable("Joints", kBlankCommand), kBlankCommand);
    EXPECT_EQ(gActivePlot, slot);
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    AcceptJoints();
    ASSERT_EQ(PasteMITable("Faults", kBlankCommand), kBlankCommand);
    EXPECT_NE(gActivePlot, slot);
    EXPECT_EQ(gMIGeoLinks.Count(), 2U);
}

TEST_F(TablePaste, RowsOfTheSelectionAreLinkedToTheTableThatTheyComeFrom) {
    script.tables = {Joints(9), {"Selection", Joints().columns, Joints(2).rows}};
    Link();
    script.answers["SelectionInfo(1)"] = "Joints";
    script.answers["Selection.RowID"] = "?";
    script.onCall = [this](const std::string& call) {
        if (call.starts_with("Do Fetch Rec ")) {
            script.answers["Selection.RowID"] = call.substr(13, 1) == "1" ? "4" : "8";
        }
    };
    const int slot = PasteNew("Selection");
    EXPECT_EQ(gMIGeoLinks.Item(slot)->MITableName, "Joints");
    EXPECT_EQ(TableRow(slot, 1), 4);
    EXPECT_EQ(TableRow(slot, 2), 8);
    EXPECT_EQ(RecordOf(slot).FileTitle, "MapInfo Table:Selection");
}

TEST_F(TablePaste, ASessionThatDiesOnTheWayLeavesNoHalfTable) {
    for (const char* last :
         {"TableInfo(Joints,8)", "ColumnInfo(Joints,\"COL1\",1)", "Fetch First From Joints",
          "Fetch Rec 2 From Joints", "EOT(Joints)", "Joints.Col(1)", "Joints.Col(3)"}) {
        script = {};
        script.tables = {Joints(3)};
        Link();
        script.dies = last;
        AcceptJoints();
        prompts.ExpectAny("Couldn't");
        prompts.ExpectAny("Sorry - this MapInfo command has not been able to be processed");
        const std::size_t boxes = prompts.Shown().size();
        EXPECT_EQ(PasteMITable("Joints", kNewCommand), kLoadError) << last;
        EXPECT_EQ(prompts.Shown().size(), boxes + 1) << last;
        EXPECT_EQ(gMapInfo, nullptr) << last;
        EXPECT_FALSE(window.isOpen);
        EXPECT_EQ(CountOpenPlots(), 0) << last;
        EXPECT_FALSE(gBusy);
    }
}

TEST_F(TablePaste, AThousandRowsInARowWithoutDataEndThePaste) {
    script.tables = {Joints(2500)};
    for (std::size_t row = 2; row <= 1201; ++row) {
        script.badRows.insert(row);
    }
    Link();
    Expect("Reading ended at line 1001, after 1000 invalid lines in a row.");
    const int slot = PasteNew("Joints");
    EXPECT_EQ(RecordOf(slot).NumData, 1);
    EXPECT_EQ(LastLoad().invalidLines, 1000);
}

TEST_F(TablePaste, TheUserCanEndALongOneAndKeepsTheRowsSoFar) {
    const auto patience =
        std::exchange(gPlatform.timeWithoutProgress, std::chrono::milliseconds(0));
    status.RequestCancel();
    script.tables = {Joints(1000)};
    Link();
    const int slot = PasteNew("Joints");
    gPlatform.timeWithoutProgress = patience;
    EXPECT_TRUE(LastLoad().cancelled);
    EXPECT_EQ(RecordOf(slot).NumData, 64);
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), 64U);
}

TEST_F(TablePaste, NonsenseOfAnyKindLeavesTheProgramUsable) {
    ScriptedPrompts answering(ScriptedPrompts::Mode::Batch);
    gPlatform.prompts = &answering;
    std::mt19937 random(20261121);
    const Texts values = {"",  "0",   "1",    "2",    "3",    "-1",     "T",        "F", "45",
                          "x", "nan", "1e40", "30.5", "E 12", "Joints", "\xff\xfe", "5", "7,8"};
    script.onCall = [&](const std::string& call) {
        if (call.starts_with("Eval ")) {
            script.answers[call.substr(5)] = values[random() % values.size()];
            if (random() % 4 == 0) {
                script.answers.erase(call.substr(5));
            }
        } else if (call.starts_with("Do ") && random() % 8 == 0) {
            script.refused.insert(call.substr(3));
        }
        script.isDead = script.isDead || random() % 400 == 0;
    };
    int pasted = 0;
    for (int trial = 0; trial < 300; ++trial) {
        script.refused.clear();
        script.tables = {Joints(random() % 30)};
        if (gMapInfo == nullptr) {
            (void)StartMapInfoLink();
        }
        int asked = 0;
        answering.OnFormat([&asked](const FormatQuestion&) -> std::optional<FormatAnswer> {
            return ++asked > 2 ? std::nullopt : std::optional(FormatAnswer{});
        });
        pasted += PasteMITable("Joints", kNewCommand) != kLoadError ? 1 : 0;
        SelectFromMap(1, 2, 3, 4);
        HandleToolButton("MI:1,2,F,F,3,4,9");
        SelectAll();
        EXPECT_FALSE(gBusy);
        EXPECT_FALSE(IsInMapAction());
        EXPECT_EQ(gMapInfo != nullptr, window.isOpen);
        EXPECT_EQ(script.callback != nullptr, window.isOpen);
        for (int slot = 1; slot <= HighestSlot(); ++slot) {
            EXPECT_EQ(gMIGeoLinks.Item(slot) != nullptr,
                      IsOpenSlot(slot) && RecordOf(slot).MapInfoLinked != 0);
        }
        while (CountOpenPlots() > 0) {
            ClosePlot(gActivePlot);
        }
    }
    EXPECT_GT(pasted, 5);
    script.onCall = {};
    gPlatform.prompts = &prompts;
}

TEST_F(TablePaste, ADirectionsTableMakesARoseAndTheNextPlotIsNone) {
    script.tables = {Joints(2)};
    Link();
    AcceptFormat([](FormatAnswer&) {
        gPrimaryDataType = kDirections;
        gSecondaryDataType = kNoSecondary;
        gPlotDataKind = kLines;
        gFileLineAppended = gFileNumericAppended = gFileNonNumericAppended = false;
        gFileColumnSettings = {9, 1, 9, 9, 9, 9, 9, 9, 9, 9};
    });
    ASSERT_EQ(PasteMITable("Joints", kNewCommand), kNewCommand);
    EXPECT_EQ(ActiveRecord().PlotKind, kRose);
    EXPECT_EQ(gPlotKind, kEqualArea);
}

TEST_F(TablePaste, TheKindOfPlotThatWasAskedForServesOneTable) {
    script.tables = {Joints(2)};
    Link();
    gPlotKind = kEqualAngle;
    const int slot = PasteNew("Joints");
    EXPECT_EQ(RecordOf(slot).PlotKind, kEqualAngle);
    EXPECT_EQ(gPlotKind, kEqualArea);
}

TEST_F(TablePaste, AnEditBeforeItCannotBeTakenBack) {
    const int slot = NewPlot();
    AddRow(30, 120);
    AddRow(60, 300);
    SelectRows(slot, {1});
    EditSelection(kDeleteItem);
    script.tables = {Joints(2)};
    Link();
    AcceptJoints();
    ASSERT_EQ(PasteMITable("Joints", kMergeCommand), kMergeCommand);
    EXPECT_EQ(gLastEditKind, kNoEdit);
    EXPECT_EQ(UndoSlot(), 0);
}

TEST_F(TablePaste, ValuesOfAPassThatIsRepeatedLeaveNoTrace) {
    NewPlot();
    ActiveRecord().HasAppendedNumeric = kTrue;
    AddRow(30, 120);
    script.tables = {Joints(2)};
    script.tables[0].rows[1][0] = "95";
    script.tables[0].rows[0][1] = "300";
    Link();
    int asked = 0;
    AcceptFormat(
        [&asked](FormatAnswer&) {
            gPrimaryDataType = kPrimaryPlane;
            gSecondaryDataType = kNoSecondary;
            gConventions = kDipDipDirection;
            gPlotDataKind = kPlanes;
            gFileLineAppended = gFileNonNumericAppended = false;
            gFileNumericAppended = true;
            gFileColumnSettings = {0, 1, 9, 9, 9, 9, 9, 9, ++asked == 1 ? 1 : 2, 9};
        },
        2);
    Expect("invalid orientation data", Button::Retry);
    Expect("invalid orientation data", Button::Ignore);
    Expect("1 invalid data have been detected");
    ASSERT_EQ(PasteMITable("Joints", kMergeCommand), kMergeCommand);
    EXPECT_DOUBLE_EQ(ActiveRecord().AppendedMax[kOfNumbers], 1.5);
}

TEST_F(TablePaste, TellsTheWindowsThatATableIsPlotted) {
    script.tables = {Joints(2)};
    Link();
    Texts told;
    gPlatform.mapLink.tablePlotted = [&](const std::string& command) { told.push_back(command); };
    PasteNew("Joints");
    EXPECT_EQ(told, Texts{kNewCommand});
}

} // namespace
} // namespace quandrel
