// SPDX-License-Identifier: MIT

#include "border/inner_surface.h"

#include <gtest/gtest.h>

namespace quandrel::api {
namespace {

/// A surface of 550 pixels for a plot, of which each has 4 units.
class InnerDrawing : public ::testing::Test {
protected:
    InnerDrawing() { surface.SetUserScale(kPlotScale); }

    [[nodiscard]] const Operation& Last() const { return recording.Operations().back(); }

    Recording recording{{550, 550}};
    InnerSurface surface{recording, {0, 0, 550, 550}};
};

DrawState FaintState() {
    DrawState state;
    state.fillStyle = kSolidFill;
    state.fillColour = {1, 2, 3};
    state.widthInPoints = 0.5;
    state.lineOpacity = 0.25;
    state.fillOpacity = 0.75;
    return state;
}

TEST_F(InnerDrawing, PathsGoOutWithTheirRingsInPixels) {
    surface.SetState(FaintState());
    const std::vector<std::vector<quandrel::Point>> rings = {{{-1100, 1100}, {0, 0}, {0, 400}},
                                                             {{4, 0}, {8, 0}, {8, -4}}};
    surface.Path(rings, {9, 8, 7});
    EXPECT_EQ(Last().kind, Operation::Kind::kPath);
    EXPECT_EQ(Last().rings,
              (std::vector<std::vector<Point>>{{{0, 0}, {275, 275}, {275, 175}},
                                               {{276, 275}, {277, 275}, {277, 276}}}));
    EXPECT_EQ(Last().pen, (Pen{{9, 8, 7}, 1, Dash::kSolid, 0.5, 0.25}));
    EXPECT_EQ(Last().fill, (Fill{Pattern::kSolid, {1, 2, 3}, 0.75}));
}

TEST_F(InnerDrawing, ClipsGoOutInPixelsAndEnd) {
    {
        const CircleClip clip(surface, {0, 400}, 1000);
        EXPECT_EQ(Last().kind, Operation::Kind::kPushClip);
        EXPECT_EQ(Last().points, (std::vector<Point>{{275, 175}}));
        EXPECT_EQ(Last().radius, 250);
    }
    EXPECT_EQ(Last().kind, Operation::Kind::kPopClip);
}

TEST_F(InnerDrawing, OpacitiesAndPointsGoOutWithEachShape) {
    surface.SetState(FaintState());
    surface.Line({0, 0}, {1, 1}, kBlack);
    EXPECT_EQ(Last().pen.points, 0.5);
    EXPECT_EQ(Last().pen.opacity, 0.25);
    surface.FilledBox({0, 0}, {1, 1}, kBlack);
    EXPECT_EQ(Last().pen.opacity, 0.25);
    EXPECT_EQ(Last().fill.opacity, 0.75);
    surface.SetPixel({0, 0}, kBlack);
    EXPECT_EQ(Last().fill.opacity, 0.75);
    const Glyph glyph{"g",
                      {{GlyphPart::Kind::Circle, GlyphPart::Ink::White, {{0, 0}}, 8},
                       {GlyphPart::Kind::Pixel, GlyphPart::Ink::Outline, {{0, 0}}, 0}}};
    surface.Markers(glyph, kBlack, std::vector<quandrel::Point>{{0, 0}});
    ASSERT_EQ(Last().marker.parts.size(), 2U);
    EXPECT_EQ(Last().marker.parts[0].pen, (Pen{{}, 1, Dash::kSolid, 0.5, 0.25}));
    EXPECT_EQ(Last().marker.parts[0].fill, (Fill{Pattern::kSolid, {255, 255, 255}, 0.75}));
    EXPECT_EQ(Last().marker.parts[1].fill.opacity, 0.75);
}

TEST_F(InnerDrawing, MarksThatAreToggledAreOpaque) {
    DrawState state = FaintState();
    state.drawMode = kDrawNotXor;
    surface.SetState(state);
    surface.Circle({0, 0}, 4, kBlack);
    EXPECT_EQ(Last().pen.opacity, 1);
    EXPECT_EQ(Last().fill.opacity, 1);
}

} // namespace
} // namespace quandrel::api
