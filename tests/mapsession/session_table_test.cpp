// SPDX-License-Identifier: MIT

#include "mapsession/session_table.h"

#include <limits>

namespace quandrel {
namespace {

SessionTable TwoRows() {
    SessionTable table("t", "t.tab");
    table.AddColumn("a", SessionColumnKind::Number);
    table.AddColumn("b", SessionColumnKind::Text);
    const std::vector<std::string> whole = {"1", "x"};
    const std::vector<std::string> shortOne = {"2"};
    const std::vector<std::string> longOne = {"3", "z", "lost"};
    table.AddRow(whole);
    table.AddRow(shortOne);
    table.AddRow(longOne);
    return table;
}

TEST(SessionTable, KeepsCellsByRowAndColumn) {
    const SessionTable table = TwoRows();
    EXPECT_EQ(table.RowCount(), 3);
    EXPECT_EQ(table.ColumnCount(), 2);
    EXPECT_EQ(table.Cell(1, 1), "1");
    EXPECT_EQ(table.Cell(1, 2), "x");
    EXPECT_EQ(table.Cell(2, 2), "");
    EXPECT_EQ(table.Cell(3, 1), "3");
    EXPECT_EQ(table.Cell(3, 2), "z");
    EXPECT_EQ(table.Column(2).name, "b");
}

TEST(SessionTable, BelongsAPartToTheLastRow) {
    SessionTable table = TwoRows();
    const std::vector<MapPoint> line = {{1, 2}, {3, 5}};
    table.AddPart(MapPartKind::Line, line);
    EXPECT_TRUE(table.ShapeOf(1).empty());
    ASSERT_EQ(table.ShapeOf(3).size(), 1U);
    EXPECT_EQ(table.ShapeOf(3)[0].points[1], (MapPoint{3, 5}));
    EXPECT_EQ(table.BoxOf(3).top, 5);
    EXPECT_TRUE(table.BoxOf(1).IsEmpty());
    EXPECT_TRUE(table.IsMappable());
}

TEST(SessionTable, LeavesOutPartsThatAreNoPlaces) {
    SessionTable table = TwoRows();
    const std::vector<MapPoint> bad = {{1, 2}, {std::numeric_limits<double>::quiet_NaN(), 5}};
    const std::vector<MapPoint> far = {{std::numeric_limits<double>::infinity(), 0}};
    table.AddPart(MapPartKind::Line, bad);
    table.AddPart(MapPartKind::Points, far);
    table.AddPart(MapPartKind::Points, {});
    EXPECT_FALSE(table.IsMappable());
    EXPECT_TRUE(table.ShapeOf(3).empty());
}

} // namespace
} // namespace quandrel
