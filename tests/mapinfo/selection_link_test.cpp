// SPDX-License-Identifier: MIT

#include "edit/commands/edit_menu.h"
#include "link_test_base.h"
#include "mapinfo/map_windows.h"
#include "mapinfo/select_statements.h"
#include "mapinfo/selection_link.h"

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

class SelectionLink : public LinkTest {
protected:
    /// A link with the table of `rows` joints plotted, its map in front.
    int LinkJoints(std::size_t rows) {
        script.tables = {Joints(rows)};
        Link();
        const int slot = PasteNew("Joints");
        ShowMap();
        return slot;
    }
};

TEST_F(SelectionLink, AMarqueeOnTheMapSaysThisToTheSession) {
    const int slot = LinkJoints(9);
    Find("SearchRect(5,-10.5,20,30.25,40)", {{"Joints", 2}, {"Roads", 1}, {"JOINTS", 7}});
    script.callback->HandleToolButton("MI:-10.5,20,F,F,30.25,40,2002");
    EXPECT_EQ(script.TakeSaid(), R"(Eval WindowInfo(FrontWindow(),12)
Eval WindowInfo(5,3)
Eval SearchRect(5,-10.5,20,30.25,40)
Eval SearchInfo(1,1)
Eval SearchInfo(1,2)
Eval SearchInfo(2,1)
Eval SearchInfo(2,2)
Eval SearchInfo(3,1)
Eval SearchInfo(3,2)
BeginSelects
Do Select * From Joints Where RowID = 2 or RowID = 7
EndSelects
)");
    EXPECT_EQ(gSelectionRows, (Rows{2, 7}));
    EXPECT_EQ(Selection::now.slot, slot);
    EXPECT_EQ(gMIRowList, Texts{"Select * From Joints Where RowID = 2 or RowID = 7"});
}

TEST_F(SelectionLink, APointOnTheMapSearchesThePoint) {
    LinkJoints(4);
    Find("SearchPoint(5,1.5,-2)", {{"Joints", 3}});
    script.callback->HandleToolButton("MI:1.5,-2,F,F,1.5,-2,2001");
    EXPECT_EQ(gSelectionRows, Rows{3});
}

TEST_F(SelectionLink, APlotSaysThisToTheSession) {
    const int slot = LinkJoints(9);
    SelectRows(slot, {3, 5});
    EXPECT_EQ(script.TakeSaid(), "BeginSelects\n"
                                 "Do Select * From Joints Where RowID = 3 or RowID = 5\n"
                                 "EndSelects\n");
    ClearSelection();
    EXPECT_EQ(script.TakeSaid(), "BeginSelects\n"
                                 "Do Select * From Joints Where RowID = 0\n"
                                 "EndSelects\n");
    ClearSelection();
    EXPECT_EQ(script.TakeSaid(), "");
}

TEST_F(SelectionLink, ThreeHundredRowsGoInSeveralStatements) {
    const int slot = LinkJoints(5000);
    Rows rows;
    for (std::int32_t row = 16; rows.size() < 300; row += 16) {
        rows.push_back(row);
    }
    SelectRows(slot, rows);
    const Texts statements = script.Statements("Select * From Joints Where RowID = ");
    EXPECT_EQ(statements, BuildSelects("Joints", rows).texts);
    EXPECT_GT(statements.size(), 10U);
    EXPECT_TRUE(std::all_of(statements.begin(), statements.end(),
                            [](const std::string& text) { return text.size() <= 240; }));
    EXPECT_EQ(std::count(script.said.begin(), script.said.end(), "BeginSelects"), 1);
    EXPECT_EQ(script.said.back(), "EndSelects");
    EXPECT_EQ(window.statusTexts.back(), "") << "nothing was left out";
}

TEST_F(SelectionLink, TheStatusLineTellsWhatASessionLeavesOut) {
    const int slot = LinkJoints(100);
    script.unites = false;
    Rows rows;
    for (std::int32_t row = 1; row <= 50; ++row) {
        rows.push_back(row);
    }
    SelectRows(slot, rows);
    const std::size_t inLast = BuildSelects("Joints", rows).rowsInLast;
    EXPECT_EQ(window.statusTexts.back(),
              "Only the last " + std::to_string(inLast) + " of 50 rows are selected in MapInfo");
}

