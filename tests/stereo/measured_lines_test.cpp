// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "stereo/distinct_lines.h"
#include "stereo/measured_line.h"
#include "stereo/row_drawing.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace quandrel {
namespace {

/// Near whole degrees the sine of kTwoPi counts as 0; it is -6.5e-15.
TEST(MeasuredLine, DirectionsAreAccurate) {
    constexpr double kTolerance = 7e-15;
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> plunges(-90, 90);
    std::uniform_real_distribution<double> trends(0, 360);
    for (int i = 0; i < 100'000; ++i) {
        const MeasuredLine line{DegToRad(plunges(random)), DegToRad(trends(random))};
        const long double plunge = std::abs(line.plunge);
        const long double trend = line.trend;
        const long double sign = line.plunge < 0 ? -1 : 1;
        const Direction found = DirectionOf(line);
        ASSERT_NEAR(found.l, static_cast<double>(sign * std::cos(plunge) * std::cos(trend)),
                    kTolerance);
        ASSERT_NEAR(found.m, static_cast<double>(sign * std::cos(plunge) * std::sin(trend)),
                    kTolerance);
        ASSERT_NEAR(found.n, static_cast<double>(sign * std::sin(plunge)), kTolerance);
    }
}

TEST(MeasuredLine, WholeDegreesHaveNoRoundingErrors) {
    const Direction east = DirectionOf({0, kPi / 2});
    EXPECT_EQ(east.l, 0);
    EXPECT_EQ(east.m, 1);
    const Direction down = AxisOf({-kPi / 2, kTwoPi});
    EXPECT_EQ(down.l, 0);
    EXPECT_EQ(down.n, 1);
    const Direction up = DirectionOf({-kPi / 2, 0});
    EXPECT_EQ(up.n, -1);
    EXPECT_FALSE(std::signbit(up.m));
}

class MeasuredLines : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        NewPlot();
    }
};

TEST_F(MeasuredLines, AreOneForEachRowWhereThePlotUsesDecimals) {
    AddMeasuredRows({{47.3, 218.6}, {-20.25, 10}, {30, 120}, {47.3, 218.6}});
    EXPECT_FALSE(LinesOf(ActivePlot()).AreMeasured());
    EXPECT_EQ(LinesOf(ActivePlot()).whole.size(), 3U);
    UseDecimals(true);
    const RowLines& lines = LinesOf(ActivePlot());
    const std::vector<MeasuredLine> expected = {{DegToRad(47.3), DegToRad(218.6)},
                                                {DegToRad(-20.25), DegToRad(10)},
                                                {DegToRad(30), DegToRad(120)},
                                                {DegToRad(47.3), DegToRad(218.6)}};
    EXPECT_EQ(lines.measured, expected);
    EXPECT_EQ(lines.rows, (std::vector<std::int32_t>{1, 2, 3, 4}));
    EXPECT_EQ(CountOfLines(lines), 4);
    EXPECT_EQ(CountOfMainRows(ActivePlot()), 4);
    UseDecimals(false);
    EXPECT_FALSE(LinesOf(ActivePlot()).AreMeasured());
}

TEST_F(MeasuredLines, APlotWithoutDecimalsHasThoseOfWholeDegrees) {
    AddMeasuredRows({{47.3, 218.6}, {20, 10}});
    RemoveDecimals();
    UseDecimals(true);
    EXPECT_FALSE(HasMeasuredLines(ActivePlot()));
    EXPECT_FALSE(LinesOf(ActivePlot()).AreMeasured());
    EXPECT_EQ(CountOfLines(LinesOf(ActivePlot())), 2);
}

TEST_F(MeasuredLines, OfPlanesAreThePoles) {
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    ActiveRecord().DataKind = kPlanes;
    AddMeasuredRows({{47.3, 218.6}});
    UseDecimals(true);
    const MeasuredLine pole = LinesOf(ActivePlot()).measured.at(0);
    EXPECT_NEAR(RadToDeg(pole.plunge), 42.7, 1e-12);
    EXPECT_NEAR(RadToDeg(pole.trend), 38.6, 1e-12);
}

TEST_F(MeasuredLines, OfTheReferenceAreMeasuredAlways) {
    AddMeasuredRows({{47.3, 218.6}, {20, 10}});
    AddRow(kErrorRow, 0);
    const RowLines off = MeasuredStatisticsLinesOf(ActivePlot(), gSettings.styles);
    UseDecimals(true);
    const RowLines on = StatisticsLinesOf(ActivePlot(), gSettings.styles);
    EXPECT_EQ(off.measured, on.measured);
    EXPECT_EQ(off.rows, (std::vector<std::int32_t>{1, 2}));
    RemoveDecimals();
    EXPECT_FALSE(MeasuredStatisticsLinesOf(ActivePlot(), gSettings.styles).AreMeasured());
}

TEST_F(MeasuredLines, OfAxesAreTheirLowerEnds) {
    ActiveRecord().AxesTitle = kBothAxes;
    AddMeasuredRows({{30.5, 40}, {-20.25, 130}});
    UseDecimals(true);
    const auto axes = [](AxisKind kind) {
        return LinesOfAxes(ActivePlot(), gSettings.styles, kind).measured;
    };
    EXPECT_EQ(axes(AxisKind::Shortening),
              (std::vector<MeasuredLine>{{DegToRad(30.5), DegToRad(40)}}));
    EXPECT_EQ(axes(AxisKind::Extension),
              (std::vector<MeasuredLine>{{DegToRad(20.25), DegToRad(130)}}));
    EXPECT_EQ(StatisticsLinesOf(ActivePlot(), gSettings.styles).measured,
              axes(AxisKind::Shortening));
}

/// The drawn circle of the only plane: its centre and radius.
std::vector<double> DrawnCircle() {
    RecordingSurface surface(1000, 1000);
    RecordingSurface legend(100, 100);
    const Drawing drawing{surface, legend, gSettings.styles};
    DrawRowGreatCircles(ActivePlot(), drawing, {1, 1});
    for (const DrawOperation& operation : DrawnOn(surface)) {
        if (operation.kind == DrawOperation::Kind::Arc) {
            return {operation.points.at(0).x, operation.points.at(0).y, operation.radius};
        }
    }
    return {};
}

TEST_F(MeasuredLines, GreatCirclesAreThoseOfTheMeasuredPlane) {
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    ActiveRecord().DataKind = kPlanes;
    ActiveRecord().PlotKind = kEqualAngle;
    AddMeasuredRows({{47.3, 218.6}});
    const std::vector<double> whole = DrawnCircle();
    UseDecimals(true);
    const std::vector<double> measured = DrawnCircle();
    ASSERT_EQ(measured.size(), 3U);
    // In the equal angle net the circle of a plane has the radius R / cos dip, and its centre lies
    // R tan dip away from its dip.
    const double dip = DegToRad(47.3);
    const double direction = DegToRad(218.6);
    EXPECT_NEAR(measured[2], 1000 / std::cos(dip), 1e-6);
    EXPECT_NEAR(measured[0], -1000 * std::tan(dip) * std::sin(direction), 1e-6);
    EXPECT_NEAR(measured[1], -1000 * std::tan(dip) * std::cos(direction), 1e-6);
    EXPECT_GT(std::abs(whole.at(2) - measured[2]), 1);
}

} // namespace
} // namespace quandrel
