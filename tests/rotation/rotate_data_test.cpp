// SPDX-License-Identifier: MIT

#include "input/data_rows.h"
#include "rotation/rotate_data.h"
#include "rotation/rotation_kernels.h"
#include "rotation_fixture.h"
#include "support/turning.h"

#include <random>

namespace quandrel {
namespace {

using namespace testing;

/// The line of a row in the table of the active plot, which a drawing sorts by place.
PlottedRow Plotted(std::int32_t index) {
    const RowTable& table = TableOf(gActivePlot);
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (table.index[place] == index) {
            return table[place];
        }
    }
    ADD_FAILURE() << "no row " << index;
    return {};
}

class RotateRows : public RotationTest {};

TEST_F(RotateRows, PlanesTurnByTheirNormals) {
    const std::vector<Pair> planes = RandomRows(500, 0, 1);
    PlotOf(kPrimaryPlane, kPlanes, planes);
    const RotationReport report = Rotate(AboutAxis(35, 210, 70));
    EXPECT_EQ(report.turned, 500);
    const Turn turn = About(35, 210, 70);
    for (std::size_t i = 0; i < planes.size(); ++i) {
        const Pair now = Primary()[i];
        ASSERT_LT(AcuteAngleOf(NormalOf(now), turn(NormalOf(planes[i]))), kRounding) << i;
        ASSERT_GE(now.first, 0);
        ASSERT_GE(now.second, 0);
        ASSERT_LT(now.second, 360);
    }
}

TEST_F(RotateRows, LinesWithoutSenseEndOnTheLowerHemisphere) {
    const std::vector<Pair> lines = RandomRows(500, 0, 2);
    PlotOf(kPrimaryLine, kLines, lines);
    Rotate(AboutAxis(10, 100, -130));
    const Turn turn = About(10, 100, -130);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Pair now = Primary()[i];
        ASSERT_LT(AcuteAngleOf(LineOf(now), turn(LineOf(lines[i]))), kRounding) << i;
        ASSERT_GE(now.first, 0);
    }
}

TEST_F(RotateRows, PolarLinesAreArrows) {
    const std::vector<Pair> lines = RandomRows(500, 0, 3);
    PlotOf(kPrimaryLine, kPolarLines, lines);
    Rotate(AboutAxis(10, 100, -130));
    const Turn turn = About(10, 100, -130);
    int upward = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Pair now = Primary()[i];
        ASSERT_LT(Apart(LineOf(now), turn(LineOf(lines[i]))), kRounding) << i;
        upward += now.first < 0 ? 1 : 0;
    }
    EXPECT_GT(upward, 100);
}

TEST_F(RotateRows, LinesAreArrowsOnceOneOfThemPointsUp) {
    PlotOf(kPrimaryLine, kLines, {{40, 100}, {-30, 20}});
    Rotate(AboutAxis(0, 10, 90));
    const Turn turn = About(0, 10, 90);
    EXPECT_LT(Apart(LineOf(Primary()[0]), turn(LineOf({40, 100}))), kRounding);
    EXPECT_LT(Apart(LineOf(Primary()[1]), turn(LineOf({-30, 20}))), kRounding);
    EXPECT_LT(Primary()[0].first * Primary()[1].first, 0); // both kinds are there
}

TEST_F(RotateRows, AnArrowThatIsRoundedToTheRimKeepsItsHead) {
    // About east its head rises from 2 below the horizontal to 0.4 above; the trend of the lower
    // end then is 180.
    PlotOf(kPrimaryLine, kPolarLines, {{2, 0}});
    Rotate(AboutAxis(0, 90, 2.4));
    EXPECT_EQ(Primary()[0], Pair(0, 0));
    PlotOf(kPrimaryLine, kPolarLines, {{-2, 180}});
    Rotate(AboutAxis(0, 90, -1.6));
    EXPECT_EQ(Primary()[0], Pair(0, 0));
}

TEST_F(RotateRows, ByNothingEveryRowKeepsItsNumbers) {
    std::vector<Pair> rows;
    for (int dip = -90; dip <= 90; dip += 10) {
        for (int azimuth = 0; azimuth <= 360; azimuth += 15) {
            rows.emplace_back(dip, azimuth);
        }
    }

    struct Case {
        std::int16_t format;
        std::int16_t kind;
    };

    for (const Case c : {Case{kPrimaryPlane, kPlanes}, Case{kPrimaryLine, kLines},
                         Case{kPrimaryLine, kPolarLines}}) {
        for (const RotationSettings& rotation :
             {AboutAxis(0, 0, 0), AboutAxis(90, 0, 0), AboutAxis(37, 211, 0), LineUp(90, 77),
              AboutAxis(37, 211, 360), PlaneUp(90, 300, 210, 0, "")}) {
            PlotOf(c.format, c.kind, rows);
            AddSecondary(c.format == kPrimaryPlane ? kSecondaryPlane : kSecondaryLine, rows);
            AddAppended(rows);
            Rotate(rotation);
            EXPECT_EQ(Primary(), rows) << c.format << c.kind << " op " << rotation.operation;
            EXPECT_EQ(Secondary(), rows) << c.format << c.kind << " op " << rotation.operation;
            EXPECT_EQ(Appended(), rows) << c.format << c.kind << " op " << rotation.operation;
            gActivePlot = 0;
            MakeStoreTables();
        }
    }
}

