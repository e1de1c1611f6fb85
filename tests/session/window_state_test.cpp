// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "drawing/plot_state.h"
#include "drawing/symbol_choice.h"
#include "session/window_state.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

/// The numbers of the buttons that can be used.
template <std::size_t Count>
std::vector<int> Enabled(const std::array<ControlState, Count>& buttons) {
    std::vector<int> enabled;
    for (std::size_t i = 0; i < Count; ++i) {
        if (buttons[i].enabled) {
            enabled.push_back(static_cast<int>(i));
        }
    }
    return enabled;
}

template <std::size_t Count>
std::vector<int> Down(const std::array<ControlState, Count>& buttons) {
    std::vector<int> down;
    for (std::size_t i = 0; i < Count; ++i) {
        if (buttons[i].down) {
            down.push_back(static_cast<int>(i));
        }
    }
    return down;
}

using Numbers = std::vector<int>;

class Toolbar : public EngineTest {
protected:
    PlotRecord& PlotWithRows() {
        NewPlot();
        AddRow(30, 120);
        AddRow(60, 200);
        return ActiveRecord();
    }
};

TEST_F(Toolbar, WithoutAPlotTheTypesAreThoseOfTheNextOne) {
    const ToolbarState state = StateOfToolbar();
    EXPECT_EQ(Enabled(state.plotTypes), (Numbers{0, 1, 2}));
    EXPECT_EQ(Down(state.plotTypes), Numbers{0});
    EXPECT_EQ(Enabled(state.dataTypes), (Numbers{0, 1, 2}));
    EXPECT_EQ(Enabled(state.symbols), Numbers{});
    EXPECT_EQ(Enabled(state.display), Numbers{});
    EXPECT_FALSE(state.hasPlot);
    EXPECT_EQ(state.useDecimals, ControlState());
    EXPECT_EQ(Enabled(state.formulas), Numbers{});
    EXPECT_EQ(Down(state.formulas), Numbers{});
    PressPlotType(1);
    PressDataType(2);
    EXPECT_EQ(gPlotKind, kEqualAngle);
    EXPECT_EQ(gPlotDataKind, kPolarLines);
    EXPECT_EQ(Down(StateOfToolbar().plotTypes), Numbers{1});
    EXPECT_EQ(Down(StateOfToolbar().dataTypes), Numbers{2});
}

TEST_F(Toolbar, TheTypesOfAPlotAreDown) {
    PlotRecord& record = PlotWithRows();
    record.PlotKind = kEqualAngle;
    record.DataKind = kLines;
    EXPECT_EQ(Down(StateOfToolbar().plotTypes), Numbers{1});
    EXPECT_EQ(Down(StateOfToolbar().dataTypes), Numbers{1});
}

TEST_F(Toolbar, DirectionsAreNoPlanes) {
    PlotWithRows().PrimaryFormat = kDirections;
    EXPECT_EQ(Enabled(StateOfToolbar().dataTypes), (Numbers{1, 2}));
}

