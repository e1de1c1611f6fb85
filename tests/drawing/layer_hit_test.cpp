// SPDX-License-Identifier: MIT
//
// Layers at points of a net and of its legend, and texts at their rows and lines.

#include "density/plot_density.h"
#include "drawing/hit_surface.h"
#include "drawing/layer_hit.h"
#include "drawing/legend.h"
#include "drawing/row_labels.h"
#include "drawing/shown_legend.h"
#include "layered_plot.h"
#include "orientation/projection.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <set>

namespace quandrel {
namespace {

constexpr double kReach = 15;

class LayerHitTest : public LayeredPlotTest {
protected:
    LayerHitTest() { net.SetUserScale(kPlotScale); }

    std::optional<std::size_t> At(const Plot& plot, Point at) {
        return LayerAt(plot, In(net), at, kReach);
    }

    RecordingSurface net{500, 500};
};

TEST_F(LayerHitTest, TellsTheUppermostLayerOfARow) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("net", kShowNet), LayerOf("main", kShowGreatCircles),
                          LayerOf("main", kShowPoles)};
    WorkOut(plot);
    const Point pole{static_cast<double>(plot.table.x[0]), static_cast<double>(plot.table.y[0])};
    EXPECT_EQ(At(plot, pole), 2U);
    plot.record.Layers[2].LayerHidden = 1;
    const auto below = At(plot, pole);
    EXPECT_TRUE(!below || *below < 2) << "a hidden layer is not there";
}

TEST_F(LayerHitTest, TellsTheGreatCircleThroughAPoint) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("net", kShowNet), LayerOf("main", kShowGreatCircles)};
    WorkOut(plot);
    // The steepest line of row 1 lies in its plane.
    Point on;
    ProjectPoint(plot.record.PlotKind, DegToRad(30), DegToRad(0), on.x, on.y);
    EXPECT_EQ(At(plot, on), 1U);
}

TEST_F(LayerHitTest, TellsTheRimAndNothingInABareNet) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("net", kShowNet)};
    WorkOut(plot);
    EXPECT_EQ(At(plot, {kNetRadius * std::cos(1.0), kNetRadius * std::sin(1.0)}), 0U);
    EXPECT_EQ(At(plot, {0, 0}), 0U) << "the centre cross";
    EXPECT_EQ(At(plot, {300, 500}), std::nullopt);
    const Point north{0, kNetRadius * 1.04 + 20};
    EXPECT_EQ(At(plot, north), 0U) << "the N";
    EXPECT_EQ(At(plot, {200, north.y}), std::nullopt);
    plot.record.Layers[0].LayerHidden = kTrue;
    EXPECT_EQ(At(plot, north), std::nullopt);
}

TEST_F(LayerHitTest, TellsABandAndItsNetOutsideOfIt) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("net", kShowNet), LayerOf("main", kShowBands)};
    WorkOut(plot);
    const FieldMaximum most = DensityOf(plot)->Greatest();
    Point at;
    ProjectPoint(plot.record.PlotKind, DegToRad(most.place.plunge), DegToRad(most.place.trend),
                 at.x, at.y);
    EXPECT_EQ(At(plot, at), 1U);
}

TEST_F(LayerHitTest, ARoseHasNoLayers) {
    Plot plot = Faults();
    plot.record.PlotKind = kRose;
    EXPECT_EQ(At(plot, {0, 0}), std::nullopt);
}

TEST_F(LayerHitTest, LinesOfTheLegendTellTheirLayers) {
    Plot plot = Faults();
    plot.record.Layers = {LayerOf("net", kShowNet), LayerOf("main", kShowBands),
                          LayerOf("main", kShowPoles), LayerOf("overlay1", kShowSymbols)};
    WorkOut(plot);
    const Drawing drawing = In(net);
    const ShownLegend legend = LegendShown(plot, drawing);
    ASSERT_FALSE(legend.lines.empty());
    ASSERT_EQ(legend.layers.size(), legend.lines.size());
    const double height =
        SizeOfLegend(plot, drawing).height / static_cast<double>(legend.lines.size());
    std::set<std::size_t> told;
    for (std::size_t line = 0; line < legend.lines.size(); ++line) {
        const auto place =
            LayerOfLegendAt(plot, drawing, {20, (static_cast<double>(line) + 0.5) * height});
        ASSERT_TRUE(place) << line;
        EXPECT_EQ(plot.record.Layers[*place].LayerShow, legend.layers[line].LayerShow);
        told.insert(*place);
    }
    EXPECT_EQ(told, (std::set<std::size_t>{1, 2, 3}));
    const double below = (static_cast<double>(legend.lines.size()) + 0.5) * height;
    EXPECT_EQ(LayerOfLegendAt(plot, drawing, {20, below}), std::nullopt);
    EXPECT_EQ(LayerOfLegendAt(plot, drawing, {-5, 5}), std::nullopt);
}

/// Whether an operation hits a point.
template <typename Draw>
bool Hits(Point at, const Draw& draw) {
    RecordingSurface like(100, 100);
    HitSurface surface(like, at, 2);
    draw(surface);
    return surface.IsHit();
}

