// SPDX-License-Identifier: MIT
//
// Outlines, bands and clouds of confidence regions on the net.

#include "core/settings_value.h"
#include "orientation/direction_vectors.h"
#include "orientation/projection.h"
#include "statistics/draw_regions.h"
#include "statistics/plot_regions.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

class DrawnRegions : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlot();
    }

    /// Rows that scatter more along the trend than across it.
    static void AddRows(int plunge, int trend, int count) {
        for (int i = 0; i < count; ++i) {
            const int down = plunge + (i * 7) % 11 - 5;
            const int around = (trend + (i * 13) % 41 - 20 + 360) % 360;
            AddRow(down < 0 ? -down : down, down < 0 ? (around + 180) % 360 : around);
        }
    }

    static std::vector<DrawOperation> Drawn(int plotKind, std::int16_t about) {
        PlotRecord& record = ActiveRecord();
        record.PlotKind = static_cast<std::int16_t>(plotKind);
        record.RegionsAbout = about;
        WorkOutRegions(ActivePlot(), gSettings.styles, {}, nullptr);
        const Drawing drawing = WindowDrawing(gActivePlot);
        drawing.plot.Clear(kWhite);
        DrawRegions(ActivePlot(), drawing);
        return DrawnOn(Form(gActivePlot).Plot());
    }

    static Direction DirectionAt(int plotKind, const Point& point) {
        const double rho = std::min(std::hypot(point.x, point.y) / kNetRadius, 1.0);
        const double c = plotKind == kEqualAngle ? 2 * std::atan(rho) : std::acos(1 - rho * rho);
        const double azimuth = std::atan2(point.x, point.y);
        return {std::sin(c) * std::cos(azimuth), std::sin(c) * std::sin(azimuth), std::cos(c)};
    }

    static const ConfidenceRegion& Region() {
        return RegionsOfPlot(ActivePlot())[0].chosen->region;
    }

    /// A direction with its components along the frame of a region stretched.
    static Direction Stretched(const ConfidenceRegion& region, const Direction& d, double factor) {
        const Frame frame = {region.frame[0], region.frame[1], region.centre};
        const auto along = InFrame(frame, d);
        const double x = factor * along[0];
        const double y = factor * along[1];
        return FromFrame(frame, {x, y, std::copysign(std::sqrt(1 - x * x - y * y), along[2])});
    }
};

TEST_F(DrawnRegions, HaveTheirOutlineOnTheBorder) {
    AddRows(50, 120, 80);
    for (const int kind : {int{kEqualArea}, int{kEqualAngle}}) {
        const auto drawn = Drawn(kind, kRegionOfAxis);
        ASSERT_EQ(drawn.size(), 1U);
        ASSERT_EQ(drawn[0].kind, Kind::Polyline);
        EXPECT_EQ(drawn[0].points.size(), kRegionSides + 1);
        EXPECT_EQ(drawn[0].points.front(), drawn[0].points.back());
        for (const Point& point : drawn[0].points) {
            const Direction d = DirectionAt(kind, point);
            EXPECT_TRUE(Contains(Region(), Stretched(Region(), d, 0.999)));
            EXPECT_FALSE(Contains(Region(), Stretched(Region(), d, 1.001)));
        }
    }
}

TEST_F(DrawnRegions, ContinueAtTheOppositeSideOfThePrimitive) {
    AddRows(0, 90, 80);
    for (const int kind : {int{kEqualArea}, int{kEqualAngle}}) {
        const auto drawn = Drawn(kind, kRegionOfAxis);
        ASSERT_EQ(drawn.size(), 2U);
        double sumOfX = 0;
        for (const DrawOperation& piece : drawn) {
            for (const Point& end : {piece.points.front(), piece.points.back()}) {
                EXPECT_NEAR(std::hypot(end.x, end.y), kNetRadius, 1e-6);
            }
            for (const Point& point : piece.points) {
                const Direction d = DirectionAt(kind, point);
                EXPECT_TRUE(Contains(Region(), Stretched(Region(), d, 0.998)));
                EXPECT_FALSE(Contains(Region(), Stretched(Region(), d, 1.002)));
            }
            sumOfX += std::copysign(1.0, piece.points[piece.points.size() / 2].x);
        }
        EXPECT_EQ(sumOfX, 0) << "one piece in the east, one in the west";
        EXPECT_NEAR(drawn[0].points.back().x, -drawn[1].points.front().x, 1e-6);
        EXPECT_NEAR(drawn[0].points.back().y, -drawn[1].points.front().y, 1e-6);
    }
}

