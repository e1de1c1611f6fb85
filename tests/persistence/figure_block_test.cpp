// SPDX-License-Identifier: MIT
//
// Styles and layers in plot files.

#include "persistence/figure_block.h"

#include <gtest/gtest.h>

#include <string>

namespace quandrel {
namespace {

RecordFigure Sample() {
    RecordFigure figure;
    figure.StyleName = "Thesis";
    figure.StyleText = R"({"name": "Thesis"})";
    FigureLayer net;
    net.LayerOf = kLayerOfNet;
    net.LayerShow = kShowNet;
    FigureLayer rows;
    rows.LayerOf = kLayerOfOverlay;
    rows.LayerIndex = 2;
    rows.LayerShow = kShowGreatCircles;
    rows.LayerHidden = kTrue;
    rows.LayerName = "Clivage \xc3\xa0 l'est";
    rows.LayerColour = 0x3020b0;
    rows.LayerOpacity = 0.25;
    rows.LayerSymbol = 3;
    rows.LayerSize = 1.5;
    rows.LayerHalo = 0.25;
    rows.LayerWidth = 0.75;
    rows.LayerLine = 2;
    rows.LayerFill = 1;
    rows.LayerPalette = 2;
    rows.LayerSteps = 6;
    rows.LayerLabels = 0;
    figure.Layers = {net, rows};
    figure.RoseNames = {{kRosePetals, 0,
                         "Bruchfl\xc3\xa4"
                         "chen"},
                        {kRoseClass, 12, "Veins"}};
    return figure;
}

std::string BytesOf(const RecordFigure& figure) {
    BinaryWriter writer;
    WriteFigure(figure, writer);
    EXPECT_EQ(writer.Error(), "");
    return writer.Bytes();
}

TEST(FigureBlock, ReturnsAsItWas) {
    EXPECT_EQ(FigureOfBlock(BytesOf(Sample())), Sample());
    EXPECT_EQ(FigureOfBlock(BytesOf(RecordFigure())), RecordFigure());
}

TEST(FigureBlock, WithoutNamesOfEntriesIsThatOfEarlierVersions) {
    RecordFigure figure = Sample();
    figure.RoseNames.clear();
    const std::string earlier = BytesOf(figure);
    EXPECT_TRUE(BytesOf(Sample()).starts_with(earlier));
    EXPECT_EQ(FigureOfBlock(earlier), figure);
    figure.RoseNames = {{kRoseWeights + 1, 0, "no such entry"}};
    EXPECT_FALSE(FigureOfBlock(BytesOf(figure)));
    figure.RoseNames = {{kRosePetals, 0, ""}};
    EXPECT_FALSE(FigureOfBlock(BytesOf(figure)));
}

TEST(FigureBlock, IsNothingWhenItIsCutAnywhere) {
    const std::string bytes = BytesOf(Sample());
    RecordFigure unnamed = Sample();
    unnamed.RoseNames.clear();
    const std::size_t whole = BytesOf(unnamed).size(); // a block of an earlier version
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        if (length == whole) {
            continue;
        }
        EXPECT_FALSE(FigureOfBlock(std::string_view(bytes).substr(0, length))) << length;
    }
}

TEST(FigureBlock, IsNothingBeyondItsLimits) {
    RecordFigure figure = Sample();
    figure.Layers[1].LayerSteps = 0;
    EXPECT_FALSE(FigureOfBlock(BytesOf(figure)));
    figure = Sample();
    figure.Layers[1].LayerOpacity = 1.5;
    EXPECT_FALSE(FigureOfBlock(BytesOf(figure)));
    figure = Sample();
    figure.Layers[1].LayerShow = kShowNet + 1;
    EXPECT_FALSE(FigureOfBlock(BytesOf(figure)));
    figure = Sample();
    figure.Layers.resize(kMostLayers + 1);
    EXPECT_FALSE(FigureOfBlock(BytesOf(figure)));
}

} // namespace
} // namespace quandrel