TEST_F(SelectionLink, AMarqueeOverNothingChangesNothing) {
    const int slot = LinkJoints(4);
    SelectRows(slot, {1});
    script.said.clear();
    script.answers["SearchRect(5,1,2,3,4)"] = "0";
    SelectFromMap(1, 2, 3, 4);
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_TRUE(script.Statements("").empty());
}

TEST_F(SelectionLink, NothingIsSearchedWithoutAMapInFront) {
    LinkJoints(4);
    script.answers["WindowInfo(5,3)"] = "2";
    SelectFromMap(1, 2);
    script.answers["WindowInfo(FrontWindow(),12)"] = "0";
    SelectFromMap(1, 2, 3, 4);
    for (const std::string& line : script.said) {
        EXPECT_EQ(line.find("Search"), std::string::npos);
    }
}

TEST_F(SelectionLink, ATableRowWithoutAPlotRowIsSkipped) {
    script.tables = {Joints(4)};
    script.tables[0].rows[1][0] = "steep";
    Link();
    Expect("invalid orientation data", Button::Ignore);
    Expect("1 invalid data");
    PasteNew("Joints");
    ShowMap();
    Find("SearchPoint(5,1,2)", {{"Joints", 1}, {"Joints", 2}, {"Joints", 4}, {"Joints", 99}});
    SelectFromMap(1, 2);
    EXPECT_EQ(gSelectionRows, (Rows{1, 4}));
    EXPECT_EQ(script.Statements("Select"),
              Texts{"Select * From Joints Where RowID = 1 or RowID = 4"});
}

TEST_F(SelectionLink, MarkingFromTheMapSendsNothingTwice) {
    const int slot = LinkJoints(6);
    Find("SearchPoint(5,1,2)", {{"Joints", 6}});
    SelectFromMap(1, 2);
    EXPECT_EQ(script.Statements("Select").size(), 1U);
    FollowSelectionInMap();
    SelectRows(slot, {6});
    EXPECT_EQ(script.Statements("Select").size(), 1U) << "the session has it already";
    SelectPlotRowsInMap();
    EXPECT_EQ(script.Statements("Select").size(), 2U) << "asked for, it is sent";
}

TEST_F(SelectionLink, TheRowsFollowDeletionsOfOthers) {
    const int slot = LinkJoints(6);
    SelectRows(slot, {1, 2});
    EditSelection(kDeleteItem);
    script.said.clear();
    SelectRows(slot, {1});
    EXPECT_EQ(script.Statements("Select"), Texts{"Select * From Joints Where RowID = 3"});
    Find("SearchPoint(5,1,2)", {{"Joints", 2}, {"Joints", 6}});
    SelectFromMap(1, 2);
    EXPECT_EQ(gSelectionRows, Rows{4});
    UndoEdits();
    script.said.clear();
    SelectRows(slot, {4});
    EXPECT_EQ(script.Statements("Select"), Texts{"Select * From Joints Where RowID = 4"});
}

TEST_F(SelectionLink, TheFirstPlotOfTheTableBecomesTheActiveOne) {
    script.tables = {Joints(4), {"Faults", {"A", "B", "C", "D"}, Joints(3).rows}};
    Link();
    const int joints = PasteNew("Joints");
    const int faults = PasteNew("Faults");
    const int again = PasteNew("Joints");
    ShowMap();
    gActivePlot = faults;
    Find("SearchPoint(5,1,2)", {{"Joints", 2}});
    SelectFromMap(1, 2);
    EXPECT_EQ(gActivePlot, joints);
    EXPECT_EQ(Selection::now.slot, joints);
    gActivePlot = again;
    SelectFromMap(1, 2);
    EXPECT_EQ(gActivePlot, again) << "the active plot comes first";
    EXPECT_EQ(Selection::now.slot, again);
    // Otherwise that of the lowest slot, in whatever order the objects come.
    gActivePlot = NewPlot();
    Find("SearchPoint(5,1,2)", {{"Faults", 3}, {"Joints", 2}});
    SelectFromMap(1, 2);
    EXPECT_EQ(gActivePlot, joints);
    EXPECT_EQ(gSelectionRows, Rows{2});
    // If objects of both tables are found, those of the active plot count.
    Find("SearchPoint(5,1,2)", {{"Joints", 2}, {"Faults", 3}, {"Faults", 1}});
    gActivePlot = faults;
    SelectFromMap(1, 2);
    EXPECT_EQ(gActivePlot, faults);
    EXPECT_EQ(gSelectionRows, (Rows{1, 3}));
}

