// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "derive/fault_plot.h"
#include "derive/fault_rows.h"
#include "derive/kinematic_plots.h"
#include "drawing/legend.h"
#include "platform/scripted/recording_form.h"
#include "stereo/legend_line.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

/// None of these rows is upward. Axes by hand, as for normal faults: 75/270 and 15/090, 0/315 and
/// 0/225.
const std::vector<FaultRow> kWithoutSense = {{60, 90, 60, 90}, {90, 90, 0, 0}};

class AssumedSenseOfFaults : public FaultTest {
protected:
    static int Make(int index, std::optional<SlipSense> assumed = std::nullopt) {
        EXPECT_TRUE(MakeKinematicPlots(index, assumed));
        return gActivePlot;
    }
};

TEST_F(AssumedSenseOfFaults, IsAskedForAndYesTakesTheHangingWallsDown) {
    NewFaultPlot(kWithoutSense);
    Expect("No row says in which sense it moved. Take the hanging walls to have moved down?",
           Button::Yes);
    const int child = Make(kAxesOnOnePlot);
    EXPECT_EQ(Lines(child), (std::vector<std::string>{"75/270", "-15/090", "0/315", "0/225"}));
    EXPECT_EQ(AssumedSense(RecordOf(child)), SlipSense::Normal);
    EXPECT_EQ(Form(child).Caption(), "Plot 2: faults.txt: 1   [P & T axes, sense assumed]");
    EXPECT_TRUE(RecordOf(child).DescriptionText.ends_with(
        "of 2 of 2 faults; sense assumed: the hanging walls moved down"))
        << RecordOf(child).DescriptionText;
}

TEST_F(AssumedSenseOfFaults, NoTakesThemUpWhichExchangesTheAxesHorizontalOnesToo) {
    NewFaultPlot(kWithoutSense);
    Expect(kSenseQuestion, Button::No);
    const int child = Make(kAxesOnOnePlot);
    EXPECT_EQ(Lines(child), (std::vector<std::string>{"15/090", "-75/270", "0/225", "0/315"}));
    EXPECT_EQ(AssumedSense(RecordOf(child)), SlipSense::Reverse);
}

TEST_F(AssumedSenseOfFaults, CancelMakesNothing) {
    NewFaultPlot(kWithoutSense);
    Expect(kSenseQuestion, Button::Cancel);
    EXPECT_FALSE(MakeKinematicPlots(kAxesOnTwoPlots));
    EXPECT_EQ(CountOpenPlots(), 1);
}

TEST_F(AssumedSenseOfFaults, IsNeitherAskedForNorTakenWhereARowTellsIt) {
    NewFaultPlot({{60, 90, 60, 90}, {60, 90, -60, 90}});
    const int child = Make(kAxesOnOnePlot, SlipSense::Reverse);
    EXPECT_EQ(Line(child, 1), "75/270") << "as the row says";
    EXPECT_EQ(AssumedSense(RecordOf(child)), std::nullopt);
    EXPECT_EQ(Form(child).Caption(), "Plot 2: faults.txt: 1   [P & T axes]");
}

TEST_F(AssumedSenseOfFaults, RowsThatAreNoFaultsTellNothing) {
    NewFaultPlot({{60, 90, 60, 90}, {kErrorRow, 0, -60, 90}});
    EXPECT_TRUE(LacksMovement(gActivePlot));
    NewFaultPlot({{60, 90, kErrorRow, kErrorRow}});
    EXPECT_FALSE(LacksMovement(gActivePlot)) << "there is nothing to ask about";
}

TEST_F(AssumedSenseOfFaults, IsAskedForAgainWhenAxesAreMadeAnew) {
    const int parent = NewFaultPlot(kWithoutSense);
    const int child = Make(kAxesOnOnePlot, SlipSense::Reverse);
    EXPECT_EQ(SlotOfFaults(), parent);
    Expect(kSenseQuestion, Button::Yes);
    Make(kAxesOnOnePlot);
    EXPECT_EQ(Line(child, 1), "75/270");
    SetSecondary(parent, 2, -1, 0);
    Make(kAxesOnOnePlot);
    EXPECT_EQ(AssumedSense(RecordOf(child)), std::nullopt) << "now a row states it";
}

TEST_F(AssumedSenseOfFaults, GivesSlipLinesNoHeads) {
    const auto drawn = [this](const char* shape) {
        const auto& operations = Form(gActivePlot).Plot().Operations();
        return std::count_if(operations.begin(), operations.end(), [&](const auto& operation) {
            return OperationText(operation).find(shape) != std::string::npos;
        });
    };
    const int slot = NewFaultPlot(kWithoutSense);
    ActiveRecord().NumSymbolsInPlot = 1;
    ReplotActivePlot(false);
    EXPECT_EQ(drawn("50/"), 0);
    EXPECT_EQ(drawn("53/"), 2);
    EXPECT_EQ(LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas).back().text,
              "Slip lines, sense unknown");
    EXPECT_EQ(
        LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas).back().sample,
        LegendSample::Line);
    SetSecondary(slot, 1, -60, 90);
    ReplotActivePlot(false);
    EXPECT_EQ(drawn("50/"), 2) << "one row that states its sense is enough";
    EXPECT_EQ(drawn("53/"), 0);
    EXPECT_NE(LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas).back().text,
              "Slip lines, sense unknown");
}

TEST(SlipLineSymbol, ReachesAsFarToBothSides) {
    const Glyph glyph = GlyphOfSymbol(kSlipLineSymbol, 2, 0.5);
    ASSERT_EQ(glyph.parts.size(), 1U) << "no head";
    ASSERT_EQ(glyph.parts[0].points.size(), 2U);
    EXPECT_NEAR(glyph.parts[0].points[1].x, 25 * std::sin(0.5), 1e-9);
    EXPECT_NEAR(glyph.parts[0].points[1].y, 25 * std::cos(0.5), 1e-9);
    EXPECT_NEAR(glyph.parts[0].points[0].x, -glyph.parts[0].points[1].x, 1e-12);
    EXPECT_NEAR(glyph.parts[0].points[0].y, -glyph.parts[0].points[1].y, 1e-12);
}

} // namespace
} // namespace quandrel
