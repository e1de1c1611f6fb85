// SPDX-License-Identifier: MIT

#include "drawing/figure_legend.h"
#include "drawing/figure_page.h"
#include "drawing/layer_list.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <memory>

namespace quandrel {
namespace {

class FigureLegendTest : public EngineTest {
protected:
    /// A plot whose results are worked out.
    Plot Worked(std::int16_t mode) {
        Plot plot = SlotlessPlot(kEqualArea, mode, 7);
        WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, 20});
        return plot;
    }

    Drawing Journal() {
        Drawing drawing{net, page, gSettings.styles, DrawnFor::Paper};
        drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(kJournalStyle));
        return drawing;
    }

    std::vector<std::string> Texts(const Plot& plot) {
        std::vector<std::string> texts;
        for (const FigureEntry& entry : LegendOfFigure(plot, Journal()).entries) {
            texts.push_back(entry.text);
        }
        return texts;
    }

    RecordingSurface net{500, 500};
    RecordingSurface page{500, 700};
};

bool Has(const std::vector<std::string>& texts, const std::string& wanted) {
    return std::ranges::find(texts, wanted) != texts.end();
}

TEST_F(FigureLegendTest, NamesRowsOverlaysAndAxesWithTheirNumbers) {
    const Plot plot = Worked(kPointSymbols);
    const std::vector<std::string> texts = Texts(plot);
    ASSERT_GE(texts.size(), 4U);
    EXPECT_EQ(texts[0], "Poles to planes, n = 60");
    EXPECT_EQ(texts[1], "Overlay 1, n = 5");
    EXPECT_TRUE(texts[2].starts_with("Girdle ")) << texts[2];
    EXPECT_TRUE(texts.back().starts_with("Principal axis ")) << texts.back();
}

TEST_F(FigureLegendTest, SaysTheFabricThatThePlotHas) {
    Plot plot = Worked(kPointSymbols);
    plot.record.FabricText = "foliation";
    EXPECT_TRUE(Has(Texts(plot), "Poles to foliation, n = 60"));
    plot.record.PlotSymbolMode = kGreatCircles;
    EXPECT_TRUE(Has(Texts(plot), "foliation, n = 60"));
}

TEST_F(FigureLegendTest, LeavesOutWhatIsHidden) {
    Plot plot = Worked(kPointSymbols);
    plot.record.Layers = LayersOfMode(plot);
    for (FigureLayer& layer : plot.record.Layers) {
        layer.LayerHidden = layer.LayerOf == kLayerOfOverlay ? 0 : kTrue;
    }
    EXPECT_EQ(Texts(plot), std::vector<std::string>{"Overlay 1, n = 5"});
}

TEST_F(FigureLegendTest, TakesTheNameOfALayer) {
    Plot plot = Worked(kPointSymbols);
    plot.record.Layers = LayersOfMode(plot);
    plot.record.Layers[1].LayerName = "Bedding";
    EXPECT_EQ(Texts(plot)[0], "Bedding, n = 60");
}

TEST_F(FigureLegendTest, ShowsFilledDensitiesAsABar) {
    Plot plot = SlotlessPlot(kEqualArea, kContours, 7);
    plot.record.DensityMethod = kDensityByKernel;
    plot.record.DensityUnit = kMultiplesUnit;
    plot.record.LevelRule = kEvenLevels;
    plot.record.ContourPicture = kLinesOverBands;
    WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, 20});
    const FigureLegend legend = LegendOfFigure(plot, Journal());
    ASSERT_EQ(legend.bars.size(), 1U);
    const FigureBar& bar = legend.bars.front();
    EXPECT_FALSE(bar.colours.empty());
    EXPECT_EQ(bar.colours.size(), bar.numbers.size());
    EXPECT_TRUE(bar.title.starts_with("multiples of uniform, max ")) << bar.title;
}

TEST_F(FigureLegendTest, PageHasTheWidthAndTheNetTheDiameter) {
    const Plot plot = Worked(kPointSymbols);
    for (const LegendPlace place : {LegendPlace::Right, LegendPlace::Below, LegendPlace::None}) {
        const Result<FigureLayout> wide = LayOutFigure(plot, Journal(), {kPageWidth, 0, place});
        ASSERT_TRUE(wide) << wide.Error();
        EXPECT_DOUBLE_EQ(wide->width, kPageWidth);
        EXPECT_EQ(wide->entries.empty(), place == LegendPlace::None);
        const Result<FigureLayout> net60 = LayOutFigure(plot, Journal(), {0, 60, place});
        ASSERT_TRUE(net60) << net60.Error();
        EXPECT_NEAR(net60->net.width, 66, 1e-9) << "the square reaches a tenth beyond the net";
    }
    EXPECT_FALSE(LayOutFigure(plot, Journal(), {30, 60, LegendPlace::Below})) << "too narrow";
}

TEST_F(FigureLegendTest, SlideHasItsHeightAndAllThatItShowsOnIt) {
    const Plot plot = Worked(kPointSymbols);
    for (const LegendPlace place : {LegendPlace::Right, LegendPlace::Below, LegendPlace::None}) {
        for (const double diameter : {0.0, 60.0}) {
            const Result<FigureLayout> slide =
                LayOutFigureOnPage(plot, Journal(), {kSlideWidth, diameter, place}, kSlideHeight);
            ASSERT_TRUE(slide) << slide.Error();
            EXPECT_DOUBLE_EQ(slide->width, kSlideWidth);
            EXPECT_NEAR(slide->height, kSlideHeight, 1e-9);
            const double netDiameter = slide->net.width / 1.1;
            const double netMiddle = slide->net.top + slide->net.height / 2;
            if (diameter > 0) {
                EXPECT_NEAR(netDiameter, diameter, 1e-9);
            } else {
                EXPECT_GT(netDiameter, 100) << "as large as the height allows";
            }
            EXPECT_GE(netMiddle - netDiameter / 2, kFigureMargin);
            EXPECT_LE(netMiddle + netDiameter / 2, kSlideHeight - kFigureMargin);
            EXPECT_EQ(slide->entries.empty(), place == LegendPlace::None);
            for (const PlacedEntry& entry : slide->entries) {
                EXPECT_GE(entry.box.top, kFigureMargin - 1e-9);
                EXPECT_LE(entry.box.top + entry.box.height, kSlideHeight - kFigureMargin + 1e-9);
            }
        }
    }
    EXPECT_EQ(
        LayOutFigureOnPage(plot, Journal(), {kSlideWidth, 200, LegendPlace::Right}, kSlideHeight)
            .Error(),
        "the page is too low for the net and its legend");
}

} // namespace
} // namespace quandrel
