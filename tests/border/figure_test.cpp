// SPDX-License-Identifier: MIT

#include "quandrel/figure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace quandrel::api {
namespace {

Plot Beds(PlotKind kind = PlotKind::kEqualArea) {
    Plot plot;
    plot.kind = kind;
    plot.fabric = "S0";
    plot.rows.planes = {{40, 120}, {38.4, 118}, {41, 125}, {36, 131}, {70, 300}};
    return plot;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

TEST(PublicFigure, DrawsItsLayersInTheirOrder) {
    Figure figure(Beds());
    figure.SetDensities({.choice = {.halfWidth = 15}});
    figure.SetLayers(std::vector<FigureLayer>{{.data = "net", .shown = "net"},
                                              {.data = "main", .shown = "bands"},
                                              {.data = "main", .shown = "symbols"}});
    const Result<std::string> svg = figure.Svg({});
    ASSERT_TRUE(svg);
    const std::size_t net = svg->find("<g id=\"net\"");
    const std::size_t legend = svg->find("<g id=\"legend\"");
    ASSERT_NE(net, std::string::npos);
    ASSERT_NE(legend, std::string::npos);
    EXPECT_LT(net, legend);
    EXPECT_NE(svg->find("multiples of uniform"), std::string::npos);
    EXPECT_NE(svg->find("84mm"), std::string::npos);
}

TEST(PublicFigure, KeepsItsLooksInAPlotFile) {
    Figure figure(Beds());
    figure.SetStyle("Grey");
    figure.SetRegions({.about = {RegionAbout::kGirdlePole}, .showsRefused = true});
    figure.SetDensities({.choice = {.method = DensityMethod::kKamb, .k = 2},
                         .levels = {2, 4.5},
                         .showsEnvelope = false,
                         .showsMaxima = true});
    const std::vector<FigureLayer> layers = {
        {.data = "net", .shown = "net"},
        {.data = "main",
         .shown = "symbols",
         .isHidden = true,
         .name = "beds",
         .colour = Colour{176, 32, 48},
         .opacity = 0.5,
         .symbol = 3,
         .size = 1.5},
        {.data = "main", .shown = "bands", .palette = 2, .steps = 5},
        {.data = "results", .shown = "regions", .width = 0.8, .line = Dash::kDotted}};
    figure.SetLayers(layers);
    const Result<std::string> bytes = figure.Bytes();
    ASSERT_TRUE(bytes);
    const Result<Figure> again = Figure::Read(*bytes);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->Style(), "Grey");
    EXPECT_EQ(again->Layers(), layers);
    EXPECT_EQ(*again->Svg({}), *figure.Svg({}));
    EXPECT_EQ(again->Rows()->rows.planes, Beds().rows.planes);
    EXPECT_FALSE(Figure::Read("a letter"));
}

TEST(PublicFigure, AddsOverlays) {
    Figure figure(Beds());
    PlotOverlay overlay{OverlayKind::kLines, {}};
    overlay.rows.lines = {{12, 31.5}, {15, 28}};
    figure.AddOverlay(overlay);
    const Result<Plot> rows = figure.Rows();
    ASSERT_EQ(rows->overlays.size(), 1U);
    EXPECT_EQ(rows->overlays[0].rows.lines, overlay.rows.lines);
    EXPECT_NE(figure.Svg({})->find("n = 2"), std::string::npos);
    EXPECT_THROW(figure.AddOverlay({}), std::invalid_argument);
    overlay.rows.lines = {{95, 31}};
    EXPECT_THROW(figure.AddOverlay(overlay), std::invalid_argument);
    EXPECT_EQ(figure.Rows()->overlays.size(), 1U) << "nothing of a refused overlay stays";
}

TEST(PublicFigure, DrawsRoses) {
    Figure figure(Beds(PlotKind::kRose));
    figure.SetRose({.sectorSize = 30});
    const std::string wide = *figure.Svg({});
    figure.SetRose({.sectorSize = 10});
    EXPECT_NE(*figure.Svg({}), wide);
    EXPECT_THROW(figure.SetLayers({}), std::invalid_argument);
    EXPECT_THROW(figure.SetRose({.sectorSize = 0}), std::invalid_argument);
}

TEST(PublicFigure, GivesTheSameOperations) {
    Figure figure(Beds());
    const Result<Figure::Picture> picture = figure.Operations({.width = 120});
    ASSERT_TRUE(picture);
    EXPECT_NEAR(picture->size.width, 120 * 96 / 25.4, 1e-9);
    const auto texts = std::ranges::count_if(picture->operations, [](const Operation& operation) {
        return operation.kind == Operation::Kind::kText;
    });
    EXPECT_EQ(static_cast<std::size_t>(texts), CountOf(*figure.Svg({.width = 120}), "<text"));
}

TEST(PublicFigure, RefusesWhatItCannotDraw) {
    Figure figure(Beds());
    const auto set = [&figure](const FigureLayer& layer) {
        figure.SetLayers(std::vector<FigureLayer>{layer});
    };
    EXPECT_THROW(set({.data = "beds", .shown = "symbols"}), std::invalid_argument);
    EXPECT_THROW(set({.data = "main", .shown = "stars"}), std::invalid_argument);
    EXPECT_THROW(set({.data = "overlay1", .shown = "symbols"}), std::invalid_argument);
    EXPECT_THROW(set({.data = "main", .shown = "symbols", .opacity = 2}), std::invalid_argument);
    EXPECT_THROW(figure.SetStyle("loud"), std::invalid_argument);
    EXPECT_THROW(figure.SetDensities({.choice = {}, .levels = {4, -1}}), std::invalid_argument);
    EXPECT_THROW(figure.SetRegions(
                     {.about = {RegionAbout::kPrincipalAxis}, .method = RegionMethod::kFisherCone}),
                 std::invalid_argument);
    EXPECT_THROW((void)figure.Svg({.width = 5}), std::invalid_argument);
    EXPECT_FALSE(figure.Svg({.width = 60, .height = 20})) << "there is no room for the net";
}

} // namespace
} // namespace quandrel::api
