// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "platform/colour_space.h"
#include "rose/figure_rose.h"
#include "rose/figure_rose_fills.h"
#include "rose/figure_rose_mean.h"
#include "rose/figure_rose_scale.h"
#include "rose/label_box.h"
#include "rose/rose_plot.h"
#include "rose/rose_scale.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {
namespace {

constexpr std::array<ColourVision, 3> kVisions = {ColourVision::Normal, ColourVision::Protanopia,
                                                  ColourVision::Deuteranopia};

class FigureRoseTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPlotKind = kRose;
        NewPlot();
        Record().DataKind = kPolarLines;
        Record().PrimaryFormat = kPrimaryLine;
        Record().RoseScaleType = "circauto";
        Record().RoseDisplay6 = kTrue;
        Record().RoseDisplay7 = kTrue;
        Record().RoseDisplay8 = kTrue;
    }

    void TearDown() override {
        gPlotKind = kEqualArea;
        EngineTest::TearDown();
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    Drawing In(std::string_view style) {
        Drawing drawing{surface, surface, gSettings.styles, DrawnFor::Paper};
        drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(style));
        return drawing;
    }

    /// Rows at these azimuths; all tables are worked out.
    static void Work(const std::vector<std::int32_t>& azimuths) {
        for (const std::int32_t azimuth : azimuths) {
            AddRow(10, azimuth);
        }
        WorkOutRoseUnasked(ActivePlot(), Formulas::Own);
    }

    std::vector<DrawOperation> Drawn(std::string_view style) {
        surface.SetUserScale(kPlotScale);
        DrawFigureRose(ActivePlot(), In(style), LabelRoom::Beyond);
        return surface.Operations();
    }

    RecordingSurface surface{600, 600};
};

/// n even azimuths, and `more` at one.
std::vector<std::int32_t> Azimuths(int even, int more, std::int32_t at) {
    std::vector<std::int32_t> azimuths;
    for (int i = 0; i < even; ++i) {
        azimuths.push_back(i * 360 / even);
    }
    azimuths.insert(azimuths.end(), static_cast<std::size_t>(more), at);
    return azimuths;
}

TEST(RoundStep, GivesAboutFourCircles) {
    EXPECT_DOUBLE_EQ(RoundStep(4), 1);
    EXPECT_DOUBLE_EQ(RoundStep(9.4), 2);
    EXPECT_DOUBLE_EQ(RoundStep(0.031), 0.01);
    EXPECT_DOUBLE_EQ(RoundStep(1800), 500);
    for (double largest = 1e-7; largest < 1e9; largest *= 1.07) {
        const double circles = largest / RoundStep(largest);
        EXPECT_GE(circles, 2.4) << largest;
        EXPECT_LE(circles, 6) << largest;
    }
}

TEST(LabelsOfRim, AreNorthAndEveryStep) {
    RoseStyle style = StandardStyle(kJournalStyle)->roses;
    const auto texts = [&style](int shape) {
        std::string all;
        for (const RimLabel& label : LabelsOfRim(style, shape)) {
            all += label.text + " ";
        }
        return all;
    };
    EXPECT_EQ(texts(0), "N 030 060 090 120 150 180 210 240 270 300 330 ");
    EXPECT_EQ(texts(1), "N 030 060 090 270 300 330 ");
    style.tickStep = 22.5;
    EXPECT_EQ(texts(2), "N 022.5 045 067.5 090 112.5 135 157.5 180 ");
    style.tickStep = 0;
    EXPECT_EQ(texts(0), "N E S W ");
    EXPECT_EQ(texts(3), "E S W ");
}

