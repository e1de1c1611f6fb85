// SPDX-License-Identifier: MIT

#include "mapsession/embedded_session.h"
#include "sample_session.h"

#include <numeric>

namespace quandrel {
namespace {

/// Statements that select rows, none longer than 240 bytes.
std::vector<std::string> Selects(const std::string& table, const std::vector<int>& rows) {
    std::vector<std::string> statements;
    for (const int row : rows) {
        const std::string number = "RowID = " + std::to_string(row);
        if (statements.empty() || statements.back().size() + 4 + number.size() > 240) {
            statements.push_back("Select * From " + table + " Where " + number);
        } else {
            statements.back() += " or " + number;
        }
    }
    return statements;
}

TEST(EmbeddedSession, OpensAFileOnce) {
    SampleSession sample;
    EXPECT_EQ(sample.Do("Open Table \"dips.tab\""), "Done");
    EXPECT_EQ(sample.Do("Open Table \"dips.tab\""), "Done");
    EXPECT_EQ(sample.Eval("NumTables()"), "1");
    EXPECT_EQ(sample.tables->opened, 1);
}

TEST(EmbeddedSession, TellsAFileThatCannotBeOpened) {
    SampleSession sample;
    const MapReply reply = sample.session->Do("Open Table \"nowhere.tab\"");
    EXPECT_EQ(reply.kind, MapReplyKind::Refused);
    EXPECT_EQ(reply.text, "There is no file nowhere.tab");
    EXPECT_EQ(sample.session->LastErrorCode(), kSessionFileError);
    EXPECT_EQ(sample.Eval("NumTables()"), "0");
    EXPECT_EQ(sample.session->LastErrorCode(), 0);
}

TEST(EmbeddedSession, NamesTablesSoThatStatementsCanReadThem) {
    SampleSession sample;
    sample.tables->files["a"] = {PointGrid("2 dips-new", 1, 1)};
    sample.tables->files["b"] = {PointGrid("_2_DIPS_new", 1, 1)};
    sample.tables->files["c"] = {PointGrid("Selection", 1, 1)};
    sample.tables->files["d"] = {PointGrid("K\xC3\xBCste", 1, 1), PointGrid("", 1, 1)};
    for (const char* const file : {"a", "b", "c", "d"}) {
        EXPECT_EQ(sample.Do("Open Table \"" + std::string(file) + "\""), "Done");
    }
    EXPECT_EQ(sample.Eval("TableInfo(1,1)"), "_2_dips_new");
    EXPECT_EQ(sample.Eval("TableInfo(2,1)"), "_2_DIPS_new_2");
    EXPECT_EQ(sample.Eval("TableInfo(3,1)"), "Selection_2");
    EXPECT_EQ(sample.Eval("TableInfo(4,1)"), "K\xC3\xBCste");
    for (int i = 1; i <= 5; ++i) {
        const std::string name = sample.Eval("TableInfo(" + std::to_string(i) + ",1)");
        EXPECT_EQ(sample.Do("Fetch First From " + name), "Done") << name;
        EXPECT_EQ(sample.Eval(name + ".Col(1)"), "1") << name;
    }
}

TEST(EmbeddedSession, FetchesRowByRowToTheEnd) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"faults.tab\"");
    std::string read;
    EXPECT_EQ(sample.Do("Fetch First From faults"), "Done");
    while (sample.Eval("EOT(faults)") == "F") {
        read += sample.Eval("faults.Col(1)") + sample.Eval("faults.Col(2)") + " ";
        EXPECT_EQ(sample.Do("Fetch Next From faults"), "Done");
    }
    EXPECT_EQ(read, "1odd 2even 3odd ");
    EXPECT_EQ(sample.Do("Fetch Next From faults"), "Done");
    EXPECT_EQ(sample.Eval("EOT(faults)"), "T");
    EXPECT_EQ(sample.Eval("faults.Col(1)"), "Refused 4");
    EXPECT_EQ(sample.Do("Fetch Rec 2 From faults"), "Done");
    EXPECT_EQ(sample.Eval("EOT(faults)"), "F");
    EXPECT_EQ(sample.Eval("faults.Col(1)"), "2");
}

TEST(EmbeddedSession, RefusesARecordThatIsNotThere) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"faults.tab\"");
    for (const char* const row : {"0", "4", "-1", "4294967297"}) {
        EXPECT_EQ(sample.Do("Fetch Rec " + std::string(row) + " From faults"), "Refused 4") << row;
        EXPECT_EQ(sample.Eval("EOT(faults)"), "T");
    }
    EXPECT_EQ(sample.Do("Fetch First From other"), "Refused 2");
}

