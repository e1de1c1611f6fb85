// SPDX-License-Identifier: MIT

#include "svg/svg_surface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quandrel {
namespace {

/// A surface of 220 by 220 units in the scale of a plot, with a corner at (30, 10) of a document of
/// points: ten plot units a point.
class PlotInPoints : public ::testing::Test {
protected:
    PlotInPoints() { surface.SetUserScale(kPlotScale); }

    [[nodiscard]] bool Holds(const std::string& text) const {
        return writer.Document().find(text) != std::string::npos;
    }

    [[nodiscard]] std::size_t CountOf(const std::string& part) const {
        const std::string text = writer.Document();
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos;
             at = text.find(part, at + 1)) {
            ++count;
        }
        return count;
    }

    SvgWriter writer{300, 250, 0.75};
    SvgSurface surface{writer, {30, 10, 220, 220}};
};

using SvgSurfaceTest = PlotInPoints;

TEST_F(SvgSurfaceTest, MapsUserUnitsToItsArea) {
    EXPECT_EQ(surface.PixelSize(), (Point{7.5, 7.5})) << "a pixel is three quarters of a point";
    surface.Line({-1100, 1100}, {1100, -1100}, kBlack);
    EXPECT_TRUE(Holds("<path d=\"M30 10L250 230\"/>")) << writer.Document();
    surface.Circle({0, 0}, 1000, kBlack);
    EXPECT_TRUE(Holds("<circle cx=\"140\" cy=\"120\" r=\"100\"/>"));
    surface.Box({100, 200}, {-100, 0}, kBlack);
    EXPECT_TRUE(Holds("<rect x=\"130\" y=\"100\" width=\"20\" height=\"20\"/>"));
    const SvgSurface fresh(writer, {30, 10, 220, 220});
    EXPECT_NEAR(fresh.Scale().right, 220 / 0.75, 1e-9) << "logical pixels at first";
    EXPECT_NEAR(fresh.PixelSize().y, 1, 1e-12);
}

TEST_F(SvgSurfaceTest, ArcsRunAgainstTheClock) {
    surface.Arc({0, 0}, 1000, 0, 1.5707963267948966, kBlack);
    EXPECT_TRUE(Holds("<path d=\"M240 120A100 100 0 0 0 140 20\"/>")) << writer.Document();
    surface.Wedge({0, 0}, 1000, 3.14159265358979, 4.71238898038469, kBlack);
    EXPECT_TRUE(Holds("<path d=\"M40 120A100 100 0 0 0 140 220L140 120Z\"/>"));
    surface.Arc({0, 0}, 500, 1, 1, kBlack);
    EXPECT_EQ(CountOf("A50 50"), 4U) << "an end at the start is a turn further";
}

TEST_F(SvgSurfaceTest, ClosedShapesHaveTheFillOfTheState) {
    DrawState state;
    state.fillStyle = kSolidFill;
    state.fillColour = {255, 128, 0};
    state.fillOpacity = 0.5;
    state.lineOpacity = 0.25;
    state.widthInPoints = 0.35;
    state.drawWidth = 7;
    surface.SetState(state);
    surface.Path(std::vector<std::vector<Point>>{{{0, 0}, {500, 0}, {0, 500}},
                                                 {{100, 100}, {200, 100}, {100, 200}}},
                 kBlack);
    EXPECT_TRUE(Holds("<g fill=\"#ff8000\" fill-opacity=\"0.5\" stroke=\"#000000\" "
                      "stroke-opacity=\"0.25\" stroke-width=\"0.35\" stroke-linecap=\"round\">\n"
                      "<path fill-rule=\"evenodd\" d=\"M140 120L190 120L140 70Z"
                      "M150 110L160 110L150 100Z\"/>\n"))
        << writer.Document();
    surface.Polyline(std::vector<Point>{{0, 0}, {100, 0}}, kBlack);
    EXPECT_EQ(CountOf("<g fill=\"none\""), 1U) << "open lines have none";
    state.fillStyle = kUpwardHatch;
    surface.SetState(state);
    surface.Polygon(std::vector<Point>{{0, 0}, {100, 0}, {0, 100}}, kBlack);
    EXPECT_TRUE(Holds("fill=\"url(#hatch4-ff8000-30_10)\" fill-opacity=\"0.5\""));
    surface.FilledBox({0, 0}, {100, 100}, {1, 2, 3});
    EXPECT_TRUE(Holds("fill=\"#010203\" fill-opacity=\"0.5\""));
}

TEST_F(SvgSurfaceTest, WidthsOfPixelsAreNeverBelowAQuarter) {
    DrawState state;
    state.drawWidth = 0;
    surface.SetState(state);
    surface.Line({0, 0}, {100, 0}, kBlack);
    EXPECT_TRUE(Holds("stroke-width=\"0.188\"")) << "a quarter of 0.75 points";
    state.widthInPoints = 0.1;
    surface.SetState(state);
    surface.Line({0, 0}, {100, 0}, kBlack);
    EXPECT_TRUE(Holds("stroke-width=\"0.1\"")) << "points are exact";
}

