// SPDX-License-Identifier: MIT

#include "orientation/projection.h"
#include "support/text_table.h"

#include <gtest/gtest.h>

namespace quandrel {

namespace {

constexpr int kEqualAreaNet = 1;
constexpr int kEqualAngleNet = 2;

int NetOf(const TableRow& row) {
    const std::string net = OptionOf(row, "net", "");
    if (net != "area" && net != "angle") {
        throw TableError(row.place + ": the net is area or angle");
    }
    return net == "area" ? kEqualAreaNet : kEqualAngleNet;
}

std::string Projected(const TableRow& row) {
    const std::vector<double> line = NumbersOf(row, 2);
    double x = 0;
    double y = 0;
    ProjectPoint(NetOf(row), DegToRad(line[0]), DegToRad(line[1]), x, y);
    return NumberWords({x, y});
}

std::string Unprojected(const TableRow& row) {
    const std::vector<double> place = NumbersOf(row, 2);
    double plunge = 0;
    double trend = 0;
    UnprojectPosition(NetOf(row), place[0], place[1], plunge, trend);
    return NumberWords({RadToDeg(plunge), RadToDeg(trend)});
}

/// The line that comes back from its own position.
std::string ThereAndBack(const TableRow& row) {
    TableRow place = row;
    place.input = Projected(row);
    return Unprojected(place);
}

/// Centre and radius of the arc of a plane, given by dip and dip direction.
std::string ArcOfPlane(const TableRow& row) {
    const std::vector<double> plane = NumbersOf(row, 2);
    double polePlunge = 0;
    double poleTrend = 0;
    PoleOfPlane(DegToRad(plane[0]), DegToRad(plane[1]), polePlunge, poleTrend);
    const GreatCircle arc = GreatCircleArc(NetOf(row), polePlunge, poleTrend);
    return NumberWords({arc.cx, arc.cy, arc.radius});
}

} // namespace

TEST(ProjectionTable, GivesWhatItsRowsExpect) {
    const std::map<std::string, TableOperation> operations{
        {"project", Projected},
        {"unproject", Unprojected},
        {"there-and-back", ThereAndBack},
        {"arc-of-plane", ArcOfPlane},
    };
    const auto rows = ReadTableFile("projection.txt");
    EXPECT_GE(rows.size(), 40U);
    EXPECT_EQ(LinesOf(TableComplaints(rows, operations)), "");
}

} // namespace quandrel