TEST(EmbeddedSession, FetchesTheFirstOfNoRowsAsTheEnd) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"empty.tab\"");
    EXPECT_EQ(sample.Do("Fetch First From empty"), "Done");
    EXPECT_EQ(sample.Eval("EOT(empty)"), "T");
    EXPECT_EQ(sample.Do("Fetch Rec 1 From empty"), "Refused 4");
    EXPECT_EQ(sample.Do("Map From empty"), "Refused 2");
    EXPECT_EQ(sample.Do("Browse * From empty"), "Done");
}

TEST(EmbeddedSession, ReplacesTheSelectionByEachSelect) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Select * From dips Where RowID = 9 or RowID = 3 or RowID = 9");
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{3, 9}));
    (void)sample.session->Do("Select * From dips Where RowID = 5 or RowID = 101 or RowID = 0");
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{5}));
    (void)sample.session->Do("Select * From dips Where RowID = 0");
    EXPECT_TRUE(sample.SelectedRows().empty());
    EXPECT_EQ(sample.Eval("SelectionInfo(3)"), "0");
    EXPECT_EQ(sample.Do("Select * From other Where RowID = 1"), "Refused 2");
}

TEST(EmbeddedSession, UnitesTheSelectsOfABracket) {
    SampleSession sample;
    sample.tables->files["large.tab"] = {PointGrid("large", 100, 50)};
    (void)sample.session->Do("Open Table \"large.tab\"");
    (void)sample.session->Do("Select * From large Where RowID = 5000");
    std::vector<int> rows(300);
    std::iota(rows.begin(), rows.end(), 1001);
    const std::vector<std::string> statements = Selects("large", rows);
    EXPECT_GT(statements.size(), 15U);

    const int refreshedBefore = sample.host.refreshed;
    ASSERT_TRUE(sample.session->UnitesSelects());
    sample.session->BeginSelects();
    for (const std::string& statement : statements) {
        EXPECT_LE(statement.size(), 240U);
        EXPECT_EQ(sample.Do(statement), "Done");
    }
    sample.session->EndSelects();
    EXPECT_EQ(sample.SelectedRows(), rows);
    EXPECT_EQ(sample.host.refreshed, refreshedBefore + 1);

    // After the end of the batch, each statement replaces the former selection again.
    (void)sample.session->Do(statements.front());
    EXPECT_LT(sample.SelectedRows().size(), 300U);
}

TEST(EmbeddedSession, KeepsTheSelectionWhenABracketBringsNone) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Select * From dips Where RowID = 5");
    sample.session->BeginSelects();
    EXPECT_EQ(sample.Do("Select * From dips Where"), "Refused 1");
    sample.session->EndSelects();
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{5}));
}

TEST(EmbeddedSession, HasTheSelectedRowsAsATable) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Select * From dips Where RowID = 40 or RowID = 7");
    std::string read;
    for (int i = 1; i <= 2; ++i) {
        EXPECT_EQ(sample.Do("Fetch Rec " + std::to_string(i) + " From Selection"), "Done");
        read += sample.Eval("Selection.RowID") + ":" + sample.Eval("Selection.Col(1)") + " ";
    }
    EXPECT_EQ(read, "7:7 40:40 ");
    EXPECT_EQ(sample.Do("Fetch Rec 3 From Selection"), "Refused 4");
    EXPECT_EQ(sample.Eval("EOT(Selection)"), "T");
    // Row numbers are those of the table.
    EXPECT_EQ(sample.Do("Select * From Selection Where RowID = 7 or RowID = 8"), "Done");
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{7}));
    EXPECT_EQ(sample.Eval("NumTables()"), "1");
    // Another selection has to be fetched again.
    EXPECT_EQ(sample.Do("Fetch First From Selection"), "Done");
    EXPECT_EQ(sample.Eval("Selection.RowID"), "7");
    EXPECT_EQ(sample.Do("Select * From dips Where RowID = 9"), "Done");
    EXPECT_EQ(sample.Eval("Selection.RowID"), "Refused 4");
}

