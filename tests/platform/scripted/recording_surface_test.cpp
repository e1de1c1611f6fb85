// SPDX-License-Identifier: MIT

#include "platform/scripted/recording_form.h"
#include "platform/scripted/recording_surface.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

class Recording : public ::testing::Test {
protected:
    [[nodiscard]] std::string LastText() const {
        return surface.Operations().empty() ? "" : OperationText(surface.Operations().back());
    }

    RecordingSurface surface{1000, 500};
};

TEST_F(Recording, KeepsEachCallWithItsArguments) {
    const std::vector<Point> points = {{1, 2}, {3, 4}, {5, 7}};
    surface.Arc({1, 2}, 30, 0.5, 1.5, kBlack);
    surface.Polygon(points, {1, 2, 3});
    surface.Markers({"2/3", {}}, {4, 5, 6}, points);
    ASSERT_EQ(surface.Operations().size(), 3U);
    const DrawOperation& arc = surface.Operations()[0];
    EXPECT_EQ(arc.kind, Kind::Arc);
    EXPECT_EQ(arc.points, (std::vector<Point>{{1, 2}}));
    EXPECT_EQ(arc.radius, 30);
    EXPECT_EQ(arc.start, 0.5);
    EXPECT_EQ(arc.end, 1.5);
    EXPECT_EQ(surface.Operations()[1].kind, Kind::Polygon);
    EXPECT_EQ(surface.Operations()[1].points, points);
    EXPECT_EQ(surface.Operations()[1].colour, (Colour{1, 2, 3}));
    EXPECT_EQ(surface.Operations()[2].kind, Kind::Markers);
    EXPECT_EQ(surface.Operations()[2].text, "2/3");
    EXPECT_EQ(surface.Operations()[2].points, points);
}

TEST_F(Recording, KeepsTheGlyphsOfItsMarkersUntilItIsCleared) {
    const Point at{1, 2};
    const Glyph dot{"dot", {{GlyphPart::Kind::Circle, GlyphPart::Ink::Filled, {{0, 0}}, 5}}};
    surface.Markers(dot, kBlack, std::span(&at, 1));
    ASSERT_EQ(surface.Glyphs().size(), 1U);
    EXPECT_EQ(surface.Glyphs().at("dot").parts, dot.parts);
    surface.Clear(kWhite);
    EXPECT_TRUE(surface.Glyphs().empty());
}

TEST_F(Recording, KeepsTheStateAtTheCall) {
    DrawState thick;
    thick.drawWidth = 4;
    surface.SetState(thick);
    surface.Line({0, 0}, {1, 1}, kBlack);
    surface.SetState({});
    EXPECT_EQ(surface.Operations()[0].state, thick);
}

TEST_F(Recording, SavedStatePutsTheStateBack) {
    {
        const SavedState saved(surface);
        DrawState other;
        other.drawStyle = kDottedLine;
        surface.SetState(other);
        EXPECT_EQ(surface.State().drawStyle, kDottedLine);
    }
    EXPECT_EQ(surface.State(), DrawState{});
}

TEST_F(Recording, ClearDropsWhatWentBeforeAndIsTheFirstOperation) {
    surface.Line({0, 0}, {1, 1}, kBlack);
    surface.Clear(kBlack);
    surface.Clear(kWhite);
    surface.SetPixel({2, 2}, kBlack);
    ASSERT_EQ(surface.Operations().size(), 2U);
    EXPECT_EQ(OperationText(surface.Operations()[0]), "clear ffffff");
    EXPECT_EQ(surface.Operations()[1].kind, Kind::Pixel);
}

TEST_F(Recording, ALineOfTextTellsEachOperation) {
    surface.Line({0, 0}, {10, -5.25}, kBlack);
    EXPECT_EQ(LastText(), "line (0, 0) (10, -5.25) 000000");
    surface.Box({0, 0}, {2, 2}, {255, 16, 0});
    EXPECT_EQ(LastText(), "box (0, 0) (2, 2) ff1000");
    surface.FilledBox({0, 0}, {2, 2}, kBlack);
    EXPECT_EQ(LastText(), "filled box (0, 0) (2, 2) 000000");
    surface.Circle({0, 0}, 1000, kBlack);
    EXPECT_EQ(LastText(), "circle (0, 0) radius 1000 000000");
    surface.Arc({1, 1}, 5, 0, 1.5, kBlack);
    EXPECT_EQ(LastText(), "arc (1, 1) radius 5 from 0 to 1.5 000000");
    surface.Wedge({1, 1}, 5, 0.25, 1.5, kBlack);
    EXPECT_EQ(LastText(), "wedge (1, 1) radius 5 from 0.25 to 1.5 000000");
    surface.Polyline(std::vector<Point>{{1, 2}, {3, 4}}, kBlack);
    EXPECT_EQ(LastText(), "polyline (1, 2) (3, 4) 000000");
    surface.Polygon(std::vector<Point>{{1, 2}}, kBlack);
    EXPECT_EQ(LastText(), "polygon (1, 2) 000000");
    surface.SetPixel({7, 8}, kBlack);
    EXPECT_EQ(LastText(), "pixel (7, 8) 000000");
    surface.Markers({"2/3", {}}, kBlack, std::vector<Point>{{7, 8}});
    EXPECT_EQ(LastText(), "markers (7, 8) 000000 '2/3'");
    surface.Text({1, 2}, "n = 5");
    EXPECT_EQ(LastText(), "text (1, 2) 000000 'n = 5'");
}