TEST_F(SvgSurfaceTest, MarksThatAreToggledArePlainLines) {
    DrawState state;
    state.drawMode = kDrawNotXor;
    state.lineOpacity = 0.5;
    surface.SetState(state);
    surface.Line({0, 0}, {100, 0}, {255, 0, 0});
    EXPECT_TRUE(Holds("<g fill=\"none\" stroke=\"#ff0000\" stroke-width=\"0.75\""));
}

TEST_F(SvgSurfaceTest, MarkersAreSymbolsAtTheirPlaces) {
    const Glyph glyph{"all",
                      {{GlyphPart::Kind::Circle, GlyphPart::Ink::White, {{0, 0}}, 30},
                       {GlyphPart::Kind::Polyline, GlyphPart::Ink::Filled, {{-10, 0}, {10, 20}}, 0},
                       {GlyphPart::Kind::Polygon, GlyphPart::Ink::Filled, {{0, 0}, {9, 0}}, 0},
                       {GlyphPart::Kind::Pixel, GlyphPart::Ink::Outline, {{0, 0}}, 0}}};
    std::vector<Point> places(50, Point{0, 0});
    places.insert(places.end(), 50, Point{1, 0});
    surface.Markers(glyph, {255, 0, 0}, places);
    EXPECT_EQ(CountOf("<use "), 2U) << "rows at one place are drawn once";
    EXPECT_TRUE(Holds("x=\"140\" y=\"120\"/>"));
    EXPECT_TRUE(Holds("x=\"140.1\" y=\"120\"/>"));
    EXPECT_TRUE(Holds("<circle cx=\"0\" cy=\"0\" r=\"3\" fill=\"#ffffff\" stroke=\"#ff0000\" "
                      "stroke-width=\"0.75\" stroke-linecap=\"square\"/>"
                      "<path d=\"M-1 0L1 -2\" fill=\"none\" stroke=\"#ff0000\""))
        << writer.Document();
    EXPECT_TRUE(Holds("<path d=\"M0 0L0.9 0Z\" fill=\"#ff0000\" stroke"));
    EXPECT_TRUE(Holds("<rect x=\"-0.375\" y=\"-0.375\" width=\"0.75\" height=\"0.75\" "
                      "fill=\"#ff0000\"/>"));
    surface.Markers(glyph, {255, 0, 0}, places);
    EXPECT_EQ(CountOf("<rect"), 1U) << "defined once";
    DrawState state;
    state.fillOpacity = 0.5;
    surface.SetState(state);
    surface.Markers(glyph, {255, 0, 0}, places);
    EXPECT_EQ(CountOf("<use "), 104U) << "translucent ones add up";
}

TEST_F(SvgSurfaceTest, TextsHangFromTheirPlace) {
    DrawState state;
    state.font = {"", 10, false, false, false};
    surface.SetState(state);
    surface.Text({-1000, 0}, "045 <Bedding>");
    // The base is the ascent of 1854/2048 of ten points below.
    EXPECT_TRUE(Holds("font-size=\"10\">\n<text x=\"40\" y=\"129.053\">045 &lt;Bedding&gt;</text>"))
        << writer.Document();
    EXPECT_NEAR(surface.TextWidth("045"), 3 * 0.556 * 100, 0.1) << "ten units a point";
    EXPECT_NEAR(surface.TextHeight(), (1854 + 434) / 2048.0 * 100, 1e-9);
    state.font.bold = true;
    surface.SetState(state);
    EXPECT_NEAR(surface.TextWidth("L"), 61.1, 0.1);
}

TEST_F(SvgSurfaceTest, ClipsAreInUnitsOfTheDocument) {
    {
        const CircleClip clip(surface, {0, 0}, 1000);
        surface.SetPixel({0, 0}, kBlack);
    }
    surface.Line({0, 0}, {100, 0}, kBlack);
    EXPECT_TRUE(
        Holds("<clipPath id=\"clip140_120_100\"><circle cx=\"140\" cy=\"120\" r=\"100\"/>"));
    EXPECT_TRUE(Holds("<g clip-path=\"url(#clip140_120_100)\">\n<g fill=\"#000000\">\n"
                      "<rect x=\"139.625\" y=\"119.625\" width=\"0.75\" height=\"0.75\"/>\n"
                      "</g>\n</g>\n<g fill=\"none\""))
        << writer.Document();
}

TEST_F(SvgSurfaceTest, SurfacesShareADocument) {
    SvgSurface legend(writer, {250, 10, 50, 100});
    {
        const NamedGroup group(surface, "rows", "Beds");
        surface.Line({0, 0}, {100, 0}, kBlack);
    }
    const NamedGroup group(legend, "legend", "Legend");
    legend.Clear(kWhite);
    EXPECT_TRUE(Holds("</g>\n</g>\n<g id=\"legend\">\n<title>Legend</title>\n<g fill=\"#ffffff\">\n"
                      "<rect x=\"250\" y=\"10\" width=\"50\" height=\"100\"/>"))
        << writer.Document();
}

} // namespace
} // namespace quandrel