TEST_F(Toolbar, APlotWithRowsOffersAllSymbols) {
    PlotWithRows();
    EXPECT_EQ(Enabled(StateOfToolbar().symbols), (Numbers{0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(Toolbar, DecimalsCanBeSwitchedInEachPlot) {
    PlotRecord& record = PlotWithRows();
    EXPECT_EQ(StateOfToolbar().useDecimals, (ControlState{true, false}));
    record.UseDecimals = kTrue;
    EXPECT_EQ(StateOfToolbar().useDecimals, (ControlState{true, true}));
    record.PlotKind = kRose;
    EXPECT_EQ(StateOfToolbar().useDecimals, (ControlState{true, true}));
}

TEST_F(Toolbar, OneChoiceOfFormulasIsDown) {
    PlotRecord& record = PlotWithRows();
    for (const std::int16_t choice : {kFormulasOfPreferences, kOwnFormulas, kTextbookFormulas}) {
        record.PlotFormulas = choice;
        EXPECT_EQ(Enabled(StateOfToolbar().formulas), (Numbers{0, 1, 2}));
        EXPECT_EQ(Down(StateOfToolbar().formulas), Numbers{choice});
    }
    gSettings.notation.formulas = Formulas::Textbook;
    record.PlotFormulas = kFormulasOfPreferences;
    EXPECT_EQ(Down(StateOfToolbar().formulas), Numbers{0}) << "the choice, not what it results in";
}

TEST_F(Toolbar, EachModeHasItsButton) {
    PlotRecord& record = PlotWithRows();
    const int buttonOfMode[] = {0, 1, 1, 2, 3, 4, 5, 6}; // mode 2 has none of its own
    for (std::int16_t mode = 0; mode <= kContoursAndGrid; ++mode) {
        record.PlotSymbolMode = mode;
        EXPECT_EQ(Down(StateOfToolbar().symbols), Numbers{buttonOfMode[mode]}) << mode;
    }
}

TEST_F(Toolbar, AnEmptyPlotAndARoseHaveNoSymbolButtons) {
    NewPlot();
    EXPECT_EQ(Enabled(StateOfToolbar().symbols), Numbers{});
    AddRow(30, 120);
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(Enabled(StateOfToolbar().symbols), Numbers{});
    EXPECT_FALSE(StateOfToolbar().isStereo);
}

TEST_F(Toolbar, TheSymbolButtonsAreThoseOfTheChosenData) {
    PlotWithRows();
    AddOverlay(kOverlayGreatCircles, 10, 20, CodeOfStyleRow(2));
    EXPECT_EQ(Down(StateOfToolbar().symbols), Numbers{1}) << "main rows as points";
    EXPECT_EQ(CaptionsOfMenus().greatCircles, "Great C&ircles");
    FigureLayer overlay;
    overlay.LayerOf = kLayerOfOverlay;
    overlay.LayerIndex = 1;
    ChooseData(ActivePlot(), overlay);
    EXPECT_EQ(Enabled(StateOfToolbar().symbols), (Numbers{0, 1, 2, 4, 5, 6}))
        << "symbols by density are those of the main rows";
    EXPECT_EQ(Down(StateOfToolbar().symbols), Numbers{0});
    EXPECT_EQ(CaptionsOfMenus().greatCircles, "Great C&ircles (Overlay 1)");
    ActiveRecord().OverlayKind[1] = kOverlayPoles;
    EXPECT_EQ(Down(StateOfToolbar().symbols), Numbers{1});
}

TEST_F(Toolbar, SecondaryDataBringTheirButtons) {
    PlotRecord& record = PlotWithRows();
    EXPECT_EQ(Enabled(StateOfToolbar().secondary), Numbers{});
    for (std::int16_t format = kPitchInPlane; format <= kHadeInPlane; ++format) {
        record.SecondaryFormat = format;
        EXPECT_EQ(Enabled(StateOfToolbar().secondary), (Numbers{0, 1})) << format;
        EXPECT_EQ(Enabled(StateOfToolbar().symbols), (Numbers{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}))
            << format;
    }
    record.ShowSecondary = kTrue;
    EXPECT_EQ(Down(StateOfToolbar().secondary), Numbers{0});
    record.SelectedOverlay = 1;
    EXPECT_EQ(Down(StateOfToolbar().secondary), (Numbers{0, 1}));
    EXPECT_TRUE(StateOfToolbar().symbols[kOverlaySecondaryButton].down) << "one state, two buttons";
    for (std::int16_t option = 0; option < 3; ++option) {
        record.NumSymbolsInPlot = static_cast<std::int16_t>(option + 1);
        EXPECT_TRUE(StateOfToolbar().symbols[static_cast<std::size_t>(8 + option)].down);
    }
    record.NumSymbolsInPlot = 0;
    EXPECT_EQ(Down(StateOfToolbar().symbols), (Numbers{1, 7}));
}

TEST_F(Toolbar, APlotWithAnOverlayHasNoOtherBasePlot) {
    PlotRecord& record = PlotWithRows();
    record.SecondaryFormat = kSecondaryLine;
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    EXPECT_EQ(Enabled(StateOfToolbar().secondary), Numbers{1});
}

TEST_F(Toolbar, IntersectionsNeedTwoPlanesARow) {
    PlotRecord& record = PlotWithRows();
    for (std::int16_t primary = kDirections; primary <= kPrimaryLine; ++primary) {
        for (std::int16_t secondary = kNoSecondary; secondary <= kHadeInPlane; ++secondary) {
            record.PrimaryFormat = primary;
            record.SecondaryFormat = secondary;
            EXPECT_EQ(StateOfToolbar().intersections,
                      primary == kPrimaryPlane && secondary == kSecondaryPlane);
        }
    }
}

TEST_F(Toolbar, DisplayButtonsFollowThePlotAndItsKind) {
    PlotWithRows();
    EXPECT_EQ(Enabled(StateOfToolbar().display), (Numbers{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(Down(StateOfToolbar().display), (Numbers{1, 2, 3, 4, 5, 6, 7}))
        << "a rose made of the plot would show its scale and its mean";
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(Enabled(StateOfToolbar().display), (Numbers{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST_F(Toolbar, TheGridSliderServesTheModesThatCountOnTheGrid) {
    PlotRecord& record = PlotWithRows();
    for (std::int16_t mode = 0; mode <= kContoursAndGrid; ++mode) {
        record.PlotSymbolMode = mode;
        EXPECT_EQ(StateOfToolbar().gridDensity, mode >= kGridDensitySymbols) << mode;
    }
}

TEST_F(Toolbar, ButtonsDoNothingWhileALoopRuns) {
    gBusy = true;
    PressPlotType(1);
    PressDataType(1);
    EXPECT_EQ(gPlotKind, kEqualArea);
    EXPECT_EQ(gPlotDataKind, kPlanes);
    PlotWithRows();
    gBusy = true;
    PressPlotType(1);
    PressDataType(1);
    ShowPlotPart(kShowLegend, false);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
    EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
    EXPECT_TRUE(IsPlotPartShown(kShowLegend));
}

TEST_F(Toolbar, ShowingAPartSetsItsFlagAndItsFlagAlone) {
    PlotWithRows();
    for (int button = 0; button < kDisplayButtons; ++button) {
        const bool before = IsPlotPartShown(button);
        std::vector<bool> others;
        for (int other = 0; other < kDisplayButtons; ++other) {
            others.push_back(IsPlotPartShown(other));
        }
        ShowPlotPart(button, !before);
        for (int other = 0; other < kDisplayButtons; ++other) {
            EXPECT_EQ(IsPlotPartShown(other),
                      other == button ? !before : others[static_cast<std::size_t>(other)])
                << button << " " << other;
        }
    }
    EXPECT_EQ(ActiveRecord().RoseDisplay6 != 0, IsPlotPartShown(kShowRoseScale));
    EXPECT_EQ(ActiveRecord().RoseDisplay7 != 0, IsPlotPartShown(kShowRoseMean));
    EXPECT_EQ(ActiveRecord().RoseDisplay8 != 0, IsPlotPartShown(kShowRoseArc));
}

TEST_F(Toolbar, RosePartsReplotRosesAlone) {
    PlotWithRows();
    ShowPlotPart(kShowRoseScale, true);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), 0);
    ActiveRecord().PlotKind = kRose;
    ShowPlotPart(kShowRoseScale, false);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), 1);
}

TEST_F(Toolbar, NewPlotsFollowTheLastWishForStatistics) {
    PlotWithRows();
    ShowPlotPart(kShowStatistics, false);
    UseAdvancedStatistics(true);
    NewPlot();
    EXPECT_FALSE(IsPlotPartShown(kShowStatistics));
    EXPECT_NE(ActiveRecord().StatsBoxKind, 0);
}

TEST_F(Toolbar, TheSliderSnapsDownToTens) {
    const int snapped[][2] = {{10, 10},   {19, 10}, {20, 20},  {59, 50},
                              {150, 150}, {3, 10},  {999, 150}};
    for (const auto& [value, expected] : snapped) {
        ChooseGridSize(value);
        EXPECT_EQ(gSettings.gridSize, expected) << value;
    }
}

TEST_F(Toolbar, LettingTheSliderGoReplotsPlotsWithAnotherGrid) {
    PlotRecord& record = PlotWithRows();
    const auto timesShown = [] { return Form(gActivePlot).TimesShown(); };
    record.PlotSymbolMode = kContours;
    record.GridSize = 50;
    ChooseGridSize(50);
    UseGridSize();
    EXPECT_EQ(timesShown(), 0) << "the grid is that one";
    ChooseGridSize(80);
    EXPECT_EQ(timesShown(), 0) << "it is still held";
    UseGridSize();
    EXPECT_EQ(timesShown(), 1);
    record.PlotSymbolMode = kPointSymbols;
    UseGridSize();
    EXPECT_EQ(timesShown(), 1) << "points need no grid";
    record.GridSize = 120;
    FollowGridOfPlot();
    EXPECT_EQ(gSettings.gridSize, 120);
}

TEST_F(Toolbar, CaptionsNameWhatThePressWillDo) {
    EXPECT_EQ(CaptionsOfMenus().plotSecondary, "Plot Secondar&y Data");
    PlotRecord& record = PlotWithRows();
    record.ShowSecondary = kTrue;
    record.StatsBoxKind = kTrue;
    record.ShowAnnotations = kTrue;
    MenuCaptions captions = CaptionsOfMenus();
    EXPECT_EQ(captions.plotSecondary, "Plot Primar&y Data");
    EXPECT_EQ(captions.viewAdvStats, "Use Normal Statistics Box");
    EXPECT_EQ(captions.viewAnnotations, "Hide Ann&otations");
    EXPECT_EQ(captions.annotationTip, "Hide annotation points");
    record.StatsBoxKind = 0;
    record.ShowAnnotations = 0;
    captions = CaptionsOfMenus();
    EXPECT_EQ(captions.viewAdvStats, "Use Advanced Statistics Box");
    EXPECT_EQ(captions.viewAnnotations, "Show Ann&otations");
    EXPECT_EQ(captions.annotationTip, "Show annotation points");
}

TEST_F(Toolbar, PasteSaysWhatIsOnTheClipboard) {
    EXPECT_FALSE(StateOfPaste().enabled);
    PlotWithRows();
    EXPECT_FALSE(StateOfPaste().enabled);
    EXPECT_EQ(StateOfPaste().caption, "&Paste");
    const char* texts[][2] = {{";quandrel 1", "&Paste selection"},
                              {";VELMIXOR", "&Paste from Velmixoration"},
                              {";Quandre", "&Paste external data"},
                              {"30\t120", "&Paste external data"}};
    for (const auto& [text, caption] : texts) {
        clipboard.SetText(text);
        EXPECT_TRUE(StateOfPaste().enabled);
        EXPECT_EQ(StateOfPaste().caption, caption);
    }
}

TEST_F(Toolbar, OverlaysAndAnnotationsCanBeRemovedWhereThereAreSome) {
    PlotRecord& record = PlotWithRows();
    EXPECT_FALSE(StateOfEditMenu().removeOverlay);
    EXPECT_FALSE(StateOfEditMenu().removeAnnotation);
    EXPECT_FALSE(StateOfEditMenu().changeSymbol);
    EXPECT_TRUE(StateOfEditMenu().selectAll);
    AddOverlay(kOverlayLines, 10, 20, CodeOfStyleRow(2));
    EXPECT_TRUE(StateOfEditMenu().removeOverlay);
    EXPECT_TRUE(StateOfEditMenu().changeSymbol);
    record.SelectedOverlay = 1;
    EXPECT_FALSE(StateOfEditMenu().removeOverlay) << "that one goes with its own button";
    record.PlotAnnotations = std::make_unique<Annotations>(1);
    EXPECT_TRUE(StateOfEditMenu().removeAnnotation);
    EXPECT_TRUE(StateOfToolbar().annotations.enabled);
    NewPlot();
    EXPECT_FALSE(StateOfEditMenu().selectAll);
}

TEST_F(Toolbar, TextsOfTheUserAreChangesOfThePlot) {
    PlotRecord& record = PlotWithRows();
    record.Modified = 0;
    DescribePlot(gActivePlot, "");
    NameFabric(gActivePlot, "");
    EXPECT_EQ(record.Modified, 0);
    DescribePlot(gActivePlot, "northern limb");
    EXPECT_EQ(record.DescriptionText, "northern limb");
    EXPECT_NE(record.Modified, 0);
    record.Modified = 0;
    NameFabric(gActivePlot, "S2");
    EXPECT_EQ(record.FabricText, "S2");
    EXPECT_NE(record.Modified, 0);
}

} // namespace
} // namespace quandrel
