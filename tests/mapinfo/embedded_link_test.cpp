// SPDX-License-Identifier: MIT
//
// The link over the map session that comes with the program.

#include "link_test_base.h"
#include "mapinfo/map_windows.h"
#include "mapsession/embedded_session.h"

#include <span>
#include <utility>

namespace quandrel {
namespace {

/// Points at (row, 0), with dip, dip direction, number and type; every seventh dip is invalid.
SessionTable PointTable(const std::string& name, int rows) {
    SessionTable table(name, name + ".tab");
    table.AddColumn("Dip", SessionColumnKind::Number);
    table.AddColumn("DipDir", SessionColumnKind::Number);
    table.AddColumn("Length", SessionColumnKind::Number);
    table.AddColumn("Kind", SessionColumnKind::Text);
    for (int row = 1; row <= rows; ++row) {
        const std::vector<std::string> cells = {row % 7 == 0 ? "99" : std::to_string(row % 90),
                                                std::to_string(row % 360), "1.25", "joint"};
        table.AddRow(cells);
        const MapPoint point{static_cast<double>(row), 0};
        table.AddPart(MapPartKind::Points, std::span(&point, 1));
    }
    return table;
}

class PointTables : public TableSource {
public:
    SessionResult<std::vector<SessionTable>> OpenTables(const std::string& path) override {
        return std::vector<SessionTable>{PointTable(path, path == "none" ? 0 : 5000)};
    }
};

class PointSessions : public MapSessions {
public:
    EmbeddedMapSession* session = nullptr;

    [[nodiscard]] std::unique_ptr<MapSession> FindRunning() override { return nullptr; }

    [[nodiscard]] std::unique_ptr<MapSession> Start() override {
        auto made = std::make_unique<EmbeddedMapSession>(std::make_shared<PointTables>(), nullptr);
        session = made.get();
        return made;
    }

    [[nodiscard]] bool IsRegistered() override { return true; }
};

class EmbeddedLink : public LinkTest {
protected:
    void SetUp() override {
        LinkTest::SetUp();
        gPlatform.mapLink.sessions = &points;
        ASSERT_TRUE(StartMapInfoLink());
        Say("Open Table \"joints\"");
    }

    void Say(const std::string& statement) {
        EXPECT_TRUE(points.session->Do(statement).IsDone()) << statement;
    }

    [[nodiscard]] const std::vector<int>& SelectedOnMap() const {
        return points.session->State().selection.rows;
    }

    /// Plots a table. Returns its slot.
    int Plot(const std::string& table) {
        AcceptJoints();
        prompts.ExpectAny("invalid orientation data");
        prompts.ExpectAny("invalid data have been detected");
        EXPECT_EQ(PasteMITable(table, kNewCommand), kNewCommand);
        return gActivePlot;
    }

    /// The plot rows of table rows, and the other way round: all rows are in the plot.
    static Rows Sorted(std::vector<int> rows) {
        std::sort(rows.begin(), rows.end());
        return {rows.begin(), rows.end()};
    }

    PointSessions points;
};

/// 300 rows that are data.
Rows ThreeHundred() {
    Rows rows;
    for (std::int32_t row = 5; rows.size() < 300; row += 11) {
        if (row % 7 != 0) {
            rows.push_back(row);
        }
    }
    return rows;
}

TEST_F(EmbeddedLink, WhatIsSelectedOnTheNetIsSelectedOnTheMap) {
    const int slot = Plot("joints");
    EXPECT_EQ(RecordOf(slot).NumData, 5000);
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), 5000U - 5000U / 7);
    SelectRows(slot, ThreeHundred());
    EXPECT_GT(gMIRowList.size(), 10U);
    EXPECT_EQ(Sorted(SelectedOnMap()), ThreeHundred());
    SelectRows(slot, {7, 8}); // row 7 holds no data
    EXPECT_EQ(SelectedOnMap(), std::vector<int>{8});
    ClearSelection();
    EXPECT_TRUE(SelectedOnMap().empty());
}