TEST_F(SelectionLink, TellsWhatHinders) {
    script.tables = {Joints(4)};
    Link();
    ShowMap();
    Find("SearchPoint(5,1,2)", {{"Joints", 2}});
    Expect("You do not yet have any plots to link with.");
    SelectFromMap(1, 2);
    const int plain = NewPlot();
    AddRow(30, 120);
    Expect("The current Quandrel plot does not yet contain any linked MapInfo tables.\n"
           "Either reselect a plot that does contain linked Tables or add a new linked plot");
    SelectFromMap(1, 2);
    PasteNew("Joints");
    gActivePlot = plain;
    Find("SearchPoint(5,1,2)", {{"Roads", 2}});
    Expect("None of the currently opened Quandrel plots contain the selected MapInfo Table.");
    SelectFromMap(1, 2);
    EXPECT_EQ(gActivePlot, plain);
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_TRUE(script.Statements("Select").empty());
}

TEST_F(SelectionLink, NonsenseAndRefusalsAbandonTheAttempt) {
    const int slot = LinkJoints(4);
    SelectRows(slot, {1});
    const std::string told = "There has been a problem linking this selection - attempt abandoned";
    const auto trial = [&](const std::string& expression, const std::string& answer) {
        Find("SearchPoint(5,1,2)", {{"Joints", 2}});
        script.answers[expression] = answer;
        Expect(told);
        SelectFromMap(1, 2);
        EXPECT_EQ(gSelectionRows, Rows{1}) << expression << answer;
    };
    for (const char* nonsense : {"", "x", "1.5", "inf", "1e40", "-1e40"}) {
        trial("SearchPoint(5,1,2)", nonsense);
        trial("SearchInfo(1,2)", nonsense);
    }
    trial("SearchInfo(1,2)", "0");
    trial("SearchInfo(1,2)", "99999999999");
    trial("SearchPoint(5,1,2)", "7"); // more than there are
    EXPECT_TRUE(IsMapInfoLinked());
}

