// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/settings_value.h"
#include "drawing/layer_list.h"
#include "drawing/plot_state.h"
#include "drawing/symbol_choice.h"
#include "edit/history/undo.h"
#include "edit/marks/plot_views.h"
#include "panels/layer_commands.h"
#include "panels/layer_tree.h"
#include "persistence/open_plot.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace quandrel {
namespace {

class LayerPanel : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 100);
        OpenPlotFile(kNewCommand, WriteFile("beds.txt", "30\t120\n45\t270\n60\t15\n"));
        OpenPlotFile(kOverlayCommand, WriteFile("joints.txt", "80\t10\n85\t100\n"));
        slot = gActivePlot;
    }

    [[nodiscard]] LayerTree Tree() const { return LayerTreeOf(PlotOf(slot), gSettings.styles); }

    [[nodiscard]] std::vector<FigureLayer> Layers() const { return LayersOf(PlotOf(slot)); }

    /// The place of the first layer of data shown in a way.
    [[nodiscard]] std::size_t PlaceOf(std::int16_t of, std::int16_t show) const {
        const std::vector<FigureLayer> layers = Layers();
        const auto found = std::ranges::find_if(layers, [&](const FigureLayer& layer) {
            return layer.LayerOf == of && layer.LayerShow == show;
        });
        return static_cast<std::size_t>(found - layers.begin());
    }

    [[nodiscard]] static FigureLayer Overlay(std::int16_t show = kShowSymbols) {
        FigureLayer layer;
        layer.LayerOf = kLayerOfOverlay;
        layer.LayerIndex = 1;
        layer.LayerShow = show;
        return layer;
    }

    int slot = 0;
};

TEST_F(LayerPanel, ListsTheLayersFromTheTopAndTheData) {
    const LayerTree tree = Tree();
    ASSERT_EQ(tree.layers.size(), Layers().size());
    EXPECT_EQ(tree.layers.back().name, "Net");
    EXPECT_EQ(tree.layers.back().place, 0U);
    EXPECT_EQ(tree.layers.front().place, Layers().size() - 1);
    const std::size_t place = PlaceOf(kLayerOfMainRows, kShowSymbols);
    const LayerLine& rows = tree.layers[Layers().size() - 1 - place];
    EXPECT_EQ(rows.name, "Symbols: beds.txt");
    EXPECT_EQ(rows.rows, 3);
    ASSERT_EQ(tree.data.size(), 3U) << "main rows, overlay, selection";
    EXPECT_TRUE(tree.data[0].isChosen);
    EXPECT_EQ(tree.data[1].rows, 2);
    EXPECT_FALSE(tree.data[1].isChosen);
}

TEST_F(LayerPanel, OfARoseIsEmpty) {
    ChangePlotKind(kRose);
    EXPECT_TRUE(Tree().layers.empty());
    EXPECT_TRUE(Tree().data.empty());
}

TEST_F(LayerPanel, HidesShowsAndNamesALayer) {
    const std::size_t place = PlaceOf(kLayerOfOverlay, kShowSymbols);
    ShowLayer(slot, place, false);
    EXPECT_EQ(Layers()[place].LayerHidden, kTrue);
    RenameLayer(slot, place, "Joints");
    EXPECT_EQ(Layers()[place].LayerName, "Joints");
    EXPECT_EQ(Tree().layers[Layers().size() - 1 - place].name, "Joints");
    ShowLayer(slot, place, true);
    EXPECT_EQ(Layers()[place].LayerHidden, 0);
    UndoLastEdit();
    UndoLastEdit();
    UndoLastEdit();
    EXPECT_TRUE(RecordOf(slot).Layers.empty()) << "the layers of the mode again";
}