TEST_F(FigureRoseTest, ShowsTheMeanOnlyWhereRayleighsTestRejects) {
    // R = 3/23 and p = exp(-23 R^2) about 0.68, above 0.05; with 12 at one azimuth 144/32 about 4.5
    // and p about 0.01.
    Work(Azimuths(20, 3, 40));
    EXPECT_FALSE(IsMeanSignificant(ActivePlot()));
    EXPECT_FALSE(MeanOfFigure(ActivePlot(), In(kJournalStyle)));
    FigureStyle always = *StandardStyle(kJournalStyle);
    always.roses.meanIfSignificant = false;
    Drawing drawing = In(kJournalStyle);
    drawing.figure = std::make_shared<const FigureStyle>(always);
    EXPECT_TRUE(MeanOfFigure(ActivePlot(), drawing));
    Work(Azimuths(0, 9, 40));
    EXPECT_TRUE(IsMeanSignificant(ActivePlot()));
    const std::optional<FigureMean> mean = MeanOfFigure(ActivePlot(), In(kJournalStyle));
    ASSERT_TRUE(mean);
    EXPECT_NEAR(RadToDeg(mean->azimuth), 40, 1e-9);
    EXPECT_TRUE(mean->halfWidth);
    Record().RoseDisplay8 = 0;
    EXPECT_FALSE(MeanOfFigure(ActivePlot(), In(kJournalStyle))->halfWidth);
    Record().RoseDisplay7 = 0;
    EXPECT_FALSE(MeanOfFigure(ActivePlot(), In(kJournalStyle)));
}

TEST_F(FigureRoseTest, TestsDoubledAnglesOfAxes) {
    Record().DataKind = kLines;
    std::vector<std::int32_t> both = Azimuths(0, 15, 20); // no direction, but one axis
    both.insert(both.end(), 15, 200);
    Work(both);
    EXPECT_TRUE(IsMeanSignificant(ActivePlot()));
    const std::optional<FigureMean> mean = MeanOfFigure(ActivePlot(), In(kJournalStyle));
    ASSERT_TRUE(mean);
    EXPECT_EQ(EndsOfMean(ActivePlot(), *mean).size(), 2U);
}

TEST_F(FigureRoseTest, IntervalEndsWhereItDoes) {
    Work(Azimuths(10, 20, 40));
    const std::optional<FigureMean> mean = MeanOfFigure(ActivePlot(), In(kJournalStyle));
    ASSERT_TRUE(mean && mean->halfWidth);
    surface.SetUserScale(kPlotScale);
    DrawFigureMean(ActivePlot(), In(kJournalStyle));
    const std::vector<Point> corners = surface.Operations().back().points;
    ASSERT_GT(corners.size(), 4U);
    double furthest = 0;
    for (const Point& corner : corners) {
        const double off = std::remainder(std::atan2(corner.x, corner.y) - mean->azimuth, kTwoPi);
        furthest = std::max(furthest, std::abs(off));
        EXPECT_NEAR(std::hypot(corner.x, corner.y), 1000, 20);
    }
    EXPECT_NEAR(furthest, *mean->halfWidth, 1e-9);
}

TEST_F(FigureRoseTest, CirclesHaveTheirValuesWithinTheRim) {
    Work(Azimuths(36, 14, 40));
    const FigureScale scale = ScaleOfFigure(ActivePlot());
    EXPECT_TRUE(scale.isPerCent);
    EXPECT_NEAR(scale.rim, 30, 1e-9) << "15 of 50";
    ASSERT_EQ(scale.circles.size(), 5U) << "5 to 25 of 30 per cent";
    EXPECT_EQ(scale.circles.front().text, "5");
    EXPECT_EQ(scale.circles.back().text, "25%");
    for (std::size_t i = 0; i < scale.circles.size(); ++i) {
        EXPECT_NEAR(scale.circles[i].radius, 1000.0 * 5 * static_cast<double>(i + 1) / 30, 1e-6);
    }
    const std::vector<Point> sizes(scale.circles.size(), {70, 60});
    const auto places = PlacesOfValues(ActivePlot(), In(kJournalStyle), scale, sizes);
    ASSERT_EQ(places.size(), scale.circles.size());
    for (const PlacedValue& value : places) {
        EXPECT_LT(std::hypot(value.centre.x, value.centre.y) + 30, 1000);
        for (const PlacedValue& other : places) {
            const bool areApart = std::abs(value.centre.x - other.centre.x) >= 70
                                  || std::abs(value.centre.y - other.centre.y) >= 48;
            EXPECT_TRUE(areApart || value.circle == other.circle);
        }
    }
}

