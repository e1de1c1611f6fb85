// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "stereo/net.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <memory>

namespace quandrel {
namespace {

class Net : public EngineTest {
protected:
    /// The lines of an empty net in an axes style.
    std::vector<DrawOperation> Draw(std::int16_t style, std::int16_t kind = kEqualArea) {
        NewPlot();
        gPlotAxesStyle = style;
        ActiveRecord().PlotKind = kind;
        DrawPlotBase();
        return DrawnOn(Form(gActivePlot).Plot());
    }

    static bool HasLine(const std::vector<DrawOperation>& operations, Point from, Point to) {
        for (const DrawOperation& operation : operations) {
            if (operation.kind == DrawOperation::Kind::Line && operation.points[0] == from
                && operation.points[1] == to) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(Net, ThePrimitiveIsACircleOfRadiusAThousand) {
    const auto operations = Draw(9);
    ASSERT_EQ(operations.size(), 1U) << "a style outside the table has no axes";
    EXPECT_EQ(operations[0].kind, DrawOperation::Kind::Circle);
    EXPECT_EQ(operations[0].radius, 1000);
    EXPECT_EQ(operations[0].points[0], (Point{0, 0}));
}

TEST_F(Net, StyleNoughtIsACrossOfTwoLinesOfAHundred) {
    const auto operations = Draw(0);
    EXPECT_EQ(operations.size(), 3U);
    EXPECT_TRUE(HasLine(operations, {-50, 0}, {50, 0}));
    EXPECT_TRUE(HasLine(operations, {0, -50}, {0, 50}));
}

// Kept: the north has no tick.
TEST_F(Net, StyleOneHasNoTickInTheNorth) {
    const auto operations = Draw(1);
    EXPECT_EQ(operations.size(), 6U);
    EXPECT_TRUE(HasLine(operations, {-1000, 0}, {-1050, 0}));
    EXPECT_TRUE(HasLine(operations, {1000, 0}, {1050, 0}));
    EXPECT_TRUE(HasLine(operations, {0, -1000}, {0, -1050}));
    EXPECT_FALSE(HasLine(operations, {0, 1000}, {0, 1050}));
}

TEST_F(Net, TicksOfStyleTwoAreSpacedAsTheProjectionSpacesPlunges) {
    // Distances of plunge 30 from the centre: sqrt(1 - sin 30) and tan 30, of 1000, rounded.
    const auto area = Draw(2, kEqualArea);
    EXPECT_TRUE(HasLine(area, {-20, 707}, {20, 707}));
    EXPECT_TRUE(HasLine(area, {-707, -20}, {-707, 20}));
    EXPECT_TRUE(HasLine(area, {-1000, 0}, {1000, 0}));
    EXPECT_EQ(area.size(), 1U + 2U + 32U);
    const auto angle = Draw(2, kEqualAngle);
    EXPECT_TRUE(HasLine(angle, {-20, 577}, {20, 577}));
    EXPECT_FALSE(HasLine(angle, {-20, 707}, {20, 707}));
}

TEST_F(Net, StyleThreeTicksTheEasternRimFromNorthToSouth) {
    const auto operations = Draw(3);
    EXPECT_EQ(operations.size(), 1U + 19U + 32U);
    for (const DrawOperation& operation : operations) {
        for (const Point& point : operation.points) {
            EXPECT_LE(std::hypot(point.x, point.y), 1100);
        }
    }
}

TEST_F(Net, ARoseDrawsItsOwnBase) {
    EXPECT_TRUE(Draw(2, kRose).empty());
}

TEST_F(Net, DrawingBeginsWithTheOrdinaryPenOnAClearedSurface) {
    Draw(0);
    DrawState changed;
    changed.drawMode = kDrawNotXor;
    changed.drawWidth = 5;
    FormOf(gActivePlot).PlotSurface().SetState(changed);
    DrawPlotBase();
    EXPECT_EQ(FormOf(gActivePlot).PlotSurface().State().drawMode, kDrawCopy);
    EXPECT_EQ(FormOf(gActivePlot).PlotSurface().State().drawWidth, 1);
    EXPECT_EQ(DrawnOn(Form(gActivePlot).Plot()).size(), 3U);
}

TEST_F(Net, TheMeanArrowStandsAtTheTrueAzimuthInBothNets) {
    for (const std::int16_t kind : {kEqualArea, kEqualAngle}) {
        Draw(9, kind);
        auto& mean = ActiveRecord().AxisItems[kMeanItem];
        mean[kItemShown] = true;
        mean[kItemTrend] = DegToRad(60);
        DrawPlotFurniture();
        const auto operations = DrawnOn(Form(gActivePlot).Plot());
        ASSERT_EQ(operations.size(), 4U);
        const Point rim = operations[1].points[0];
        const Point tip = operations[1].points[1];
        EXPECT_NEAR(std::hypot(rim.x, rim.y), 1000, 1e-9);
        EXPECT_NEAR(std::hypot(tip.x, tip.y), 1091, 1e-9);
        EXPECT_NEAR(std::atan2(tip.x, tip.y), kPi / 3, 1e-9);
        EXPECT_NEAR(std::hypot(operations[2].points[1].x, operations[2].points[1].y), 1021, 1e-9);
        EXPECT_EQ(operations[1].state.drawWidth, 2);
        EXPECT_EQ(FormOf(gActivePlot).PlotSurface().State().drawWidth, 1);
    }
}

TEST_F(Net, WithoutAMeanDirectionThereIsNoMeanArrow) {
    Draw(9);
    ActiveRecord().AxisItems[kMeanItem][kItemShown] = true;
    ActiveRecord().AxisItems[kMeanItem][kItemTrend] = TaggedValue();
    DrawPlotFurniture();
    EXPECT_EQ(DrawnOn(Form(gActivePlot).Plot()).size(), 1U);
}

TEST_F(Net, AnOverlayHidesTheMeanArrow) {
    Draw(9);
    ActiveRecord().AxisItems[kMeanItem][kItemShown] = true;
    ActiveRecord().AxisItems[kMeanItem][kItemTrend] = 1.0;
    ActiveRecord().OverlayRows[kOverlayCount] = 1;
    DrawPlotFurniture();
    EXPECT_EQ(DrawnOn(Form(gActivePlot).Plot()).size(), 1U);
}

/// Resets the settings of the look to their defaults, whatever a test does.
class NetLook : public Net {
protected:
    std::vector<DrawOperation> AllOf(std::int16_t style) {
        Draw(style);
        return Form(gActivePlot).Plot().Operations();
    }

    /// The same net on a page.
    std::vector<DrawOperation> OnPaper(std::int16_t style) {
        NewPlot();
        gPlotAxesStyle = style;
        RecordingSurface page(500, 500);
        DrawPlotBase(ActiveRecord(), PaperDrawing(ActiveRecord(), page, page));
        return page.Operations();
    }

    static bool HasText(const std::vector<DrawOperation>& operations, const std::string& text) {
        for (const DrawOperation& operation : operations) {
            if (operation.kind == DrawOperation::Kind::Text && operation.text == text) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(NetLook, TheScreenHasTheBackgroundOfThePreferences) {
    EXPECT_EQ(AllOf(0)[0].colour, kWhite);
    gSettings.styles.plotBackColour = 0x332211;
    const auto operations = AllOf(0);
    EXPECT_EQ(operations[0].kind, DrawOperation::Kind::Clear);
    EXPECT_EQ(operations[0].colour, (Colour{0x11, 0x22, 0x33}));
}

TEST_F(NetLook, PagesAreNeverGivenABackground) {
    gSettings.styles.plotBackColour = 0x332211;
    for (const DrawOperation& operation : OnPaper(2)) {
        EXPECT_NE(operation.kind, DrawOperation::Kind::Clear);
    }
    RecordingSurface page(500, 500);
    EXPECT_EQ(PlotBackground(PaperDrawing(ActiveRecord(), page, page)), kWhite);
}

TEST_F(NetLook, CircleAndAxesOfEachStyleHaveTheirColour) {
    gSettings.styles.plotAxesColour = 0x0000ff;
    for (std::int16_t style = 0; style <= 3; ++style) {
        for (const DrawOperation& operation : Draw(style)) {
            EXPECT_EQ(operation.colour, (Colour{255, 0, 0})) << style;
        }
        for (const DrawOperation& operation : OnPaper(style)) {
            EXPECT_EQ(operation.colour, (Colour{255, 0, 0})) << style;
        }
    }
}

TEST_F(NetLook, AxesThatPaperWouldNotShowAreBlackThere) {
    for (const std::uint32_t bright : {0xffffffU, 0x80ffffU}) {
        gSettings.styles.plotAxesColour = bright;
        EXPECT_EQ(Draw(1)[0].colour, ColourFromValue(bright));
        EXPECT_EQ(OnPaper(1)[0].colour, kBlack);
    }
}

TEST_F(NetLook, ASampleOfTheScreenHasItsColours) {
    gSettings.styles.plotAxesColour = 0xffffff;
    gSettings.styles.plotBackColour = 0x332211;
    RecordingSurface sample(500, 500);
    Drawing drawing{sample, sample, gSettings.styles, DrawnFor::Sample};
    EXPECT_EQ(AxesColour(drawing), kWhite);
    EXPECT_EQ(PlotBackground(drawing), (Colour{0x11, 0x22, 0x33}));
    drawing.purpose = DrawnFor::Paper;
    EXPECT_EQ(AxesColour(drawing), kBlack);
}

TEST_F(NetLook, ANorthStandsAboveTheCircleWhenItIsWanted) {
    EXPECT_FALSE(HasText(Draw(0), "N")) << "off in a first run";
    gSettings.styles.showNorth = true;
    for (std::int16_t style = 0; style <= 3; ++style) {
        const auto operations = Draw(style);
        ASSERT_TRUE(HasText(operations, "N")) << style;
        const DrawOperation& north = operations.back();
        const double width = 2 * -north.points[0].x;
        EXPECT_GT(width, 0) << "centred: its left edge is west of the middle";
        EXPECT_GT(north.points[0].y, 1000);
        EXPECT_LE(north.points[0].y, 1100);
    }
    EXPECT_FALSE(HasText(Draw(0, kRose), "N")) << "roses have compass points";
}

TEST_F(NetLook, TheNorthOfAStyleIsOnTheSurfaceUnlessThePageLeavesRoom) {
    NewPlot();
    Drawing drawing = WindowDrawing(gActivePlot);
    drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(kScreenStyle));
    const auto northTop = [&](NetRoom room) {
        DrawPlotBase(ActiveRecord(), drawing, room);
        const DrawOperation north = DrawnOn(Form(gActivePlot).Plot()).back();
        EXPECT_EQ(north.text, "N");
        EXPECT_TRUE(north.state.font.bold);
        return north.points[0].y;
    };
    EXPECT_LE(northTop(NetRoom::Within), 1100 + 1e-9);
    EXPECT_GT(northTop(NetRoom::Within), 1040) << "above the tick";
    EXPECT_GE(northTop(NetRoom::Beyond), northTop(NetRoom::Within));
}

TEST_F(NetLook, TheMeanArrowHasTheStyleOfTheMean) {
    NewPlot();
    ActiveRecord().AxisItems[kMeanItem][kItemShown] = true;
    ActiveRecord().AxisItems[kMeanItem][kItemTrend] = 1.0;
    gAxisStyleTable[kMeanGirdleStyle] = {8, kDashedLine, 3};
    DrawPlotFurniture();
    const auto operations = DrawnOn(Form(gActivePlot).Plot());
    ASSERT_EQ(operations.size(), 3U);
    for (const DrawOperation& operation : operations) {
        EXPECT_EQ(operation.colour, (Colour{255, 0, 0}));
        EXPECT_EQ(operation.state.drawStyle, kDashedLine);
        EXPECT_EQ(operation.state.drawWidth, 4);
    }
}

TEST_F(NetLook, TextsOnTheNetHaveTheGeneralFontAndItsColour) {
    NewPlot();
    gSettings.styles.fonts[kGeneralFont].font.points = 13;
    gSettings.styles.fonts[kGeneralFont].colour = 0xff;
    SetPlotDrawMode();
    const DrawState& state = Form(gActivePlot).Plot().State();
    EXPECT_EQ(state.font.points, 13);
    EXPECT_EQ(state.foreColour, (Colour{255, 0, 0}));
}

} // namespace
} // namespace quandrel