TEST_F(LayerPanel, ShowsALayerAloneAndAllAgain) {
    const std::size_t place = PlaceOf(kLayerOfOverlay, kShowSymbols);
    ShowLayerAlone(slot, place);
    for (const FigureLayer& layer : Layers()) {
        const bool isShown = layer.LayerOf == kLayerOfNet || layer.LayerOf == kLayerOfOverlay;
        EXPECT_EQ(layer.LayerHidden == 0, isShown) << layer.LayerShow;
    }
    ShowLayerAlone(slot, place);
    EXPECT_TRUE(std::ranges::all_of(
        Layers(), [](const FigureLayer& layer) { return layer.LayerHidden == 0; }));
}

TEST_F(LayerPanel, MovesLayersBothWaysAndRemovesThem) {
    const std::vector<FigureLayer> before = Layers();
    MoveLayer(slot, 1, 3);
    EXPECT_EQ(Layers()[3], before[1]);
    EXPECT_EQ(Layers()[1], before[2]);
    EXPECT_EQ(Layers()[2], before[3]);
    MoveLayer(slot, 3, 1);
    EXPECT_EQ(Layers(), before);
    MoveLayer(slot, 1, before.size());
    EXPECT_EQ(Layers(), before) << "there is no such place";
    RemoveLayer(slot, 1);
    EXPECT_EQ(Layers().size(), before.size() - 1);
    while (Layers().size() > 1) {
        RemoveLayer(slot, 0);
    }
    RemoveLayer(slot, 0);
    ASSERT_EQ(Layers().size(), 1U) << "an empty list would be that of the mode";
    EXPECT_EQ(Layers()[0].LayerHidden, kTrue);
    UseLayersOfMode(slot);
    EXPECT_EQ(Layers(), before);
}

TEST_F(LayerPanel, AddsALayerOnce) {
    const std::size_t count = Layers().size();
    const std::size_t place = AddLayer(slot, Overlay(kShowContours));
    EXPECT_EQ(Layers().size(), count + 1);
    EXPECT_EQ(Layers()[place].LayerShow, kShowContours);
    EXPECT_EQ(AddLayer(slot, Overlay(kShowContours)), place);
    EXPECT_EQ(Layers().size(), count + 1);
}

TEST_F(LayerPanel, TheStepsOfAHeldControlAreUndoneTogether) {
    const std::size_t place = PlaceOf(kLayerOfMainRows, kShowSymbols);
    FigureLayer layer = Layers()[place];
    ChangeLayer(slot, place, layer);
    for (const double size : {1.5, 1.6, 1.7}) {
        layer.LayerSize = size;
        ChangeLayer(slot, place, layer, EditRun::Joins);
    }
    EXPECT_EQ(Layers()[place].LayerSize, 1.7);
    UndoLastEdit();
    EXPECT_EQ(Layers()[place].LayerSize, kAsStyle);
}

TEST_F(LayerPanel, MakesPropertiesThoseOfNewPlots) {
    gSettings.newPlots.style = ChoiceOfStandard(kJournalStyle);
    const std::size_t place = PlaceOf(kLayerOfMainRows, kShowSymbols);
    FigureLayer layer = Layers()[place];
    layer.LayerSize = 2.5;
    layer.LayerColour = 0x3020b0;
    ChangeLayer(slot, place, layer);
    UseLayerForNewPlots(slot, place);
    const FigureStyle style = *StyleOfChoice(gSettings.newPlots.style);
    EXPECT_EQ(style.symbols.size, 2.5);
    EXPECT_EQ(style.symbols.setColours.front(), (Colour{0xb0, 0x20, 0x30}));
    EXPECT_EQ(style.net, StandardStyle(kJournalStyle)->net);
}

TEST_F(LayerPanel, WritesTheRowsOfALayer) {
    const std::string path = (folder / "rows.txt").string();
    prompts.QueueSavePath(path);
    ExportRowsOfLayer(slot, PlaceOf(kLayerOfOverlay, kShowSymbols));
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(text.find("80\t10"), std::string::npos) << text;
    EXPECT_NE(text.find("85\t100"), std::string::npos) << text;
    EXPECT_EQ(text.find("45\t270"), std::string::npos) << text;
}