TEST_F(RotateRows, AHorizontalLineAboutAVerticalAxisTakesTheAngleToItsTrend) {
    PlotOf(kPrimaryLine, kLines, {{0, 10}, {0, 330}, {0, 345}, {20, 350}});
    Rotate(AboutAxis(90, 0, 30));
    EXPECT_EQ(Primary(), (std::vector<Pair>{{0, 40}, {0, 0}, {0, 15}, {20, 20}}));
}

TEST_F(RotateRows, RoundingHappensOnceAtTheEnd) {
    // A plane to vertical is a chain of three rotations. Each value must be that of the whole
    // chain.
    const std::vector<Pair> lines = RandomRows(400, 1, 4);
    PlotOf(kPrimaryLine, kPolarLines, lines);
    Rotate(PlaneUp(33, 71, 17, 24, "N"));
    // The strikes are 341 and 161; 341 is nearer to 017, and north lies that way.
    for (std::size_t i = 0; i < lines.size(); ++i) {
        double plunge = 0;
        double trend = 0;
        RotatePlaneToVertical(Radians(lines[i].first), Radians(lines[i].second), Radians(341),
                              Radians(33), Radians(71), Radians(24), Radians(17), plunge, trend);
        const double degrees = plunge * 180 / kHalfTurn;
        ASSERT_EQ(Primary()[i].first, static_cast<int>(std::nearbyint(degrees))) << i;
    }
}

TEST_F(RotateRows, TheGivenPlaneEndsVerticalOnTheNewStrikeAndItsPitchedLineLevel) {
    struct Case {
        double dip, dipDir, strike, pitch;
        const char* sense;
    };

    // Both ends of the strike as sense, new strikes near either.
    for (const Case c :
         {Case{40, 120, 20, 30, "NE"}, Case{40, 120, 20, 30, "SW"}, Case{40, 120, 200, 30, "NE"},
          Case{40, 120, 200, 30, "SW"}, Case{70, 300, 95, 75, "N"}, Case{70, 300, 95, 75, "S"}}) {
        // The pitched line by hand: from the end of the strike at the sense, down in the plane.
        const double strike = std::string(c.sense).starts_with("N") ? 30 : 210;
        const Vector pitched =
            Sum(Horizontal(Radians(strike)), std::cos(Radians(c.pitch)),
                LineVector(Radians(c.dip), Radians(c.dipDir)), std::sin(Radians(c.pitch)));
        double plunge = 0;
        double trend = 0;
        CosinesToLine(pitched.north, pitched.east, pitched.down, plunge, trend);
        const Pair line(static_cast<int>(std::lround(RadToDeg(plunge))),
                        static_cast<int>(std::lround(RadToDeg(trend))));
        PlanesWith(kSecondaryLine, {{static_cast<int>(c.dip), static_cast<int>(c.dipDir)}}, {line});
        Rotate(PlaneUp(c.dip, c.dipDir, c.strike, c.pitch, c.sense));
        EXPECT_EQ(Primary()[0].first, 90);
        const double toStrike = std::abs(std::sin(Radians(Primary()[0].second - c.strike)));
        EXPECT_NEAR(toStrike, 1, 1e-9) << c.strike << c.sense;
        EXPECT_LE(Secondary()[0].first, 1) << c.strike << c.sense;
    }
}

TEST_F(RotateRows, ALineBecomesVertical) {
    PlotOf(kPrimaryLine, kLines, {{25, 310}, {0, 220}});
    Rotate(LineUp(25, 310));
    EXPECT_EQ(Primary()[0], Pair(90, 0));
    EXPECT_EQ(Primary()[1], Pair(0, 220)); // on the hinge
}

