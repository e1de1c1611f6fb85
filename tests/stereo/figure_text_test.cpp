// SPDX-License-Identifier: MIT

#include "platform/scripted/recording_surface.h"
#include "stereo/figure_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quandrel {
namespace {

double LengthOf(const std::vector<Point>& line) {
    double length = 0;
    for (std::size_t i = 1; i < line.size(); ++i) {
        length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
    }
    return length;
}

std::vector<Point> Circle(double radius) {
    std::vector<Point> points;
    for (int i = 0; i <= 360; ++i) {
        const double angle = i * std::numbers::pi / 180;
        points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
}

TEST(FigureText, AGapIsAsWideAsAskedAndInTheMiddleOfAStraightLine) {
    const std::vector<Point> line = {{0, 0}, {30, 0}, {100, 0}};
    const LabelledLine cut = WithGapForText(line, 20);
    ASSERT_TRUE(cut.hasRoom);
    ASSERT_EQ(cut.parts.size(), 2U);
    EXPECT_DOUBLE_EQ(cut.place.x, 50);
    EXPECT_DOUBLE_EQ(cut.parts[0].back().x, 40);
    EXPECT_DOUBLE_EQ(cut.parts[1].front().x, 60);
    EXPECT_EQ(cut.parts[0].size(), 3U) << "the vertex at 30 stays";
    EXPECT_DOUBLE_EQ(LengthOf(cut.parts[0]) + LengthOf(cut.parts[1]), 80);
}

TEST(FigureText, AShortLineHasNoGap) {
    const std::vector<Point> line = {{0, 0}, {59, 0}};
    const LabelledLine cut = WithGapForText(line, 20);
    EXPECT_FALSE(cut.hasRoom);
    ASSERT_EQ(cut.parts.size(), 1U);
    EXPECT_EQ(cut.parts.front(), line);
    EXPECT_FALSE(WithGapForText({}, 20).hasRoom);
}

TEST(FigureText, TheGapIsWhereTheLineIsStraightest) {
    // A zigzag, then a straight stretch.
    std::vector<Point> line;
    for (int i = 0; i < 40; ++i) {
        line.push_back({static_cast<double>(i), i % 2 == 0 ? 0.0 : 5.0});
    }
    line.push_back({120, 0});
    const LabelledLine cut = WithGapForText(line, 30);
    ASSERT_TRUE(cut.hasRoom);
    EXPECT_GT(cut.place.x, 50);
    EXPECT_LT(cut.place.x, 110);
}

TEST(FigureText, AClosedLineLosesTheGapAlone) {
    const std::vector<Point> ring = Circle(100);
    const LabelledLine cut = WithGapForText(ring, 40);
    ASSERT_TRUE(cut.hasRoom);
    EXPECT_NEAR(LengthOf(cut.parts[0]) + LengthOf(cut.parts[1]), LengthOf(ring) - 40, 0.1);
    EXPECT_NEAR(std::hypot(cut.place.x, cut.place.y), 100, 0.1);
}

TEST(FigureText, TheTextLiesInTheGap) {
    RecordingSurface surface(400, 400);
    RecordingSurface legend(10, 10);
    const Styles styles = StartStyles();
    const Drawing drawing{surface, legend, styles};
    const std::vector<Point> line = {{0, -100}, {300, -100}};
    EXPECT_TRUE(DrawLabelledLine(surface, drawing, line, "12", kBlack));
    const DrawOperation* text = nullptr;
    for (const DrawOperation& operation : surface.Operations()) {
        if (operation.kind == DrawOperation::Kind::Text) {
            text = &operation;
        }
    }
    ASSERT_NE(text, nullptr);
    const double left = text->points.front().x;
    const double right = left + surface.TextWidth("12");
    for (const DrawOperation& operation : surface.Operations()) {
        if (operation.kind != DrawOperation::Kind::Polyline) {
            continue;
        }
        for (const Point& point : operation.points) {
            EXPECT_TRUE(point.x < left || point.x > right) << point.x;
        }
    }
    EXPECT_FALSE(DrawLabelledLine(surface, drawing, Circle(1), "12", kBlack));
}

TEST(FigureText, AFontIsThatOfTheStyleAndNeverTooSmall) {
    RecordingSurface surface(400, 400);
    Styles styles = StartStyles();
    styles.fonts[kLegendFont].font = {"Serif", 3};
    Drawing drawing{surface, surface, styles};
    EXPECT_EQ(FontInFigure(drawing, kLegendFont), (FontSpec{"Serif", 3}));
    drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(kJournalStyle));
    EXPECT_EQ(FontInFigure(drawing, kLegendFont).points, 7);
    FigureStyle small = *StandardStyle(kScreenStyle);
    small.text = {0, 6, ""};
    drawing.figure = std::make_shared<const FigureStyle>(small);
    EXPECT_EQ(FontInFigure(drawing, kLegendFont), (FontSpec{"Serif", 6}));
}

} // namespace
} // namespace quandrel