TEST_F(SelectionLink, MessagesThatMakeNoSenseAreTakenForWhatTheyAre) {
    const int slot = LinkJoints(4);
    SelectRows(slot, {1});
    script.said.clear();
    for (const char* ignored : {"", "MI", "mi:1,2,F,F,3,4,2001", "XX:1,2,F,F,3,4,2001"}) {
        HandleToolButton(ignored);
        EXPECT_TRUE(script.said.empty()) << ignored;
    }
    for (const char* bad :
         {"MI:,,,,,,2001", "MI:a,b,F,F,3,4,2001", "MI:1,2,F,F,,,2002", "MI:nan,2,F,F,3,4,2002"}) {
        Expect("There has been a problem linking this selection - attempt abandoned");
        HandleToolButton(bad);
    }
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(SelectionLink, AnotherToolMarksTheSelectionOfTheSessionAndSendsNothing) {
    LinkJoints(9);
    script.tables.push_back({"Selection", Joints().columns, Joints(2).rows});
    script.answers["SelectionInfo(1)"] = "Joints";
    script.answers["SelectionInfo(3)"] = "2";
    script.onCall = [this](const std::string& call) {
        if (call.starts_with("Do Fetch Rec ")) {
            script.answers["Selection.RowID"] = call.substr(13, 1) == "1" ? "4" : "8";
        }
    };
    HandleToolButton("MI:1,2,F,F,3,4,2003");
    EXPECT_EQ(gSelectionRows, (Rows{4, 8}));
    EXPECT_TRUE(script.Statements("Select").empty());
    script.answers["SelectionInfo(3)"] = "0";
    HandleToolButton("MI:");
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_TRUE(script.Statements("Select").empty());
}

TEST_F(SelectionLink, AChangeInPassingIsNoReasonForABox) {
    script.tables = {Joints(4)};
    Link();
    script.answers["SelectionInfo(1)"] = "Joints";
    script.answers["SelectionInfo(3)"] = "1";
    script.answers["Selection.RowID"] = "2";
    HandleToolButton("MI:1,2,F,F,3,4");
    EXPECT_EQ(window.statusTexts.back(), "You do not yet have any plots to link with.");
    Expect("You do not yet have any plots to link with.");
    HandleToolButton("MI:1,2,F,F,3,4,9");
}

TEST_F(SelectionLink, OtherPlotsSendNothingButTakeTheSelectionAway) {
    const int linked = LinkJoints(4);
    const int plain = NewPlot();
    AddRow(30, 120);
    SelectRows(plain, {1});
    EXPECT_TRUE(script.Statements("Select").empty());
    SelectRows(linked, {2});
    SelectRows(plain, {1});
    EXPECT_EQ(script.Statements("Select"), (Texts{"Select * From Joints Where RowID = 2",
                                                  "Select * From Joints Where RowID = 0"}));
}

TEST_F(SelectionLink, ARefusedSelectIsToldOnceAndTheBatchIsEnded) {
    const int slot = LinkJoints(4);
    script.refused = {"Select * From Joints Where RowID = 1",
                      "Select * From Joints Where RowID = 2"};
    Expect("There has been a problem linking this selection - attempt abandoned");
    SelectRows(slot, {1});
    EXPECT_EQ(script.said.back(), "EndSelects");
    SelectRows(slot, {2});
    EXPECT_TRUE(IsMapInfoLinked());
    SelectRows(slot, {3});
    Expect("There has been a problem linking this selection - attempt abandoned");
    SelectRows(slot, {1});
    Expect("There has been a problem linking this selection - attempt abandoned");
    SelectPlotRowsInMap(); // asked for
}

TEST_F(SelectionLink, ASessionThatDiesAtASelectionIsToldOnce) {
    const int slot = LinkJoints(4);
    script.dies = "Select * From Joints Where RowID = 1";
    Expect("There has been a problem linking this selection - attempt abandoned");
    SelectRows(slot, {1});
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_FALSE(window.isOpen);
    EXPECT_EQ(RecordOf(slot).MapInfoLinked, 0);
    SelectRows(slot, {2});
    EXPECT_EQ(gSelectionRows, Rows{2}) << "the program goes on";
}

TEST_F(SelectionLink, ASessionThatDiesAtASearchIsToldOnceAndOutlivesItsCall) {
    LinkJoints(4);
    script.dies = "SearchPoint(5,1,2)";
    Expect("There has been a problem linking this selection - attempt abandoned");
    script.callback->HandleToolButton("MI:1,2,F,F,1,2,2001");
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_TRUE(script.isAlive) << "it is still within its call";
}

TEST_F(SelectionLink, CallsWithinAnActionAndALongLoopAreNotAnswered) {
    const int slot = LinkJoints(4);
    Find("SearchPoint(5,1,2)", {{"Joints", 3}});
    script.onCall = [this](const std::string& call) {
        if (call.starts_with("Do Select")) {
            script.callback->HandleToolButton("MI:1,2,F,F,1,2,2001");
        }
    };
    SelectRows(slot, {1});
    EXPECT_EQ(gSelectionRows, Rows{1});
    script.onCall = {};
    gBusy = true;
    script.callback->HandleToolButton("MI:1,2,F,F,1,2,2001");
    script.callback->HandleToolButton("MI:a,b,F,F,1,2,2001");
    gBusy = false;
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(SelectionLink, TheSelectionTakesPartAmongTheTablesWhenItHoldsRows) {
    Link();
    InMapAction([this] {
        for (const auto& [answer, isIncluded] : std::vector<std::pair<std::string, bool>>{
                 {"3", true}, {"0", false}, {"-1", false}, {"x", false}}) {
            script.answers["SelectionInfo(3)"] = answer;
            EXPECT_EQ(IncludeSelection(), isIncluded) << answer;
        }
    });
}

TEST_F(SelectionLink, CoordinatesAreWrittenSoThatTheyLeadBack) {
    LinkJoints(2);
    for (const auto& [x, text] :
         std::vector<std::pair<double, std::string>>{{0.1, "0.1"},
                                                     {-0.0000025, "-0.0000025"},
                                                     {500000.125, "500000.125"},
                                                     {12345678, "12345678"}}) {
        script.said.clear();
        Find("SearchPoint(5," + text + ",0)", {{"Joints", 1}});
        SelectFromMap(x, 0);
        EXPECT_EQ(script.said.at(2), "Eval SearchPoint(5," + text + ",0)");
    }
}

} // namespace
} // namespace quandrel