TEST_F(RotateRows, SecondaryDataAndAppendedLinesTurnToo) {
    PlanesWith(kSecondaryLine, {{60, 90}, {30, 200}}, {{20, 10}, {kErrorRow, kErrorRow}});
    AddAppended({{15, 300}, {kInvalidAppendedLine, 0}});
    Rotate(AboutAxis(40, 20, 55));
    const Turn turn = About(40, 20, 55);
    EXPECT_LT(AcuteAngleOf(LineOf(Secondary()[0]), turn(LineOf({20, 10}))), kRounding);
    EXPECT_EQ(Secondary()[1], Pair(kErrorRow, kErrorRow));
    EXPECT_LT(AcuteAngleOf(LineOf(Appended()[0]), turn(LineOf({15, 300}))), kRounding);
    EXPECT_EQ(Appended()[1], Pair(kInvalidAppendedLine, 0));
}

TEST_F(RotateRows, SecondaryPlanesTurnByTheirNormals) {
    PlanesWith(kSecondaryPlane, {{60, 90}}, {{20, 10}});
    Rotate(AboutAxis(40, 20, 55));
    EXPECT_LT(AcuteAngleOf(NormalOf(Secondary()[0]), About(40, 20, 55)(NormalOf({20, 10}))),
              kRounding);
}

TEST_F(RotateRows, BothSetsTurnWhicheverIsShown) {
    std::vector<std::vector<Pair>> primaries;
    std::vector<std::vector<Pair>> secondaries;
    for (const bool showsSecondary : {false, true}) {
        PlanesWith(kSecondaryLine, {{60, 90}, {5, 5}}, {{20, 10}, {70, 80}});
        ActiveRecord().ShowSecondary = showsSecondary ? kTrue : std::int16_t{0};
        ActiveRecord().DataKind = showsSecondary ? kLines : kPlanes;
        RebuildRowTable(gActivePlot);
        Rotate(AboutAxis(40, 20, 55));
        primaries.push_back(Primary());
        secondaries.push_back(Secondary());
        const Vector shown = showsSecondary ? LineOf(Secondary()[0]) : NormalOf(Primary()[0]);
        const Vector plotted = LineVector(Plotted(1).plunge, Plotted(1).trend);
        EXPECT_LT(AcuteAngleOf(shown, plotted), 1e-9);
    }
    EXPECT_EQ(primaries[0], primaries[1]);
    EXPECT_EQ(secondaries[0], secondaries[1]);
    EXPECT_NE(secondaries[0][0], Pair(20, 10));
}

TEST_F(RotateRows, ErrorRowsStayAsTheyAre) {
    PlanesWith(kSecondaryLine, {{kErrorRow, 0}, {30, 40}}, {{12, 34}, {5, 6}});
    const RotationReport report = Rotate(AboutAxis(40, 20, 55));
    EXPECT_EQ(report.turned, 1);
    EXPECT_EQ(Primary()[0], Pair(kErrorRow, 0));
    EXPECT_EQ(Secondary()[0], Pair(12, 34));
    EXPECT_TRUE(IsErrorRow(Plotted(1).plunge));
    EXPECT_FALSE(IsErrorRow(Plotted(2).plunge));
}

TEST_F(RotateRows, OverlaysTurnWithThePlot) {
    PlotOf(kPrimaryPlane, kPlanes, {{30, 40}});
    AddOverlay(kOverlayPoles, 50, 60, 0);
    AddOverlay(kOverlayLines, 50, 60, 0);
    AddOverlay(kOverlayPolarLines, 50, 60, 0);
    AddOverlay(kOverlayGreatCircles, kErrorRow, 0, 0);
    EXPECT_EQ(Rotate(AboutAxis(10, 150, 140)).turned, 4);
    const Turn turn = About(10, 150, 140);
    EXPECT_LT(AcuteAngleOf(NormalOf(Primary()[1]), turn(NormalOf({50, 60}))), kRounding);
    EXPECT_LT(AcuteAngleOf(LineOf(Primary()[2]), turn(LineOf({50, 60}))), kRounding);
    EXPECT_GE(Primary()[2].first, 0);
    EXPECT_LT(Apart(LineOf(Primary()[3]), turn(LineOf({50, 60}))), kRounding);
    EXPECT_EQ(Primary()[4].first, kErrorRow);
    const Vector plotted = LineVector(Plotted(3).plunge, Plotted(3).trend);
    EXPECT_LT(AcuteAngleOf(plotted, turn(LineOf({50, 60}))), kRounding);
}

