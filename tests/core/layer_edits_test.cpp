// SPDX-License-Identifier: MIT

#include "core/layer_edits.h"
#include "core/plot_rows.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

FigureLayer Layer(std::int16_t of, std::int16_t index = 0, std::int16_t show = kShowSymbols) {
    FigureLayer layer;
    layer.LayerOf = of;
    layer.LayerIndex = index;
    layer.LayerShow = show;
    return layer;
}

TEST(LayerEdits, RowsLieBelowResultsAndResultsOnTop) {
    std::vector<FigureLayer> layers = {Layer(kLayerOfNet, 0, kShowNet),
                                       Layer(kLayerOfResults, 0, kShowAxes)};
    AddInOrder(layers, Layer(kLayerOfMainRows));
    AddInOrder(layers, Layer(kLayerOfResults, 0, kShowRegions));
    EXPECT_EQ(layers, (std::vector{Layer(kLayerOfNet, 0, kShowNet), Layer(kLayerOfMainRows),
                                   Layer(kLayerOfResults, 0, kShowAxes),
                                   Layer(kLayerOfResults, 0, kShowRegions)}));
}

TEST(LayerEdits, OverlaysComeAndGoWithTheirLayers) {
    PlotRecord record;
    record.Layers = {Layer(kLayerOfNet, 0, kShowNet), Layer(kLayerOfMainRows)};
    EXPECT_EQ(OpenOverlay(record, kOverlayLines), 1);
    EXPECT_EQ(OpenOverlay(record, kOverlayLines), 2);
    EXPECT_EQ(record.Layers.back(), Layer(kLayerOfOverlay, 2));
    record.Layers.push_back(Layer(kLayerOfOverlay, 1, kShowGreatCircles));
    CloseOverlay(record, 1);
    EXPECT_EQ(record.Layers, (std::vector{Layer(kLayerOfNet, 0, kShowNet), Layer(kLayerOfMainRows),
                                          Layer(kLayerOfOverlay, 1)}))
        << "the second overlay is the first one now";
    CloseOverlay(record, 1);
    EXPECT_EQ(record.Layers.size(), 2U);
}

TEST(LayerEdits, APlotInTheLayersOfItsModeStaysThere) {
    PlotRecord record;
    OpenOverlay(record, kOverlayLines);
    EXPECT_TRUE(record.Layers.empty());
    CloseOverlay(record, 1);
    EXPECT_TRUE(record.Layers.empty());
}

TEST(LayerEdits, TheLastLayerStaysAndIsHidden) {
    std::vector<FigureLayer> layers = {Layer(kLayerOfOverlay, 1),
                                       Layer(kLayerOfOverlay, 1, kShowGreatCircles)};
    TakeOverlayOut(layers, 1);
    ASSERT_EQ(layers.size(), 1U);
    EXPECT_EQ(layers.front().LayerHidden, kTrue) << "it must not show the next overlay";
}

TEST(LayerEdits, AnOverlayThatIsGivenUpLeavesNoLayer) {
    Plot plot;
    plot.record.Layers = {Layer(kLayerOfNet, 0, kShowNet), Layer(kLayerOfMainRows)};
    OpenOverlay(plot.record, kOverlayLines);
    const std::vector<FigureLayer> before = plot.record.Layers;
    const RowCounts former = CountsOf(plot.record);
    OpenOverlay(plot.record, kOverlayLines);
    CutRows(plot, former);
    EXPECT_EQ(plot.record.Layers, before);
    ClearRows(plot);
    EXPECT_EQ(plot.record.Layers.size(), 2U);
}

TEST(LayerEdits, AFullListTakesNoMore) {
    std::vector<FigureLayer> layers(kMostLayers, Layer(kLayerOfMainRows));
    TakeOverlayIn(layers, 1);
    EXPECT_EQ(layers.size(), kMostLayers);
}

} // namespace
} // namespace quandrel