TEST(EmbeddedSession, OpensWindowsWhereItWasTold) {
    SampleSession sample;
    (void)sample.session->Do("Set Application Window 500");
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Set Next Document Parent 600 Style 1");
    EXPECT_EQ(sample.Do("Map From dips"), "Done");
    EXPECT_EQ(sample.Do("Browse * From dips"), "Done");
    (void)sample.session->Do("Set Next Window Info Parent 700");
    EXPECT_EQ(sample.Do("Open Window Info"), "Done");
    EXPECT_EQ(sample.host.told, (std::vector<std::string>{"started", "show 1 in 600",
                                                          "show 2 in 500", "show 3 in 700"}));
    EXPECT_EQ(sample.callback.changedWindows, (std::vector<std::int64_t>{1, 2, 3}));
    EXPECT_EQ(sample.Eval("FrontWindow()"), "2"); // an info window does not come to the front
    EXPECT_EQ(sample.Do("Close Window 2"), "Done");
    EXPECT_EQ(sample.Eval("FrontWindow()"), "1");
    EXPECT_EQ(sample.Do("Close Window 2"), "Refused 5");
    EXPECT_EQ(sample.host.told.back(), "drop 2");
    sample.session->WindowClosedByUser(1);
    EXPECT_EQ(sample.Eval("FrontWindow()"), "0");
    EXPECT_EQ(sample.Eval("NumWindows()"), "1");
}

TEST(EmbeddedSession, ClosesATableWithAllThatShowsIt) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Open Table \"faults.tab\"");
    (void)sample.session->Do("Map From dips, faults");
    (void)sample.session->Do("Map From dips");
    (void)sample.session->Do("Browse * From dips");
    (void)sample.session->Do("Select * From dips Where RowID = 1");
    (void)sample.Eval("SearchPoint(1,1,0)");
    sample.callback.changedWindows.clear();

    EXPECT_EQ(sample.Do("Close Table dips"), "Done");
    EXPECT_EQ(sample.Eval("NumTables()"), "1");
    EXPECT_EQ(sample.Eval("NumWindows()"), "1");
    EXPECT_EQ(sample.Eval("MapperInfo(1,9)"), "1");
    EXPECT_EQ(sample.Eval("LayerInfo(1,1,1)"), "faults");
    EXPECT_EQ(sample.Eval("SelectionInfo(3)"), "0");
    EXPECT_EQ(sample.Eval("SelectionInfo(1)"), "");
    EXPECT_EQ(sample.Eval("SearchInfo(1,1)"), "faults");
    EXPECT_EQ(sample.Eval("SearchInfo(2,1)"), "Refused 6");
    EXPECT_EQ(sample.callback.changedWindows, (std::vector<std::int64_t>{2, 3, 1}));
    EXPECT_EQ(sample.Do("Close Table dips"), "Refused 2");
}

TEST(EmbeddedSession, OpensTheTableThatItsUserChooses) {
    SampleSession sample;
    sample.host.nextTable = "dips.tab";
    EXPECT_TRUE(sample.session->RunMenuCommand(102).IsDone());
    EXPECT_EQ(sample.Eval("WindowInfo(FrontWindow(),3)"), "1");
    sample.host.nextTable = "empty.tab"; // without anything to map
    EXPECT_TRUE(sample.session->RunMenuCommand(102).IsDone());
    EXPECT_EQ(sample.Eval("WindowInfo(FrontWindow(),3)"), "2");
    sample.host.nextTable = "";
    EXPECT_TRUE(sample.session->RunMenuCommand(102).IsDone());
    sample.host.nextTable = "nowhere.tab";
    EXPECT_FALSE(sample.session->RunMenuCommand(102).IsDone());
    EXPECT_EQ(sample.Eval("NumTables()"), "2");
    EXPECT_EQ(sample.Eval("NumWindows()"), "2");
}

TEST(EmbeddedSession, ChoosesToolsByTheirIds) {
    SampleSession sample;
    EXPECT_EQ(sample.Do("Run Menu Command ID 2001"), "Refused 6");
    (void)sample.session->Do(
        "Create ButtonPad \"Custom Tools\" As ToolButton ID 2001 DrawMode 34 Calling OLE "
        "\"HandleToolButton\" ToolButton ID 2002 DrawMode 32 Calling OLE \"HandleToolButton\"");
    EXPECT_EQ(sample.Do("Run Menu Command ID 2001"), "Done");
    EXPECT_EQ(sample.session->State().tool, 2001);
    for (const int tool : {1701, 1702, 1703, 1705, 1706, 1722}) {
        EXPECT_TRUE(sample.session->RunMenuCommand(tool).IsDone()) << tool;
        EXPECT_EQ(sample.host.told.back(), "tool " + std::to_string(tool));
    }
    EXPECT_EQ(sample.Do("Run Menu Command 1701"), "Done");
    EXPECT_EQ(sample.Do("Run Menu Command ID 1701"), "Refused 6");
    EXPECT_FALSE(sample.session->RunMenuCommand(4711).IsDone());
    EXPECT_EQ(sample.session->State().tool, 1701);
}

