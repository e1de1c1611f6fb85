// SPDX-License-Identifier: MIT
//
// The layers of plots, by their modes and by their own lists.

#include "drawing/layer_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quandrel {
namespace {

std::string Words(const std::vector<FigureLayer>& layers) {
    std::string words;
    for (const FigureLayer& layer : layers) {
        words += (words.empty() ? "" : ", ") + WordOfData(layer) + " "
                 + std::string(WordOfShow(layer.LayerShow));
    }
    return words;
}

const std::string kResults =
    ", results annotations, results meanarrow, results usergirdles, results girdles, "
    "results smallcircles, results regions, results axes";

TEST(LayerList, IsThatOfTheMode) {
    Plot plot;
    const auto words = [&plot](std::int16_t mode) {
        plot.record.PlotSymbolMode = mode;
        return Words(LayersOf(plot));
    };
    EXPECT_EQ(words(kPointSymbols), "net net, main symbols" + kResults);
    EXPECT_EQ(words(kGreatCircles), "net net, main greatcircles" + kResults);
    EXPECT_EQ(words(kBetaIntersections), "net net, main intersections" + kResults);
    EXPECT_EQ(words(kPointDensitySymbols),
              "net net, main bandsymbols, main densitymarks" + kResults);
    EXPECT_EQ(words(kContours), "net net, main contours, main densitymarks" + kResults);
    EXPECT_EQ(words(kContoursAndGrid),
              "net net, main gridsymbols, main contours, main densitymarks" + kResults);
    plot.record.ContourPicture = kLinesOverBands;
    EXPECT_EQ(words(kContours), "net net, main bands, main contours, main densitymarks" + kResults);
    plot.record.PlotKind = kRose;
    EXPECT_EQ(words(kContours), "");
}

TEST(LayerList, HasTheOverlaysAboveTheRows) {
    Plot plot;
    plot.record.OverlayRows[kOverlayCount] = 2;
    plot.record.OverlayKind[1] = kOverlayGreatCircles;
    plot.record.OverlayKind[2] = kOverlayPoles;
    EXPECT_EQ(Words(LayersOf(plot)),
              "net net, main symbols, overlay1 greatcircles, overlay2 symbols" + kResults);
}

TEST(LayerList, TakesALayerAboveRowsAndBelowResults) {
    Plot plot;
    plot.record.PlotSymbolMode = kContours;
    FigureLayer symbols;
    plot.record.Layers = WithToggledLayer(plot, symbols);
    EXPECT_EQ(Words(LayersOf(plot)),
              "net net, main contours, main densitymarks, main symbols" + kResults);
    EXPECT_EQ(Words(WithToggledLayer(plot, symbols)),
              "net net, main contours, main densitymarks" + kResults)
        << "a second time it is removed";
}

TEST(LayerList, IsReadByItsWords) {
    for (std::int16_t show = kShowSymbols; show <= kShowNet; ++show) {
        EXPECT_EQ(ShowOfWord(WordOfShow(show)), show);
    }
    for (const char* word :
         {"main", "secondary", "overlay7", "class12", "selection", "results", "net"}) {
        const auto data = DataOfWord(word);
        ASSERT_TRUE(data) << word;
        EXPECT_EQ(WordOfData(*data), word);
    }
    for (const char* word : {"", "overlay", "overlay0", "overlay1x", "mains", "overlay99999999"}) {
        EXPECT_FALSE(DataOfWord(word)) << word;
    }
    EXPECT_FALSE(ShowOfWord("pictures"));
}

} // namespace
} // namespace quandrel