TEST_F(EmbeddedLink, WhatIsChosenOnTheMapIsSelectedOnTheNet) {
    const int slot = Plot("joints");
    ASSERT_TRUE(OpenMIWindow(MapWindowKind::Map, "joints"));
    EXPECT_EQ(window.caption, "MapInfo Tables: joints");
    SelectFromMap(99.5, -1, 449.5, 1);
    Rows expected;
    for (std::int32_t row = 100; row < 450; ++row) {
        if (row % 7 != 0) {
            expected.push_back(row);
        }
    }
    ASSERT_EQ(expected.size(), 300U);
    EXPECT_EQ(gSelectionRows, expected);
    EXPECT_EQ(Selection::now.slot, slot);
    EXPECT_EQ(Sorted(SelectedOnMap()), expected);
    SelectFromMap(6000, 5, 7000, 6);
    EXPECT_EQ(gSelectionRows, expected) << "there is nothing";
}

TEST_F(EmbeddedLink, TheToolsOfTheSessionReachThePlot) {
    const int slot = Plot("joints");
    const auto map = OpenMIWindow(MapWindowKind::Map, "joints");
    ASSERT_TRUE(map);
    points.session->ResizeWindow(*map, 1000, 1000);
    ASSERT_TRUE(MIDo("Run Menu Command ID 2002"));
    points.session->UseTool(*map, {9.5, -1}, {12.5, 1}, {});
    EXPECT_EQ(gSelectionRows, (Rows{10, 11, 12}));
    EXPECT_EQ(Selection::now.slot, slot);
    // The session's own marquee selects first, and reports it afterwards.
    ASSERT_TRUE(MIRunMenuCommand(1722));
    points.session->UseTool(*map, {19.5, -1}, {21.5, 1}, {});
    EXPECT_EQ(gSelectionRows, Rows{20}) << "21 holds no data";
    EXPECT_EQ(SelectedOnMap(), (std::vector<int>{20, 21})) << "it keeps its own selection";
}

TEST_F(EmbeddedLink, TwoTablesLightUpInTheirOwnPlots) {
    const int joints = Plot("joints");
    Say("Open Table \"faults\"");
    const int faults = Plot("faults");
    ASSERT_TRUE(OpenMIWindow(MapWindowKind::Map, "joints"));
    SelectFromMap(29.5, -1, 30.5, 1);
    EXPECT_EQ(gActivePlot, joints);
    EXPECT_EQ(Selection::now.slot, joints);
    EXPECT_EQ(gSelectionRows, Rows{30});
    SelectRows(faults, {31});
    EXPECT_EQ(points.session->State().selection.table, "faults");
    EXPECT_EQ(SelectedOnMap(), std::vector<int>{31});
}

TEST_F(EmbeddedLink, TheSelectionIsPlottedWithTheRowsOfItsTable) {
    Say("Select * From joints Where RowID = 40 or RowID = 50");
    EXPECT_EQ(MITableChoices(), (std::vector<std::string>{"joints", "Selection"}));
    const int slot = Plot("Selection");
    EXPECT_EQ(RecordOf(slot).NumData, 2);
    SelectRows(slot, {2});
    EXPECT_EQ(SelectedOnMap(), std::vector<int>{50});
}

TEST_F(EmbeddedLink, ATableWithoutRowsAndAClosedOneAreTold) {
    Say("Open Table \"none\"");
    Expect("The table none has no rows.");
    EXPECT_EQ(PasteMITable("none", kNewCommand), kLoadError);
    const int slot = Plot("joints");
    Say("Close Table joints");
    Expect("There has been a problem linking this selection - attempt abandoned");
    SelectRows(slot, {1});
    EXPECT_TRUE(IsMapInfoLinked());
}

} // namespace
} // namespace quandrel