TEST_F(DrawnRegions, OfAGirdleHaveTheEdgesOfItsBand) {
    for (int i = 0; i < 90; ++i) { // about the great circle with the pole 20/000
        const double turn = kTwoPi * i / 180;
        const double off = DegToRad((i * 7) % 15 - 7);
        const double c = std::cos(DegToRad(20));
        const double s = std::sin(DegToRad(20));
        const Direction pole = {c, 0, s};
        const Direction across = {-s, 0, c};
        const Direction inPlane = Combined({0, 1, 0}, std::cos(turn), across, std::sin(turn));
        double plunge = 0;
        double trend = 0;
        AxisToLine(Combined(inPlane, std::cos(off), pole, std::sin(off)), plunge, trend);
        AddRow(static_cast<std::int32_t>(std::lround(RadToDeg(plunge))),
               static_cast<std::int32_t>(std::lround(RadToDeg(trend))) % 360);
    }
    const auto drawn = Drawn(kEqualArea, kRegionOfGirdle);
    ASSERT_EQ(Region().state, RegionState::Given);
    ASSERT_EQ(drawn.size(), 3U) << "the outline, and an edge on each side of the great circle";
    const auto semiAxes = SemiAxes(Region());
    const Frame frame = {Region().frame[0], Region().frame[1], Region().centre};
    std::array<int, 2> sides{};
    for (std::size_t edge = 1; edge <= 2; ++edge) {
        for (const Point& point : drawn[edge].points) {
            const auto x = InFrame(frame, DirectionAt(kEqualArea, point));
            const double bound =
                std::hypot(std::tan((*semiAxes)[0]) * x[0], std::tan((*semiAxes)[1]) * x[1]);
            EXPECT_NEAR(std::abs(x[2]), bound, 1e-4);
        }
        const Point middle = drawn[edge].points[drawn[edge].points.size() / 2];
        sides[edge - 1] = InFrame(frame, DirectionAt(kEqualArea, middle))[2] > 0 ? 1 : -1;
    }
    EXPECT_EQ(sides[0] + sides[1], 0);
}

TEST_F(DrawnRegions, HaveTheirCloudBelow) {
    AddRows(50, 120, 20);
    ActiveRecord().RegionCloud = kTrue;
    const auto drawn = Drawn(kEqualArea, kRegionOfAxis);
    ASSERT_EQ(drawn.size(), 2U);
    ASSERT_EQ(drawn[0].kind, Kind::Markers);
    EXPECT_EQ(drawn[0].points.size(), 2000U);
    int inside = 0;
    for (const Point& point : drawn[0].points) {
        inside += Contains(Region(), DirectionAt(kEqualArea, point)) ? 1 : 0;
    }
    EXPECT_NEAR(inside / 2000.0, 0.95, 0.05);
}

TEST_F(DrawnRegions, LeaveTheSurfaceAsItWas) {
    AddRows(50, 120, 80);
    const Drawing drawing = WindowDrawing(gActivePlot);
    const DrawState before = drawing.plot.State();
    static_cast<void>(Drawn(kEqualArea, kRegionOfAxis));
    EXPECT_EQ(drawing.plot.State(), before);
    EXPECT_TRUE(Drawn(kEqualArea, 0).empty());
}

} // namespace
} // namespace quandrel
