// SPDX-License-Identifier: MIT
//
// The legend beside a plot, in the style of the plot.

#include "drawing/legend.h"
#include "drawing/shown_legend.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <memory>

namespace quandrel {
namespace {

class ShownLegendTest : public EngineTest {
protected:
    Plot Worked(std::int16_t mode) {
        Plot plot = SlotlessPlot(kEqualArea, mode, 7);
        plot.record.LayerVisible[kLegendLayer] = kTrue;
        WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, 20});
        return plot;
    }

    Drawing In(std::string_view style) {
        Drawing drawing{net, box, gSettings.styles, DrawnFor::Paper};
        drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(style));
        return drawing;
    }

    /// The texts that were drawn into the box since the last call.
    std::vector<std::string> Drawn() {
        std::vector<std::string> texts;
        for (; seen_ < box.Operations().size(); ++seen_) {
            if (box.Operations()[seen_].kind == DrawOperation::Kind::Text) {
                texts.push_back(box.Operations()[seen_].text);
            }
        }
        return texts;
    }

    RecordingSurface net{500, 500};
    RecordingSurface box{600, 700};

private:
    std::size_t seen_ = 0;
};

TEST_F(ShownLegendTest, IsThatOfTheTablesInClassic) {
    const Plot plot = Worked(kPointSymbols);
    const std::vector<LegendLine> tables = LegendLines(plot, gSettings.styles, Formulas::Own);
    const ShownLegend shown = LegendShown(plot, In(kClassicStyle));
    ASSERT_EQ(shown.lines.size(), tables.size());
    for (std::size_t i = 0; i < tables.size(); ++i) {
        EXPECT_EQ(shown.lines[i].text, tables[i].text);
    }
    EXPECT_TRUE(shown.signs.empty());
}

TEST_F(ShownLegendTest, ListsThePlotsOwnLayersInClassicToo) {
    Plot plot = Worked(kPointSymbols);
    FigureLayer layer;
    layer.LayerOf = kLayerOfOverlay;
    layer.LayerIndex = 1;
    plot.record.Layers = {layer};
    const ShownLegend shown = LegendShown(plot, In(kClassicStyle));
    ASSERT_EQ(shown.lines.size(), 1U);
    EXPECT_EQ(shown.lines[0].text, "Overlay 1, n = 5");
    EXPECT_EQ(shown.signs.size(), 1U);
}

TEST_F(ShownLegendTest, HasALineForEachEntryOfTheFigure) {
    const Plot plot = Worked(kPointSymbols);
    const FigureLegend figure = LegendOfFigure(plot, In(kScreenStyle));
    const ShownLegend shown = LegendShown(plot, In(kScreenStyle));
    ASSERT_EQ(shown.lines.size(), figure.entries.size());
    EXPECT_EQ(shown.lines[0].text, "Poles to planes, n = 60");
    EXPECT_EQ(shown.lines[0].sample, LegendSample::Figure);
    DrawLegend(plot, In(kScreenStyle));
    const std::vector<std::string> drawn = Drawn();
    ASSERT_EQ(drawn.size(), shown.lines.size());
    for (std::size_t i = 0; i < drawn.size(); ++i) {
        EXPECT_EQ(drawn[i], shown.lines[i].text);
    }
    const bool hasMarkers = std::ranges::any_of(box.Operations(), [](const DrawOperation& one) {
        return one.kind == DrawOperation::Kind::Markers;
    });
    EXPECT_TRUE(hasMarkers) << "the sign of the rows";
}

TEST_F(ShownLegendTest, HasALineForEachBandOfABar) {
    Plot plot = Worked(kContours);
    plot.record.ContourPicture = kLinesOverBands;
    plot.record.LevelRule = kLevelsByHand;
    plot.record.LevelsByHand = "2, 4, 8";
    plot.record.DensityMethod = kDensityByKambExponential;
    WorkOutPlot(plot, {ReplotCause::Rows, gSettings.styles, Formulas::Own, 20});
    const FigureLegend figure = LegendOfFigure(plot, In(kJournalStyle));
    ASSERT_EQ(figure.bars.size(), 1U);
    const FigureBar& bar = figure.bars.front();
    const ShownLegend shown = LegendShown(plot, In(kJournalStyle));
    ASSERT_EQ(shown.lines.size(), figure.entries.size() + 1 + bar.colours.size());
    const auto first = shown.lines.begin() + static_cast<std::ptrdiff_t>(figure.entries.size());
    EXPECT_EQ(first->text, bar.title);
    EXPECT_EQ((first + 1)->sample, LegendSample::Band);
    EXPECT_EQ((first + 1)->text, " " + bar.numbers[0] + " - " + bar.numbers[1]);
    EXPECT_EQ((first + 1)->band, bar.colours[0]);
    EXPECT_EQ(shown.lines.back().text, " > " + bar.numbers.back());
}

TEST_F(ShownLegendTest, NeedsTheRoomOfItsLines) {
    const Plot plot = Worked(kPointSymbols);
    const LegendSize screen = SizeOfLegend(plot, In(kScreenStyle));
    const LegendSize classic = SizeOfLegend(plot, In(kClassicStyle));
    const auto lines = static_cast<double>(LegendShown(plot, In(kScreenStyle)).lines.size());
    const auto tables = static_cast<double>(LegendShown(plot, In(kClassicStyle)).lines.size());
    EXPECT_NEAR(screen.height / classic.height, lines / tables, 1e-9);
    EXPECT_GT(screen.width, 0);
}

} // namespace
} // namespace quandrel