TEST_F(FigureRoseTest, CirclesOfAreasAreWherePetalsOfTheirValueEnd) {
    Record().RoseEqualArea = kTrue;
    Work(Azimuths(36, 14, 40));
    for (const FigureCircle& circle : ScaleOfFigure(ActivePlot()).circles) {
        const double perCent = std::stod(circle.text);
        EXPECT_NEAR(circle.radius, 1000 * std::sqrt(perCent / 30), 1e-6) << circle.text;
    }
}

TEST_F(FigureRoseTest, DrawsNothingBeyondAHalfButTheWidthOfTexts) {
    Record().RoseShape = 2; // east
    Work(Azimuths(36, 14, 200));
    double least = 0;
    for (const DrawOperation& operation : Drawn(kJournalStyle)) {
        for (const Point& point : operation.points) {
            least = std::min(least, point.x);
        }
        EXPECT_NE(operation.kind, DrawOperation::Kind::Circle);
    }
    EXPECT_GT(least, -60);
}

TEST_F(FigureRoseTest, HasWidthsAndTextsOfTheStyle) {
    Work(Azimuths(36, 14, 40));
    bool hasRim = false;
    bool hasNorth = false;
    for (const DrawOperation& operation : Drawn(kJournalStyle)) {
        if (operation.kind == DrawOperation::Kind::Text) {
            EXPECT_GE(operation.state.font.points, 6) << operation.text;
            hasNorth = hasNorth || (operation.text == "N" && operation.state.font.bold);
        } else if (operation.state.drawStyle != kNoLine) {
            EXPECT_GT(operation.state.widthInPoints, 0.3);
        }
        hasRim = hasRim
                 || (operation.kind == DrawOperation::Kind::Circle && operation.radius == 1000
                     && operation.state.widthInPoints == 0.75);
    }
    EXPECT_TRUE(hasRim);
    EXPECT_TRUE(hasNorth);
}

TEST_F(FigureRoseTest, KeepsFillsThatTheUserHasChosen) {
    EXPECT_EQ(FillOfFigureLayer(Record(), In(kJournalStyle), 0).colour,
              StandardStyle(kJournalStyle)->roses.fill);
    gSettings.styles.symbols[kRoseStyle][kPlaceColour] = 9;
    EXPECT_EQ(FillOfFigureLayer(Record(), In(kJournalStyle), 0).colour,
              TableColour(gSettings.styles, 9));
}

void ExpectApart(const std::vector<PetalFill>& fills, const std::string& of) {
    for (const ColourVision vision : kVisions) {
        for (std::size_t i = 1; i < fills.size(); ++i) {
            if (fills[i - 1].pattern == fills[i].pattern) {
                EXPECT_GE(ColourDifference(LabOf(ColourAsSeen(fills[i - 1].colour, vision)),
                                           LabOf(ColourAsSeen(fills[i].colour, vision))),
                          8)
                    << of << ", " << i;
            }
        }
    }
}

TEST_F(FigureRoseTest, ToldApartAreNeighboursByAllEyes) {
    for (const std::string_view style : {kScreenStyle, kJournalStyle, kGreyStyle}) {
        const Drawing drawing = In(style);
        Record().RoseType = kRoseOverlaidWind;
        std::vector<PetalFill> layers;
        for (int layer = 0; layer < 3; ++layer) {
            layers.push_back(FillOfFigureLayer(Record(), drawing, layer));
        }
        ExpectApart(layers, std::string(style) + " layers");
        for (const int classes : {2, 5, 6, 10}) {
            Record().RoseType = 10 * kRoseByLength;
            Record().ClassTable[kBaseRow][kNumberClasses] = static_cast<std::int16_t>(classes);
            std::vector<PetalFill> fills;
            for (int c = 2; c < classes + 2; ++c) {
                fills.push_back(FillOfFigureClass(Record(), drawing, c));
            }
            ExpectApart(fills, std::string(style) + " of " + std::to_string(classes));
        }
    }
}

} // namespace
} // namespace quandrel