TEST_F(LayerPanel, TheButtonsActOnTheChosenData) {
    SetPlotSymbol(0);
    EXPECT_EQ(RecordOf(slot).PlotSymbolMode, kGreatCircles) << "main rows at first";
    EXPECT_TRUE(RecordOf(slot).Layers.empty());
    ChooseData(PlotOf(slot), Overlay());
    EXPECT_TRUE(Tree().data[1].isChosen);
    SetPlotSymbol(0);
    EXPECT_EQ(RecordOf(slot).OverlayKind[1], kOverlayGreatCircles);
    EXPECT_TRUE(RecordOf(slot).Layers.empty()) << "the form of the overlay says it";
    SetPlotSymbol(5);
    EXPECT_EQ(PlaceOf(kLayerOfOverlay, kShowGreatCircles), Layers().size());
    EXPECT_LT(PlaceOf(kLayerOfOverlay, kShowContours), Layers().size());
    EXPECT_LT(PlaceOf(kLayerOfMainRows, kShowGreatCircles), Layers().size());
    EXPECT_TRUE(AreDataShownBy(PlotOf(slot), Overlay(), 5));
    EXPECT_FALSE(AreDataShownBy(PlotOf(slot), Overlay(), 1));
}

TEST_F(LayerPanel, AButtonAddsAndRemovesAFurtherLayer) {
    const std::vector<FigureLayer> before = Layers();
    ToggleSymbolLayer(slot, 0);
    EXPECT_LT(PlaceOf(kLayerOfMainRows, kShowGreatCircles), Layers().size());
    EXPECT_LT(PlaceOf(kLayerOfMainRows, kShowSymbols), Layers().size());
    ToggleSymbolLayer(slot, 0);
    EXPECT_EQ(Layers(), before);
}

TEST_F(LayerPanel, DensitiesThatAreAddedLieBelowTheRows) {
    RecordDensityView view = RecordOf(slot);
    view.ContourPicture = kLinesOverBands;
    ChangeDensities(slot, view);
    ToggleSymbolLayer(slot, 5);
    const std::size_t bands = PlaceOf(kLayerOfMainRows, kShowBands);
    const std::size_t lines = PlaceOf(kLayerOfMainRows, kShowContours);
    EXPECT_LT(bands, lines);
    EXPECT_LT(lines, PlaceOf(kLayerOfMainRows, kShowSymbols));
    EXPECT_LT(lines, PlaceOf(kLayerOfOverlay, kShowSymbols));
}

TEST_F(LayerPanel, AButtonKeepsThePropertiesOfALayerThatStays) {
    const std::size_t place = PlaceOf(kLayerOfMainRows, kShowSymbols);
    FigureLayer layer = Layers()[place];
    layer.LayerName = "Poles to bedding";
    ChangeLayer(slot, place, layer);
    ToggleSymbolLayer(slot, 5);
    SetPlotSymbol(1);
    EXPECT_EQ(Layers()[PlaceOf(kLayerOfMainRows, kShowSymbols)].LayerName, "Poles to bedding");
    EXPECT_EQ(PlaceOf(kLayerOfMainRows, kShowContours), Layers().size());
}

TEST(LayerWays, HaveNamesAndProperties) {
    for (std::int16_t show = kShowSymbols; show <= kShowNet; ++show) {
        EXPECT_FALSE(NameOfWay(show).empty());
    }
    FigureLayer layer;
    EXPECT_TRUE(PropertiesOfLayer(layer).symbol);
    EXPECT_FALSE(PropertiesOfLayer(layer).bands);
    layer.LayerShow = kShowBands;
    EXPECT_TRUE(PropertiesOfLayer(layer).bands);
    EXPECT_FALSE(PropertiesOfLayer(layer).symbol);
}

} // namespace
} // namespace quandrel