TEST_F(RotateRows, TheOverlayOfTheSecondaryDataShowsThemAsTheyThenAre) {
    for (const bool unfolds : {false, true}) {
        PlanesWith(kSecondaryLine, {{60, 90}, {30, 200}}, {{20, 10}, {25, 160}});
        PlotRecord& record = ActiveRecord();
        AddOverlay(kOverlayPolarLines, 20, 10, 0);
        AddRow(25, 160); // the overlay's second row
        record.OverlayRows[1] = 2;
        record.NumData = 2;
        record.NumValidData = 2;
        record.SelectedOverlay = 1;
        int secondary = 1;
        GrowDataColumns(secondary, record.NumLoadedData);
        Rotate(unfolds ? Unfolding(10, 100) : AboutAxis(40, 20, 155));
        EXPECT_EQ(Primary()[2], Secondary()[0]) << unfolds;
        EXPECT_EQ(Primary()[3], Secondary()[1]) << unfolds;
        EXPECT_NE(Primary()[2], Pair(20, 10)) << unfolds;
    }
}

TEST_F(RotateRows, DirectionsTurnAndStayLevel) {
    PlotOf(kDirections, kLines, {{0, 10}, {0, 200}});
    Rotate(AboutAxis(90, 0, 25));
    EXPECT_EQ(Primary(), (std::vector<Pair>{{0, 35}, {0, 225}}));
    // About a horizontal axis a direction keeps its sense although the rotated line is lifted.
    Rotate(AboutAxis(0, 300, 60));
    const Turn turn = About(0, 300, 60);
    for (std::size_t i = 0; i < 2; ++i) {
        const Vector now = turn(LineOf({0, i == 0 ? 35 : 225}));
        EXPECT_EQ(Primary()[i].first, 0);
        EXPECT_LT(Apart(LineOf(Primary()[i]), Unit({now.north, now.east, 0})), kRounding);
    }
}

TEST_F(RotateRows, DerivedAxesKeepTheSignThatTellsThemApart) {
    PlotOf(kPrimaryLine, kPolarLines, {{20, 30}, {-60, 200}, {5, 300}, {-5, 100}});
    ActiveRecord().AxesTitle = "P & T";
    const std::vector<Pair> former = Primary();
    Rotate(AboutAxis(20, 80, 115));
    const Turn turn = About(20, 80, 115);
    for (std::size_t i = 0; i < former.size(); ++i) {
        EXPECT_GT(Primary()[i].first * former[i].first, 0) << i;
        EXPECT_LT(AcuteAngleOf(LineOf(Primary()[i]), turn(LineOf(former[i]))), kRounding) << i;
    }
}

TEST_F(RotateRows, AnOverturnedPlaneKeepsItsSign) {
    PlotOf(kPrimaryPlane, kPlanes, {{-60, 90}});
    Rotate(AboutAxis(90, 0, 40));
    EXPECT_EQ(Primary()[0], Pair(-60, 130));
}

/// Shortening and extension axes of a fault, from downward pole and slip line: vectors at 45
/// degrees to both. A negative plunge exchanges them.
std::pair<Vector, Vector> AxesOf(Pair fault, Pair slip) {
    const Vector normal = NormalOf(fault);
    const Vector line = LineOf({std::abs(slip.first), slip.second});
    const Vector sum = Unit(Sum(normal, 1, line, 1));
    const Vector difference = Unit(Sum(normal, 1, line, -1));
    return slip.first >= 0 ? std::pair(sum, difference) : std::pair(difference, sum);
}

TEST_F(RotateRows, KinematicAxesTurnWithTheirFaultsThroughTheVerticalToo) {
    std::mt19937 random(7);
    std::vector<Pair> faults;
    std::vector<Pair> slips;
    for (int i = 0; i < 400; ++i) {
        const Pair fault(20 + static_cast<int>(random() % 71), static_cast<int>(random() % 360));
        // A line of the plane at a random pitch.
        const double pitch = Radians(static_cast<double>(random() % 360));
        const Vector line = Sum(Horizontal(Radians(fault.second + 90)), std::cos(pitch),
                                LineOf(fault), std::sin(pitch));
        double plunge = 0;
        double trend = 0;
        CosinesToLine(line.north, line.east, line.down, plunge, trend);
        const int sign = random() % 2 == 0 ? -1 : 1;
        faults.push_back(fault);
        slips.emplace_back(sign * static_cast<int>(std::abs(std::lround(RadToDeg(plunge)))),
                           static_cast<int>(std::lround(RadToDeg(trend))));
    }
    PlanesWith(kSecondaryLine, faults, slips);
    Rotate(AboutAxis(5, 40, 75));
    const Turn turn = About(5, 40, 75);
    int turnedOver = 0;
    for (std::size_t i = 0; i < faults.size(); ++i) {
        const auto [p, t] = AxesOf(faults[i], slips[i]);
        const auto [pNow, tNow] = AxesOf(Primary()[i], Secondary()[i]);
        ASSERT_LT(AcuteAngleOf(pNow, turn(p)), Radians(2)) << i;
        ASSERT_LT(AcuteAngleOf(tNow, turn(t)), Radians(2)) << i;
        turnedOver += turn(NormalOf(faults[i])).down < 0 ? 1 : 0;
    }
    EXPECT_GT(turnedOver, 50);
}

