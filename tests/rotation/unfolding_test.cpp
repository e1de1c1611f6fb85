// SPDX-License-Identifier: MIT

#include "rotation_fixture.h"

namespace quandrel {
namespace {

using namespace testing;

class Unfold : public RotationTest {};

TEST_F(Unfold, BedsEndFlatAndTheirLinesKeepTheAngleToThem) {
    const std::vector<Pair> beds = RandomRows(300, 1, 11);
    const std::vector<Pair> lines = RandomRows(300, 0, 12);
    PlanesWith(kSecondaryLine, beds, lines);
    Rotate(Unfolding(25, 140));
    EXPECT_EQ(ActiveRecord().RotationState, 2);
    for (std::size_t i = 0; i < beds.size(); ++i) {
        ASSERT_EQ(Primary()[i].first, 0);
        ASSERT_EQ(Primary()[i].second, beds[i].second);
        const double angle = AcuteAngleOf(LineOf(lines[i]), NormalOf(beds[i]));
        ASSERT_NEAR(Radians(90 - Secondary()[i].first), angle, Radians(0.51)) << i;
    }
}

TEST_F(Unfold, LinesInTheBedsAreBackWhereTheyWereBeforeTheFold) {
    // Flute casts toward 030 in flat beds, folded about an axis by different angles, and the fold
    // then tilted along its trend: the inverse of unfolding.
    const double axisTrend = 70;
    const double axisPlunge = 20;
    std::vector<Pair> beds;
    std::vector<Pair> casts;
    for (int angle = -80; angle <= 80; angle += 8) {
        if (angle == 0) {
            continue;
        }
        const auto fold = [&](Vector vector) {
            vector = TurnedAbout(vector, Horizontal(Radians(axisTrend)), Radians(angle));
            return TurnedAbout(vector, Horizontal(Radians(axisTrend + 90)), Radians(-axisPlunge));
        };
        const Vector normal = fold({0, 0, 1});
        const Vector cast = fold(Horizontal(Radians(30)));
        ASSERT_GT(normal.down, 0);
        double plunge = 0;
        double trend = 0;
        CosinesToLine(cast.north, cast.east, cast.down, plunge, trend);
        casts.emplace_back(std::lround(RadToDeg(plunge)), std::lround(RadToDeg(trend)));
        beds.emplace_back(
            std::lround(RadToDeg(std::acos(normal.down))),
            std::lround(RadToDeg(WrappedAngle(std::atan2(-normal.east, -normal.north)))));
    }
    PlanesWith(kSecondaryLine, beds, casts);
    Rotate(Unfolding(axisPlunge, axisTrend, true));
    EXPECT_EQ(ActiveRecord().RotationState, -2);
    for (std::size_t i = 0; i < beds.size(); ++i) {
        EXPECT_EQ(Secondary()[i].first, 0) << i;
        EXPECT_LT(Apart(LineOf(Secondary()[i]), Horizontal(Radians(30))), Radians(2.5)) << i;
    }
}

TEST_F(Unfold, EachRowTurnsAboutItsOwnAppendedLine) {
    PlanesWith(kSecondaryLine, {{50, 100}, {50, 100}, {50, 100}}, {{30, 40}, {30, 40}, {30, 40}});
    AddAppended({{10, 20}, {kInvalidAppendedLine, 0}, {45, 130}});
    const RotationReport report = Rotate(UnfoldingOwn());
    EXPECT_EQ(report.turned, 2);
    EXPECT_EQ(report.withoutAxis, 1);
    EXPECT_EQ(NoteOnRotation(report), "1 row without a valid appended line was left unrotated.");
    EXPECT_EQ(ActiveRecord().RotationState, 1);
    const std::vector<Pair> own = Secondary();
    EXPECT_EQ(Primary()[1], Pair(50, 100));
    EXPECT_EQ(own[1], Pair(30, 40));
    EXPECT_EQ(Appended()[0], Pair(10, 20)) << "fold axes stay as they were measured";
    for (const std::size_t row : {0U, 2U}) {
        PlanesWith(kSecondaryLine, {{50, 100}}, {{30, 40}});
        Rotate(row == 0 ? Unfolding(10, 20) : Unfolding(45, 130));
        EXPECT_EQ(Secondary()[0], own[row]) << row;
    }
}

TEST_F(Unfold, AFlatBedStaysAsItIsWithItsLine) {
    PlanesWith(kSecondaryLine, {{0, 77}}, {{12, 345}});
    Rotate(Unfolding(30, 200));
    EXPECT_EQ(Primary()[0], Pair(0, 77));
    EXPECT_EQ(Secondary()[0], Pair(12, 345));
    Rotate(Unfolding(30, 200, true));
    EXPECT_EQ(Secondary()[0], Pair(0, 345)) << "forced into the bed";
}

TEST_F(Unfold, OverturnedBedsGoTheLongWay) {
    // Both hold a line straight down the dip. The upright bed is laid east, the overturned one
    // west.
    PlanesWith(kSecondaryLine, {{60, 90}, {-60, 90}}, {{60, 90}, {60, 90}});
    Rotate(Unfolding(0, 0));
    EXPECT_EQ(Primary(), (std::vector<Pair>{{0, 90}, {0, 90}}));
    EXPECT_EQ(Secondary(), (std::vector<Pair>{{0, 90}, {0, 270}}));
}

TEST_F(Unfold, SecondaryPlanesFollowByTheirPolesAndAreNotForced) {
    for (const bool force : {false, true}) {
        PlanesWith(kSecondaryPlane, {{50, 100}}, {{80, 210}});
        Rotate(Unfolding(0, 10, force));
        // About the strike 010, which is the axis: one turn by 50, up on the dip's side.
        const Vector truth =
            TurnedAbout(NormalOf({80, 210}), Horizontal(Radians(10)), Radians(-50));
        EXPECT_LT(AcuteAngleOf(NormalOf(Secondary()[0]), truth), kRounding);
    }
}

TEST_F(Unfold, RowsOfOverlaysUnfoldWhenTheyArePlanes) {
    PlanesWith(kSecondaryLine, {{50, 100}}, {{30, 40}});
    AddOverlay(kOverlayPoles, 40, 250, 0);
    AddOverlay(kOverlayLines, 40, 250, 0);
    const RotationReport report = Rotate(Unfolding(0, 10));
    EXPECT_EQ(report.turned, 2);
    EXPECT_EQ(report.withoutPlane, 1);
    EXPECT_EQ(Primary()[1], Pair(0, 250));
    EXPECT_EQ(Primary()[2], Pair(40, 250));
    EXPECT_EQ(NoteOnRotation(report), "1 row of overlays that are not planes was left unrotated.");
    EXPECT_EQ(NoteOnRotation({5, 2, 3}), "2 rows without a valid appended line and 3 rows of "
                                         "overlays that are not planes were left unrotated.");
    EXPECT_EQ(NoteOnRotation({5, 0, 0}), "");
}

} // namespace
} // namespace quandrel
