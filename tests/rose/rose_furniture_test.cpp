// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/rose_furniture.h"
#include "rose/rose_plot.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace quandrel {

namespace {

constexpr double kClose = 1e-9;

double Degrees(double radians) {
    return radians * 180 / std::acos(-1.0);
}

double Radians(double degrees) {
    return degrees * std::acos(-1.0) / 180;
}

} // namespace

TEST(CompassName, RunsClockwiseFromNorth) {
    const std::array<const char*, 16> names = {"N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
                                               "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(CompassName(i), names[static_cast<std::size_t>(i)]);
    }
}

TEST(RoseHalves, ShowTheirSideOfTheCircle) {
    // By shape: degrees counter-clockwise from east where the half begins and ends.
    const std::array<std::array<double, 2>, 5> shown = {
        {{0, 0}, {0, 180}, {270, 90}, {180, 0}, {90, 270}}};
    for (int shape = 1; shape <= 4; ++shape) {
        const auto& [start, end] = shown[static_cast<std::size_t>(shape)];
        EXPECT_TRUE(IsHalfRose(shape));
        EXPECT_NEAR(Degrees(ShownArc(shape).start), start, kClose) << shape;
        EXPECT_NEAR(Degrees(ShownArc(shape).end), end, kClose) << shape;
        EXPECT_NEAR(std::remainder(Degrees(HiddenArc(shape).start) - end, 360), 0, kClose) << shape;
        EXPECT_NEAR(std::remainder(Degrees(HiddenArc(shape).end) - start, 360), 0, kClose) << shape;
        for (double azimuth = 5; azimuth < 360; azimuth += 10) {
            const double middle = 90 * (shape - 1);
            const double distance = std::abs(std::remainder(azimuth - middle, 360));
            EXPECT_EQ(IsAzimuthShown(shape, Radians(azimuth)), distance < 90)
                << shape << " " << azimuth;
        }
    }
}

TEST(RoseHalves, CountShapesOutsideAsWhole) {
    for (const int shape : {0, -1, 5, 99}) {
        EXPECT_FALSE(IsHalfRose(shape));
        EXPECT_TRUE(IsAzimuthShown(shape, 4));
    }
}

// Kept: a hair short of a whole turn.
TEST(RoseHalves, WholeCircleEndsAHairShortOfATurn) {
    EXPECT_EQ(ShownArc(0).start, 0);
    EXPECT_EQ(ShownArc(0).end, 6.28308530717958);
}

TEST(ClippedArc, IsTheWholeArcOfAWholeRose) {
    // Azimuths 20 to 60 are 30 to 70 counter-clockwise from east.
    const RoseArc arc = ClippedArc(0, Radians(40), Radians(20));
    EXPECT_NEAR(Degrees(arc.start), 30, kClose);
    EXPECT_NEAR(Degrees(arc.end), 70, kClose);
}

TEST(ClippedArc, EndsAtTheEdgeOfAHalf) {
    struct Case {
        int shape;
        double middle;
        double halfWidth;
        double first; ///< azimuths shown
        double last;
    };

    const std::array<Case, 6> cases = {{{1, 80, 20, 60, 90},
                                        {1, 280, 20, 270, 300},
                                        {1, 100, 30, 70, 90},
                                        {3, 100, 30, 90, 130},
                                        {2, 350, 30, 0, 20},
                                        {4, 350, 30, 320, 360}}};
    for (const Case& c : cases) {
        const RoseArc arc = ClippedArc(c.shape, Radians(c.middle), Radians(c.halfWidth));
        const auto azimuth = [](double mathAngle) {
            return std::fmod(450 - Degrees(mathAngle), 360);
        };
        EXPECT_NEAR(azimuth(arc.end), std::fmod(c.first, 360), 1e-6) << c.shape << " " << c.middle;
        EXPECT_NEAR(azimuth(arc.start), std::fmod(c.last, 360), 1e-6) << c.shape << " " << c.middle;
    }
    const RoseArc none = ClippedArc(1, Radians(180), Radians(30));
    EXPECT_EQ(none.start, none.end);
}

class DrawRoseScaleTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.RoseScaleType = "tick5";
        record.RoseRangeB[kTopRoseLayer] = {20, 20};
        record.RoseRangeA[kTopRoseLayer] = {50, 50};
        record.RoseDisplay6 = 0;
        record.RoseDisplay7 = 0;
        gRoseAxesStyle = 2;
        gRoseOuterCircle = false;
        gSettings.styles.showCompassPoints = false;
        Form(gActivePlot).PlotSurface().SetUserScale(kPlotScale);
    }

    std::vector<DrawOperation> Draw() {
        Form(gActivePlot).PlotSurface().Clear(kWhite);
        DrawRoseScale();
        return DrawnOn(Form(gActivePlot).Plot());
    }

    /// Ends of lines, rounded, the lesser one first.
    static std::set<std::array<double, 4>> LinesOf(const std::vector<DrawOperation>& drawn) {
        std::set<std::array<double, 4>> lines;
        for (const DrawOperation& operation : drawn) {
            if (operation.kind == DrawOperation::Kind::Line) {
                std::array<double, 2> a = {std::round(operation.points[0].x) + 0.0,
                                           std::round(operation.points[0].y) + 0.0};
                std::array<double, 2> b = {std::round(operation.points[1].x) + 0.0,
                                           std::round(operation.points[1].y) + 0.0};
                if (b < a) {
                    std::swap(a, b);
                }
                lines.insert({a[0], a[1], b[0], b[1]});
            }
        }
        return lines;
    }

    using Lines = std::set<std::array<double, 4>>;
};

TEST_F(DrawRoseScaleTest, DrawsNothingWhenAllIsSwitchedOff) {
    EXPECT_TRUE(Draw().empty());
}

TEST_F(DrawRoseScaleTest, AllOfItHasTheColourOfAxes) {
    gSettings.styles.plotAxesColour = 0x0000ff;
    gRoseAxesStyle = 1;
    gRoseOuterCircle = true;
    gSettings.styles.showCompassPoints = true;
    const auto drawn = Draw();
    EXPECT_GT(drawn.size(), 20U);
    for (const DrawOperation& operation : drawn) {
        const bool isText = operation.kind == DrawOperation::Kind::Text;
        EXPECT_EQ(isText ? operation.state.foreColour : operation.colour, (Colour{255, 0, 0}));
    }
}

TEST_F(DrawRoseScaleTest, DrawsAxesAsLines) {
    gRoseAxesStyle = 0;
    EXPECT_EQ(LinesOf(Draw()), (Lines{{-1000, 0, 1000, 0}, {0, -1000, 0, 1000}}));
    const std::array<Lines, 5> halves = {Lines{},
                                         {{-1000, 0, 0, 0}, {0, 0, 1000, 0}, {0, 0, 0, 1000}},
                                         {{0, -1000, 0, 0}, {0, 0, 0, 1000}, {0, 0, 1000, 0}},
                                         {{-1000, 0, 0, 0}, {0, 0, 1000, 0}, {0, -1000, 0, 0}},
                                         {{0, -1000, 0, 0}, {0, 0, 0, 1000}, {-1000, 0, 0, 0}}};
    for (std::int16_t shape = 1; shape <= 4; ++shape) {
        ActiveRecord().RoseShape = shape;
        EXPECT_EQ(LinesOf(Draw()), halves[static_cast<std::size_t>(shape)]) << shape;
    }
}

TEST_F(DrawRoseScaleTest, DrawsAxesAsTicksOutsideTheCircle) {
    for (const std::int16_t style : std::array<std::int16_t, 2>{1, 3}) {
        gRoseAxesStyle = style;
        ActiveRecord().RoseShape = 0;
        EXPECT_EQ(LinesOf(Draw()), (Lines{{0, 1000, 0, 1040},
                                          {1000, 0, 1040, 0},
                                          {0, -1040, 0, -1000},
                                          {-1040, 0, -1000, 0}}));
        ActiveRecord().RoseShape = 3;
        EXPECT_EQ(LinesOf(Draw()),
                  (Lines{{1000, 0, 1040, 0}, {0, -1040, 0, -1000}, {-1040, 0, -1000, 0}}));
    }
}