TEST_F(RotateRows, SlipLinesAreArrowsWhileArrowsAreDrawn) {
    // The fault passes the vertical; its hanging wall becomes the footwall, which went up.
    PlanesWith(kSecondaryLine, {{80, 90}}, {{80, 90}});
    Rotate(AboutAxis(0, 0, 30));
    EXPECT_EQ(Secondary()[0], Pair(70, 270));
    PlanesWith(kSecondaryLine, {{80, 90}}, {{80, 90}});
    ActiveRecord().NumSymbolsInPlot = 2;
    Rotate(AboutAxis(0, 0, 30));
    EXPECT_EQ(Primary()[0], Pair(70, 270));
    EXPECT_EQ(Secondary()[0], Pair(-70, 270));
}

TEST_F(RotateRows, ARowDrawnByItsSenseTakesTheStyleOfItsNewOne) {
    PlotOf(kPrimaryLine, kPolarLines, {});
    AddRow(40, 0, CodeOfNewRow(ActiveRecord(), 0, false));
    AddRow(40, 0, 70605); // a style of the user's own
    Rotate(AboutAxis(0, 90, 100));
    ASSERT_LT(Primary()[0].first, 0);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), CodeOfNewRow(ActiveRecord(), 0, true));
    EXPECT_EQ(gDataSymbolBase(gActivePlot, 1), CodeOfNewRow(ActiveRecord(), 0, true));
    EXPECT_NE(CodeOfNewRow(ActiveRecord(), 0, true), CodeOfNewRow(ActiveRecord(), 0, false));
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), 70605U);
}

TEST_F(RotateRows, MarksThePlotAndClearsTheStatusText) {
    PlotOf(kPrimaryPlane, kPlanes, {{30, 40}});
    PlotRecord& record = ActiveRecord();
    record.Modified = 0;
    record.RowsChanged = 0;
    QuietStatusLine line(10);
    gPlatform.status = &line;
    const RotationReport report = RotateData(kRotateAboutAxis, AboutAxis(0, 0, 10));
    EXPECT_EQ(report.turned, 1);
    EXPECT_EQ(line.Texts(), (std::deque<std::string>{"Please wait - rotating data", ""}));
    EXPECT_EQ(line.BusyDepth(), 0);
    EXPECT_NE(record.Modified, 0);
    EXPECT_NE(record.RowsChanged, 0);
    EXPECT_EQ(record.RotationState, kRotateAboutAxis);
    gPlatform.status = &status;
}

TEST_F(RotateRows, StatisticsAndDrawingFollow) {
    PlotOf(kPrimaryPlane, kPlanes, {{30, 40}});
    constexpr float kNoEigenvalue = -1;
    ActiveRecord().EigenResults[kGreatestAxis][kAxisPlunge] = kNoEigenvalue;
    Rotate(AboutAxis(0, 0, 10));
    EXPECT_NE(ActiveRecord().EigenResults[kGreatestAxis][kAxisPlunge], kNoEigenvalue)
        << "worked out";
    EXPECT_FALSE(DrawnOn(Form(gActivePlot).Plot()).empty());
}

TEST_F(RotateRows, NothingHappensWhileALongLoopRunsOrWithoutAPlot) {
    PlotOf(kPrimaryPlane, kPlanes, {{30, 40}});
    RotationReport report;
    gBusy = true;
    EXPECT_TRUE(ApplyRotation(AboutAxis(0, 0, 10), report));
    gBusy = false;
    EXPECT_EQ(Primary()[0], Pair(30, 40));
    gActivePlot = 0;
    EXPECT_TRUE(ApplyRotation(AboutAxis(0, 0, 10), report));
}

TEST_F(RotateRows, ARefusalChangesNothing) {
    PlotOf(kPrimaryPlane, kPlanes, {{30, 40}});
    ActiveRecord().Modified = 0;
    RotationReport report;
    const auto refusal = ApplyRotation(AboutAxis(0, 400, 10), report);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->field, RotationField::Azimuth);
    EXPECT_EQ(Primary()[0], Pair(30, 40));
    EXPECT_EQ(ActiveRecord().Modified, 0);
    EXPECT_EQ(ActiveRecord().RotationState, 0);
    EXPECT_FALSE(CanUndoRotation());
}

} // namespace
} // namespace quandrel