TEST(EmbeddedSession, CallsTheProgramFromItsTools) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    (void)sample.session->Do(
        "Create ButtonPad \"Custom Tools\" As ToolButton ID 2001 DrawMode 34 Calling OLE "
        "\"HandleToolButton\" ToolButton ID 2002 DrawMode 32 Calling OLE \"HandleToolButton\"");
    (void)sample.session->Do("Run Menu Command ID 2002");
    sample.session->UseTool(map, {1.5, -2}, {3.25, 40}, {.shift = true});
    (void)sample.session->Do("Run Menu Command ID 2001");
    sample.session->UseTool(map, {1.5, -2}, {3.25, 40}, {.control = true});
    EXPECT_EQ(sample.callback.messages, (std::vector<std::string>{"MI:1.5,-2,T,F,3.25,40,2002",
                                                                  "MI:1.5,-2,F,T,1.5,-2,2001"}));
    EXPECT_TRUE(sample.SelectedRows().empty());
    sample.session->UseTool(99, {0, 0}, {1, 1}, {});
    EXPECT_EQ(sample.callback.messages.size(), 2U);
}

TEST(EmbeddedSession, SelectsWithItsOwnToolsAndTellsIt) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    (void)sample.session->RunMenuCommand(kToolSelector);
    sample.session->UseTool(map, {4.03, 2}, {4.03, 2}, {});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{24}));
    sample.session->UseTool(map, {1, 0}, {1, 0}, {.shift = true});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{1, 24}));
    EXPECT_EQ(sample.callback.messages.back(), "MI:1,0,T,F,1,0");

    (void)sample.session->RunMenuCommand(kToolMarquee);
    sample.session->UseTool(map, {1.5, 0.5}, {3.5, 1.5}, {});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{12, 13}));
    sample.session->UseTool(map, {1.4, 0.4}, {1.6, 0.6}, {.shift = true});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{12, 13}));

    (void)sample.session->RunMenuCommand(kToolRadius);
    sample.session->UseTool(map, {5, 5}, {5, 6.1}, {}); // five points within 1.1
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{45, 54, 55, 56, 65}));
    sample.session->UseTool(map, {-5, -5}, {-5, -4}, {});
    EXPECT_TRUE(sample.SelectedRows().empty());
}

TEST(EmbeddedSession, TakesTheNearestOfSeveralObjects) {
    SampleSession sample;
    SessionTable crowd("crowd", "crowd.tab");
    for (const double x : {0.0, 1.0, 100.0}) {
        crowd.AddRow({});
        const MapPoint point{x, 0};
        crowd.AddPart(MapPartKind::Points, std::span(&point, 1));
    }
    sample.tables->files["crowd.tab"] = {crowd};
    (void)sample.session->Do("Open Table \"crowd.tab\"");
    (void)sample.session->Do("Map From crowd");
    sample.session->UseTool(1, {0.4, 0}, {0.4, 0}, {}); // a pixel is about 0.17 units
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{1}));
    sample.session->UseTool(1, {0.6, 0}, {0.6, 0}, {});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{2}));
}

TEST(EmbeddedSession, SelectsInTheTopmostLayerThatHasSomething) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Open Table \"faults.tab\"");
    (void)sample.session->Do("Map From faults, dips");
    (void)sample.session->RunMenuCommand(kToolMarquee);
    sample.session->UseTool(1, {0, -1}, {2.5, 1.5}, {});
    EXPECT_EQ(sample.session->State().selection.table, "faults");
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{1, 2}));
    sample.session->UseTool(1, {0, 0.5}, {2.5, 1.5}, {});
    EXPECT_EQ(sample.session->State().selection.table, "dips");
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{11, 12}));

    EXPECT_TRUE(sample.session->RunMenuCommand(kCommandLayerControl).IsDone());
    sample.session->UseTool(1, {0, -1}, {2.5, 0.5}, {});
    EXPECT_EQ(sample.session->State().selection.table, "dips");
}

