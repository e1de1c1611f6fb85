// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "derive/fault_plot.h"
#include "derive/fault_rows.h"
#include "derive/slip_arrows.h"
#include "orientation/vectors.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

using testing::Dot;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;
using testing::Sum;
using testing::Unit;
using testing::Vector;

Direction DirectionOf(const Vector& vector) {
    return {vector.north, vector.east, vector.down};
}

/// Where a vector falls on a net of radius 1, from the angle to the vertical.
Point Projected(int plotKind, const Vector& line) {
    const Vector unit = Unit(line);
    const double colatitude = std::acos(unit.down);
    const double horizontal = std::hypot(unit.east, unit.north);
    const double radius = plotKind == kEqualAngle ? std::tan(colatitude / 2)
                                                  : std::sqrt(2.0) * std::sin(colatitude / 2);
    return {radius * unit.east / horizontal, radius * unit.north / horizontal};
}

/// The direction of the trace of the movement plane, by two points on it, in degrees. The trace
/// leaves the pole at a turn of 0 and meets the line at right angles to it at 90.
double TraceAzimuth(int plotKind, const Vector& pole, const Vector& slip, double turn) {
    const Vector acrossPole = Unit(Sum(slip, 1, pole, -Dot(slip, pole)));
    const auto at = [&](double angle) {
        return Projected(plotKind, Sum(pole, std::cos(angle), acrossPole, std::sin(angle)));
    };
    constexpr double kStep = 1e-5;
    const Point before = at(Radians(turn) - kStep);
    const Point behind = at(Radians(turn) + kStep);
    return std::atan2(behind.x - before.x, behind.y - before.y) / Radians(1);
}

double DegreesApart(double first, double second) {
    return std::abs(std::remainder(first - second, 360));
}

TEST(SlipArrowAzimuth, IsTheTangentOfTheMovementPlanesTrace) {
    std::mt19937 random(20270109);
    std::uniform_real_distribution<double> dips(3, 87);
    std::uniform_real_distribution<double> turns(0, 360);
    std::uniform_real_distribution<double> off(-9, 9);
    for (int i = 0; i < 2000; ++i) {
        const double dip = dips(random);
        const double dipDirection = turns(random);
        const Vector pole = PlaneNormal(Radians(dip), Radians(dipDirection));
        const double pitch = Radians(2 + 176 * turns(random) / 360);
        const Vector inPlane =
            Sum(LineVector(0, Radians(dipDirection - 90)), std::cos(pitch),
                LineVector(Radians(dip), Radians(dipDirection)), std::sin(pitch));
        const Vector slip = Unit(Sum(inPlane, 1, pole, std::tan(Radians(off(random)))));
        if (slip.down < 0.01) {
            continue;
        }
        const double between = std::acos(Dot(pole, slip)) / Radians(1);
        for (const int plotKind : {kEqualArea, kEqualAngle}) {
            for (const bool upward : {false, true}) {
                const double turn = upward ? 180 : 0;
                const auto atPole = SlipArrowAzimuth(plotKind, DirectionOf(pole), DirectionOf(slip),
                                                     upward, DirectionOf(pole));
                const auto atLine = SlipArrowAzimuth(plotKind, DirectionOf(pole), DirectionOf(slip),
                                                     upward, DirectionOf(slip));
                ASSERT_TRUE(atPole && atLine);
                EXPECT_LT(DegreesApart(*atPole / Radians(1),
                                       TraceAzimuth(plotKind, pole, slip, 0) + turn),
                          0.01);
                EXPECT_LT(DegreesApart(*atLine / Radians(1),
                                       TraceAzimuth(plotKind, pole, slip, between) + turn),
                          0.01);
            }
        }
    }
}

TEST(SlipArrowAzimuth, PointsTheWayTheHangingWallMoves) {
    struct Case {
        const char* fault;
        double dip, dipDirection, plunge, trend;
        bool upward;
        double atPole, atLine;
    };

    // Dip slip: the hanging wall of a plane that dips east moves east when it moves down.
    const Case cases[] = {
        {"normal, dipping east", 60, 90, 60, 90, false, 90, 90},
        {"reverse, dipping east", 60, 90, 60, 90, true, 270, 270},
        {"normal, dipping north", 30, 0, 30, 0, false, 0, 0},
        {"vertical, the block in the west moves north", 90, 270, 0, 0, false, 0, 270},
        {"vertical, the block in the west moves south", 90, 270, 0, 180, false, 180, 270},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        const Direction pole = DirectionOf(PlaneNormal(Radians(c.dip), Radians(c.dipDirection)));
        const Direction slip = DirectionOf(LineVector(Radians(c.plunge), Radians(c.trend)));
        const auto atPole = SlipArrowAzimuth(kEqualArea, pole, slip, c.upward, pole);
        const auto atLine = SlipArrowAzimuth(kEqualArea, pole, slip, c.upward, slip);
        ASSERT_TRUE(atPole && atLine);
        EXPECT_LT(DegreesApart(*atPole / Radians(1), c.atPole), 1e-6);
        EXPECT_LT(DegreesApart(*atLine / Radians(1), c.atLine), 1e-6);
    }
}