TEST(HitSurface, TellsWhatCoversThePoint) {
    const std::array<Point, 3> triangle = {{{0, 0}, {10, 0}, {0, 10}}};
    const auto filled = [&](Colour colour) {
        return [&triangle, colour](Surface& surface) {
            DrawState state;
            state.drawStyle = kNoLine;
            state.fillStyle = kSolidFill;
            state.fillColour = colour;
            surface.SetState(state);
            surface.Polygon(triangle, kBlack);
        };
    };
    EXPECT_TRUE(Hits({2, 2}, filled({1, 2, 3})));
    EXPECT_FALSE(Hits({2, 2}, filled(kWhite))) << "paper";
    EXPECT_FALSE(Hits({8, 8}, filled({1, 2, 3})));
    const auto outlined = [&](Surface& surface) { surface.Polygon(triangle, kBlack); };
    EXPECT_TRUE(Hits({0, 5}, outlined)) << "the side that closes it";
    EXPECT_FALSE(Hits({3, 3}, outlined));
    const auto circle = [](Surface& surface) { surface.Circle({0, 0}, 30, kBlack); };
    EXPECT_TRUE(Hits({0, 31}, circle));
    EXPECT_FALSE(Hits({0, 0}, circle));
    const auto arc = [](Surface& surface) { surface.Arc({0, 0}, 30, 0, 1.5, kBlack); };
    EXPECT_TRUE(Hits({21, 21}, arc));
    EXPECT_FALSE(Hits({-21, 21}, arc));
}

TEST(HitSurface, APathWithAHoleIsOpenThere) {
    const auto ring = [](Surface& surface) {
        DrawState state;
        state.drawStyle = kNoLine;
        state.fillStyle = kSolidFill;
        surface.SetState(state);
        const std::vector<std::vector<Point>> rings = {{{0, 0}, {90, 0}, {90, 90}, {0, 90}},
                                                       {{30, 30}, {60, 30}, {60, 60}, {30, 60}}};
        surface.Path(rings, kBlack);
    };
    EXPECT_TRUE(Hits({10, 10}, ring));
    EXPECT_FALSE(Hits({45, 45}, ring));
}

TEST(HitSurface, NothingIsHitOutsideAClip) {
    const auto clipped = [](Surface& surface) {
        const CircleClip clip(surface, {0, 0}, 10);
        surface.Line({0, 0}, {40, 0}, kBlack);
    };
    EXPECT_TRUE(Hits({5, 0}, clipped));
    EXPECT_FALSE(Hits({20, 0}, clipped));
}

TEST(HitSurface, GivesTheStateBack) {
    RecordingSurface like(100, 100);
    const DrawState before = like.State();
    {
        HitSurface surface(like, {0, 0}, 1);
        DrawState state;
        state.drawWidth = 7;
        surface.SetState(state);
    }
    EXPECT_EQ(like.State(), before);
    EXPECT_TRUE(like.Operations().empty());
}

class LayerLabelsTest : public LayeredPlotTest {
protected:
    static std::vector<std::string> TextsIn(const GroupSurface& net, const std::string& group) {
        std::vector<std::string> texts;
        for (const DrawOperation& operation : net.operations.at(group)) {
            if (operation.kind == DrawOperation::Kind::Text) {
                texts.push_back(operation.text);
            }
        }
        return texts;
    }
};

TEST_F(LayerLabelsTest, RowsHaveTheirTextsOrNumbersWhereThereIsRoom) {
    FigureLayer layer = LayerOf("overlay1", kShowSymbols);
    EXPECT_TRUE(TextsIn(Drawn(With(layer)), "overlay-1").empty());
    layer.LayerLabels = 1;
    const std::vector<std::string> numbers = TextsIn(Drawn(With(layer)), "overlay-1");
    ASSERT_FALSE(numbers.empty());
    EXPECT_EQ(numbers.front(), std::to_string(kRows + 1)) << "the first row of the overlay";
    EXPECT_EQ(std::set(numbers.begin(), numbers.end()).size(), numbers.size());
}

TEST_F(LayerLabelsTest, TextsOfRowsDoNotOverlap) {
    FigureLayer layer = LayerOf("main", kShowPoles);
    layer.LayerLabels = 1;
    const GroupSurface net = Drawn(With(layer));
    std::vector<DrawOperation> texts;
    std::ranges::copy_if(
        net.operations.at("rows-poles"), std::back_inserter(texts),
        [](const DrawOperation& operation) { return operation.kind == DrawOperation::Kind::Text; });
    ASSERT_GT(texts.size(), 10U);
    GroupSurface rule;
    rule.SetUserScale(kPlotScale);
    rule.SetState(texts.front().state);
    const double height = rule.TextHeight();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const Point a = texts[i].points.front();
            const Point b = texts[j].points.front();
            const bool isApart = std::abs(a.y - b.y) >= height
                                 || a.x >= b.x + rule.TextWidth(texts[j].text)
                                 || b.x >= a.x + rule.TextWidth(texts[i].text);
            EXPECT_TRUE(isApart) << texts[i].text << " and " << texts[j].text;
        }
        const double right = texts[i].points.front().x + rule.TextWidth(texts[i].text);
        EXPECT_LE(right, kNetRadius) << texts[i].text;
    }
}

TEST_F(LayerLabelsTest, ContoursHaveTheirLevels) {
    FigureLayer layer = LayerOf("main", kShowContours);
    layer.LayerLabels = 1;
    const Plot plot = With(layer);
    const std::vector<std::string> texts = TextsIn(Drawn(plot), "contours");
    ASSERT_FALSE(texts.empty());
    const PlotDensity* const density = DensityOf(plot);
    ASSERT_NE(density, nullptr);
    for (const std::string& text : texts) {
        const double value = std::stod(text);
        EXPECT_TRUE(std::ranges::any_of(density->Levels(), [value](double level) {
            return std::abs(level - value) < 1e-9;
        })) << text;
    }
}

} // namespace
} // namespace quandrel