TEST_F(DrawRoseScaleTest, DrawsTheOuterCircleWithItsHalf) {
    gRoseOuterCircle = true;
    for (std::int16_t shape = 0; shape <= 4; ++shape) {
        ActiveRecord().RoseShape = shape;
        const auto drawn = Draw();
        ASSERT_EQ(drawn.size(), 1U);
        EXPECT_EQ(drawn[0].kind, DrawOperation::Kind::Arc);
        EXPECT_EQ(drawn[0].radius, 1000);
        EXPECT_EQ(drawn[0].start, ShownArc(shape).start);
        EXPECT_EQ(drawn[0].end, ShownArc(shape).end);
        EXPECT_EQ(drawn[0].state.fillStyle, kNoFill);
    }
}

TEST_F(DrawRoseScaleTest, DrawsCirclesBelowTheLargestSector) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay6 = kTrue;
    record.RoseScaleType = "circ5";
    record.RoseShape = 2;
    const auto drawn = Draw();
    ASSERT_EQ(drawn.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(drawn[i].kind, DrawOperation::Kind::Arc);
        EXPECT_DOUBLE_EQ(drawn[i].radius, 250.0 * static_cast<double>(i + 1));
        EXPECT_EQ(drawn[i].start, ShownArc(2).start);
    }
    EXPECT_EQ(record.RoseScaleType, "circ5");
}

TEST_F(DrawRoseScaleTest, DrawsTicksAcrossTheAxes) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay6 = kTrue;
    record.RoseScaleType = "tick20";
    gRoseAxesStyle = 0;
    const Lines axes = {{-1000, 0, 1000, 0}, {0, -1000, 0, 1000}};
    Lines all = {{985, 0, 985, 0}};
    all = {{-15, 1000, 15, 1000},
           {1000, -15, 1000, 15},
           {-15, -1000, 15, -1000},
           {-1000, -15, -1000, 15}};
    all.insert(axes.begin(), axes.end());
    EXPECT_EQ(LinesOf(Draw()), all);
    // A half has them only on its middle axis.
    const std::array<std::array<double, 4>, 5> middle = {{{},
                                                          {-15, 1000, 15, 1000},
                                                          {1000, -15, 1000, 15},
                                                          {-15, -1000, 15, -1000},
                                                          {-1000, -15, -1000, 15}}};
    for (std::int16_t shape = 1; shape <= 4; ++shape) {
        record.RoseShape = shape;
        const Lines lines = LinesOf(Draw());
        EXPECT_TRUE(lines.contains(middle[static_cast<std::size_t>(shape)])) << shape;
        EXPECT_EQ(lines.size(), 4U) << shape; // and the axes
    }
}

TEST_F(DrawRoseScaleTest, StandsTicksUpWhereThereIsNoAxis) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay6 = kTrue;
    record.RoseScaleType = "tick10";
    record.RoseShape = 2;
    EXPECT_EQ(
        LinesOf(Draw()),
        (Lines{{500, -15, 500, 15}, {500, 0, 515, 0}, {1000, -15, 1000, 15}, {1000, 0, 1015, 0}}));
}

TEST_F(DrawRoseScaleTest, HasNoMarksOnAnEmptyRose) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay6 = kTrue;
    record.RoseRangeA[kTopRoseLayer] = {0, 0};
    record.RoseRangeB[kTopRoseLayer] = {0, 0};
    gRoseOuterCircle = true;
    EXPECT_EQ(Draw().size(), 1U);
}

TEST_F(DrawRoseScaleTest, WritesTheIntervalInTheActivePlotAlone) {
    PlotRecord& record = ActiveRecord();
    record.RoseScaleType = "tick0";
    RecordingSurface page(600, 600);
    RecordingSurface legend(100, 100);
    DrawRoseScale(ActivePlot(), {page, legend, gSettings.styles, DrawnFor::Paper});
    EXPECT_EQ(record.RoseScaleType, "tick0");
    DrawRoseScale();
    EXPECT_EQ(record.RoseScaleType.substr(0, 4), "tick");
    EXPECT_GT(std::stod(record.RoseScaleType.substr(4)), 0);
    record.RoseScaleType = "tickauto";
    DrawRoseScale();
    EXPECT_EQ(record.RoseScaleType, "tickauto");
}

class CompassPointsTest : public DrawRoseScaleTest {
protected:
    struct Label {
        std::string name;
        double left;
        double bottom;
        double right;
        double top;
    };

    void SetUp() override {
        DrawRoseScaleTest::SetUp();
        gSettings.styles.showCompassPoints = true;
    }