TEST_F(Recording, TheTextTellsTheStateWhereItIsNotTheUsualOne) {
    DrawState state;
    state.drawMode = kDrawNotXor;
    state.drawWidth = 2;
    state.drawStyle = kDottedLine;
    state.fillStyle = kSolidFill;
    state.fillColour = {0, 255, 0};
    surface.SetState(state);
    surface.Line({0, 0}, {1, 1}, kBlack);
    EXPECT_EQ(LastText(), "line (0, 0) (1, 1) 000000 mode 10 width 2 style 2 fill 0 00ff00");
}

TEST_F(Recording, KeepsTheRingsOfAPath) {
    const std::vector<std::vector<Point>> rings = {{{0, 0}, {9, 0}, {9, 9}},
                                                   {{5, 1}, {6, 1}, {6, 2}}};
    surface.Path(rings, {1, 2, 3});
    ASSERT_EQ(surface.Operations().size(), 1U);
    EXPECT_EQ(surface.Operations()[0].kind, Kind::Path);
    EXPECT_EQ(surface.Operations()[0].rings, rings);
    EXPECT_EQ(LastText(), "path ring (0, 0) (9, 0) (9, 9) ring (5, 1) (6, 1) (6, 2) 010203");
}

TEST_F(Recording, AClipEndsWithItsBlock) {
    {
        const CircleClip outer(surface, {1, 2}, 1000);
        EXPECT_EQ(LastText(), "clip (1, 2) radius 1000");
        const CircleClip inner(surface, {3, 4}, 50);
        surface.SetPixel({7, 8}, kBlack);
    }
    ASSERT_EQ(surface.Operations().size(), 5U);
    EXPECT_EQ(OperationText(surface.Operations()[1]), "clip (3, 4) radius 50");
    EXPECT_EQ(surface.Operations()[3].kind, Kind::PopClip);
    EXPECT_EQ(LastText(), "unclip");
}

TEST_F(Recording, TheTextTellsOpacitiesAndWidthsInPoints) {
    DrawState state;
    state.drawWidth = 3;
    state.widthInPoints = 0.25;
    state.lineOpacity = 0.5;
    state.fillStyle = kSolidFill;
    state.fillOpacity = 0.75;
    surface.SetState(state);
    surface.Circle({0, 0}, 5, kBlack);
    EXPECT_EQ(LastText(), "circle (0, 0) radius 5 000000 width 0.25 pt line opacity 0.5 fill 0 "
                          "000000 fill opacity 0.75");
}

TEST_F(Recording, TheTextOfATextTellsItsFont) {
    DrawState state;
    state.font = {"Serif", 10, true, true, true};
    state.foreColour = {0, 0, 255};
    surface.SetState(state);
    surface.Text({0, 0}, "");
    EXPECT_EQ(LastText(), "text (0, 0) 0000ff font Serif points 10 bold italic underline ''");
}

TEST_F(Recording, NumbersAreRoundedToThousandthsWithoutANegativeNought) {
    surface.SetPixel({1.0 / 3, -0.0001}, kBlack);
    EXPECT_EQ(LastText(), "pixel (0.333, 0) 000000");
}

TEST_F(Recording, PixelsAreTheUserScaleOverTheSize) {
    EXPECT_EQ(surface.PixelSize(), (Point{1, 1})) << "until there is a scale";
    surface.SetUserScale(kPlotScale);
    EXPECT_EQ(surface.Scale(), kPlotScale);
    EXPECT_DOUBLE_EQ(surface.PixelSize().x, 2.2);
    EXPECT_DOUBLE_EQ(surface.PixelSize().y, 4.4);
    surface.SetSize(500, 500);
    EXPECT_DOUBLE_EQ(surface.PixelSize().x, 4.4);
    EXPECT_DOUBLE_EQ(surface.PixelSize().y, 4.4);
}

TEST_F(Recording, TextIsMeasuredByItsCharactersNotItsBytes) {
    DrawState state;
    state.font.points = 72;
    surface.SetState(state);
    EXPECT_DOUBLE_EQ(surface.TextHeight(), 96);
    EXPECT_DOUBLE_EQ(surface.TextWidth("abc"), 3 * 0.6 * 96);
    EXPECT_DOUBLE_EQ(surface.TextWidth("a\xc2\xb0\xe2\x82\xac"), 3 * 0.6 * 96)
        << "a, a degree sign, a euro sign";
    EXPECT_EQ(surface.TextWidth(""), 0);
    surface.SetUserScale({0, 0, 2000, -1000});
    EXPECT_DOUBLE_EQ(surface.TextWidth("abc"), 2 * 3 * 0.6 * 96);
}

TEST(RecordingForm, KeepsItsTextsAndSurfacesApart) {
    RecordingForm form;
    form.SetCaption("Plot 1");
    form.SetBoxText(PlotBox::Fabric, "S1");
    form.PlotSurface().SetPixel({1, 1}, kBlack);
    EXPECT_EQ(form.Caption(), "Plot 1");
    EXPECT_EQ(form.Told(PlotBox::Fabric), "S1");
    EXPECT_EQ(form.Told(PlotBox::Description), "");
    EXPECT_EQ(form.Plot().Operations().size(), 1U);
    EXPECT_TRUE(form.Legend().Operations().empty());
    form.PlotSurface().SetUserScale(kPlotScale);
    EXPECT_DOUBLE_EQ(form.Plot().PixelSize().x, 2.2);
    EXPECT_DOUBLE_EQ(form.Legend().PixelSize().y, 1);
    EXPECT_EQ(form.TimesShown(), 0);
    form.Show();
    EXPECT_EQ(form.TimesShown(), 1);
}

} // namespace
} // namespace quandrel