TEST(SlipArrowAzimuth, IsNotThereForALineAtRightAnglesToItsPlane) {
    const Direction pole = DirectionOf(PlaneNormal(Radians(60), Radians(90)));
    EXPECT_FALSE(SlipArrowAzimuth(kEqualArea, pole, pole, false, pole));
}

class SlipArrows : public FaultTest {
protected:
    static float Degrees(int slot, std::int32_t row) {
        return SlipArrowAngle(PlotOf(slot), row) * 180 / std::acos(-1.0F);
    }
};

TEST_F(SlipArrows, FollowTheSetThatIsShown) {
    const int slot = NewFaultPlot({{60, 45, 50, 80}});
    const Vector pole = PlaneNormal(Radians(60), Radians(45));
    const Vector slip = LineVector(Radians(50), Radians(80));
    const double between = std::acos(Dot(pole, slip)) / Radians(1);
    EXPECT_LT(DegreesApart(static_cast<double>(Degrees(slot, 1)),
                           TraceAzimuth(kEqualArea, pole, slip, 0)),
              0.01);
    ActiveRecord().ShowSecondary = kTrue;
    ActiveRecord().DataKind = kLines;
    EXPECT_LT(DegreesApart(static_cast<double>(Degrees(slot, 1)),
                           TraceAzimuth(kEqualArea, pole, slip, between)),
              0.01);
    ActiveRecord().PlotKind = kEqualAngle;
    EXPECT_LT(DegreesApart(static_cast<double>(Degrees(slot, 1)),
                           TraceAzimuth(kEqualAngle, pole, slip, between)),
              0.01);
    SetSecondary(slot, 1, -50, 80);
    EXPECT_LT(DegreesApart(static_cast<double>(Degrees(slot, 1)),
                           TraceAzimuth(kEqualAngle, pole, slip, between) + 180),
              0.01);
}

TEST_F(SlipArrows, AreDrawnInWholeDegrees) {
    const int slot = NewFaultPlot({{60, 45, 50, 80}});
    const double drawn = DrawnSlipArrowAngle(ActivePlot(), 1) / Radians(1);
    EXPECT_NEAR(drawn, std::round(drawn), 1e-9);
    EXPECT_NEAR(drawn, static_cast<double>(Degrees(slot, 1)), 0.5);
}

TEST_F(SlipArrows, AreNotThereForRowsThatLackAFault) {
    const int slot =
        NewFaultPlot({{60, 45, kErrorRow, 0}, {kErrorRow, 0, 0, 0}, {60, 90, 30, 270}});
    for (std::int32_t row = 1; row <= 3; ++row) {
        EXPECT_TRUE(std::isnan(SlipArrowAngle(PlotOf(slot), row))) << row;
        EXPECT_TRUE(std::isnan(DrawnSlipArrowAngle(ActivePlot(), row))) << row;
    }
    ActiveRecord().DensityInvalid = kTrue;
    ReplotActivePlot(false);
    int arrows = 0;
    int symbols = 0;
    for (const DrawOperation& operation : DrawnOn(Form(slot).Plot())) {
        if (operation.kind == DrawOperation::Kind::Markers) {
            (operation.text.starts_with("50/") ? arrows : symbols) += 1;
        }
    }
    EXPECT_EQ(arrows, 0);
    EXPECT_EQ(symbols, 2) << "the rows themselves stay";
}

TEST_F(SlipArrows, OfAnOverlayThatWasLoadedOverTheSecondarySetTakeItsPairsExchanged) {
    const int slot = NewFaultPlot({{60, 45, 50, 80}});
    ActiveRecord().ShowSecondary = kTrue;
    ActiveRecord().DataKind = kLines;
    AddOverlay(kOverlayPolarLines, 50, 80, CodeOfStyleRow(2));
    int secondary = 1;
    GrowDataColumns(secondary, 2);
    SetSecondary(slot, 2, 60, 45);
    EXPECT_FLOAT_EQ(SlipArrowAngle(PlotOf(slot), 2), SlipArrowAngle(PlotOf(slot), 1));
}

TEST(FaultRows, AreReadableWithinTheRangesOfOrientations) {
    EXPECT_TRUE(IsReadable({-90, 0}));
    EXPECT_TRUE(IsReadable({90, 360}));
    EXPECT_FALSE(IsReadable({91, 0}));
    EXPECT_FALSE(IsReadable({0, 361}));
    EXPECT_FALSE(IsReadable({0, kErrorRow}));
    EXPECT_FALSE(IsReadable({kErrorRow, 0}));
}

} // namespace
} // namespace quandrel