    /// Draws on a window of that many pixels; returns the names with their boxes.
    static std::vector<Label> LabelsAt(double pixels) {
        RecordingSurface window(pixels, pixels);
        window.SetUserScale(kPlotScale);
        RecordingSurface legend(100, 100);
        DrawRoseScale(ActivePlot(), {window, legend, gSettings.styles});
        std::vector<Label> labels;
        for (const DrawOperation& operation : window.Operations()) {
            if (operation.kind == DrawOperation::Kind::Text) {
                window.SetState(operation.state);
                const Point at = operation.points[0];
                labels.push_back({operation.text, at.x, at.y - window.TextHeight(),
                                  at.x + window.TextWidth(operation.text), at.y});
            }
        }
        return labels;
    }

    static bool Has(const std::vector<Label>& labels, const std::string& name) {
        return std::any_of(labels.begin(), labels.end(),
                           [&name](const Label& label) { return label.name == name; });
    }
};

TEST_F(CompassPointsTest, NamesThePointsOfTheShape) {
    const std::array<std::vector<int>, 5> points = {
        std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15},
        {12, 13, 14, 15, 0, 1, 2, 3, 4},
        {0, 1, 2, 3, 4, 5, 6, 7, 8},
        {4, 5, 6, 7, 8, 9, 10, 11, 12},
        {8, 9, 10, 11, 12, 13, 14, 15, 0}};
    for (std::int16_t shape = 0; shape <= 4; ++shape) {
        ActiveRecord().RoseShape = shape;
        const auto labels = LabelsAt(700);
        const auto& expected = points[static_cast<std::size_t>(shape)];
        EXPECT_EQ(labels.size(), expected.size()) << shape;
        for (const int i : expected) {
            EXPECT_TRUE(Has(labels, CompassName(i))) << shape << " " << i;
        }
    }
}

TEST_F(CompassPointsTest, TicksThePointsAtTheRim) {
    const auto lines = LinesOf(Draw());
    EXPECT_EQ(lines.size(), 16U);
    EXPECT_TRUE(lines.contains({0, 1000, 0, 1020}));
    EXPECT_TRUE(lines.contains({707, 707, 721, 721}));
    EXPECT_TRUE(lines.contains({-942, -390, -924, -383})); // WSW, whole numbers
}

TEST_F(CompassPointsTest, KeepsNamesInTheWindowAndClearOfCircleAndEachOther) {
    for (const double pixels : {2000.0, 700.0, 500.0, 350.0, 250.0, 150.0, 80.0}) {
        const auto labels = LabelsAt(pixels);
        for (std::size_t i = 0; i < labels.size(); ++i) {
            const Label& a = labels[i];
            EXPECT_GE(a.left, -1100 - kClose) << pixels << a.name;
            EXPECT_LE(a.right, 1100 + kClose) << pixels << a.name;
            EXPECT_GE(a.bottom, -1100 - kClose) << pixels << a.name;
            EXPECT_LE(a.top, 1100 + kClose) << pixels << a.name;
            EXPECT_GE(
                std::hypot(std::clamp(0.0, a.left, a.right), std::clamp(0.0, a.bottom, a.top)),
                1000 - kClose)
                << pixels << a.name;
            for (std::size_t j = i + 1; j < labels.size(); ++j) {
                const Label& b = labels[j];
                EXPECT_FALSE(a.left < b.right && b.left < a.right && a.bottom < b.top
                             && b.bottom < a.top)
                    << pixels << a.name << b.name;
            }
        }
    }
}

TEST_F(CompassPointsTest, MakesRoomForTheArrowOfTheMean) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay7 = kTrue;
    record.RoseStats[kRoseCount] = {30, 30, 5};
    record.RoseResultant = {0.8, 0.5};
    record.RoseMeanDir[kOfAngles] = 0.02;
    gRoseDirectional = true;
    gRoseSectors = RoseSectorTable(4, 1);
    gRoseSectors(0, 0, kRoseValueLayer) = 30;
    const auto labels = LabelsAt(700);
    EXPECT_EQ(labels.size(), 16U);
    for (const Label& label : labels) {
        if (label.name == "N") {
            EXPECT_LT(label.right, 1060 * std::sin(0.02)); // beside it, on the left
            EXPECT_GT(label.left, -120);
        }
    }
}

} // namespace quandrel