TEST(EmbeddedSession, MovesTheMapWithItsOtherTools) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    const MapView& view = FindSessionWindow(sample.session->State(), map)->view;
    EXPECT_NEAR(view.UnitsPerPixel(), 0.01, 1e-12);
    (void)sample.session->RunMenuCommand(kToolZoomIn);
    sample.session->UseTool(map, {2, 3}, {2.02, 3}, {}); // two pixels are a click
    EXPECT_EQ(view.Middle(), (MapPoint{2, 3}));
    EXPECT_NEAR(view.UnitsPerPixel(), 0.005, 1e-12);
    sample.session->UseTool(map, {1, 1}, {1.9, 1.9}, {});
    EXPECT_NEAR(view.UnitsPerPixel(), 0.001, 1e-12);
    (void)sample.session->RunMenuCommand(kToolZoomOut);
    sample.session->UseTool(map, {1, 1}, {1, 1}, {});
    EXPECT_NEAR(view.UnitsPerPixel(), 0.002, 1e-12);
    (void)sample.session->RunMenuCommand(kToolGrabber);
    sample.session->UseTool(map, {1, 1}, {0.5, 2}, {});
    EXPECT_EQ(view.Middle(), (MapPoint{1.5, 0}));
    const MapPoint before = view.ToPixels({1.25, 0.5});
    sample.session->ZoomAt(map, {1.25, 0.5}, 3);
    EXPECT_NEAR(view.ToPixels({1.25, 0.5}).x, before.x, 1e-9);
    EXPECT_NEAR(view.ToPixels({1.25, 0.5}).y, before.y, 1e-9);
    EXPECT_TRUE(sample.callback.messages.empty());
}

TEST(EmbeddedSession, FindsTheSelection) {
    SampleSession sample;
    EXPECT_FALSE(sample.session->RunMenuCommand(kCommandFindSelection).IsDone());
    const std::int64_t map = sample.OpenMapOfDips();
    const MapView& view = FindSessionWindow(sample.session->State(), map)->view;
    (void)sample.session->Do("Select * From dips Where RowID = 1 or RowID = 23");
    EXPECT_TRUE(sample.session->RunMenuCommand(kCommandFindSelection).IsDone());
    EXPECT_EQ(view.Middle(), (MapPoint{2, 1})); // between (1, 0) and (3, 2)
    EXPECT_NEAR(view.UnitsPerPixel(), 0.01, 1e-12);
    // From a browser the first map is meant.
    (void)sample.session->Do("Browse * From dips");
    (void)sample.session->Do("Select * From dips Where RowID = 100");
    EXPECT_TRUE(sample.session->RunMenuCommand(kCommandFindSelection).IsDone());
    EXPECT_EQ(view.Middle(), (MapPoint{10, 9}));
}

TEST(EmbeddedSession, SelectsWhatIsChosenInABrowser) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Browse * From dips");
    sample.session->SelectInBrowser(1, {8, 3});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{3, 8}));
    EXPECT_EQ(sample.callback.messages.size(), 1U);
    (void)sample.session->Do("Browse * From Selection");
    sample.session->SelectInBrowser(2, {3});
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{3, 8}));
}

TEST(EmbeddedSession, TellsNobodyWithoutScreenAndProgram) {
    auto tables = std::make_shared<MemoryTables>();
    tables->files["dips.tab"] = {PointGrid("dips", 10, 10)};
    EmbeddedMapSession session(tables, nullptr);
    EXPECT_TRUE(session.Do("Open Table \"dips.tab\"").IsDone());
    EXPECT_TRUE(session.Do("Map From dips").IsDone());
    EXPECT_TRUE(session.RunMenuCommand(kToolMarquee).IsDone());
    EXPECT_FALSE(session.RunMenuCommand(kCommandOpenTable).IsDone());
    EXPECT_FALSE(session.RunMenuCommand(kCommandLayerControl).IsDone());
    session.UseTool(1, {0, 0}, {3, 3}, {});
    EXPECT_EQ(session.State().selection.rows.size(), 12U);
}

/// A program that asks and selects while it is being notified.
class BusyCallback : public RecordingCallback {
public:
    EmbeddedMapSession* session = nullptr;

    void WindowContentsChanged(std::int64_t windowId) override {
        RecordingCallback::WindowContentsChanged(windowId);
        (void)session->Eval("Nonsense(");
        (void)session->Do("Select * From dips Where RowID = 2");
        (void)session->Eval("Nonsense(");
    }
};

TEST(EmbeddedSession, BearsStatementsWhileItTells) {
    SampleSession sample;
    BusyCallback callback;
    callback.session = sample.session.get();
    sample.session->SetCallback(&callback);
    (void)sample.session->Do("Open Table \"dips.tab\"");
    EXPECT_TRUE(sample.session->Do("Map From dips").IsDone());
    EXPECT_EQ(sample.session->LastErrorCode(), 0);
    EXPECT_EQ(callback.changedWindows, (std::vector<std::int64_t>{1}));
    EXPECT_EQ(sample.SelectedRows(), (std::vector<int>{2}));
}

TEST(EmbeddedSession, TellsItsScreenOfItsEnd) {
    SampleSession sample;
    sample.session.reset();
    EXPECT_EQ(sample.host.told, (std::vector<std::string>{"started", "ended"}));
}

} // namespace
} // namespace quandrel
