// SPDX-License-Identifier: MIT

#include "drawing/figure_layout.h"
#include "drawing/figure_legend.h"
#include "drawing/figure_reach.h"
#include "rose/rose_plot.h"
#include "rose/rose_tables.h"
#include "support/slotless_plots.h"
#include "support/test_platform.h"

#include <algorithm>
#include <memory>

namespace quandrel {
namespace {

class RoseLegendOfFigure : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        plot = SlotlessPlot(kRose, kPointSymbols, 7);
        plot.record.FabricText = "joints";
        plot.record.RoseDisplay8 = kTrue;
        plot.record.RoseScaleType = "circauto";
    }

    Drawing In(std::string_view style) {
        Drawing drawing{net, page, gSettings.styles, DrawnFor::Paper};
        drawing.figure = std::make_shared<const FigureStyle>(*StandardStyle(style));
        return drawing;
    }

    std::vector<std::string> Texts() {
        WorkOutRoseUnasked(plot, Formulas::Own);
        std::vector<std::string> texts;
        for (const FigureEntry& entry : LegendOfFigure(plot, In(kJournalStyle)).entries) {
            texts.push_back(entry.text);
        }
        return texts;
    }

    /// 30 more rows with one strike.
    void AddStrike(std::int32_t strike) {
        for (int row = 0; row < 30; ++row) {
            AppendTo(plot, 0, 40, strike + 90, 0, 1);
        }
    }

    Plot plot;
    RecordingSurface net{500, 500};
    RecordingSurface page{500, 700};
};

TEST_F(RoseLegendOfFigure, SaysRowsSectorsAndCircles) {
    const std::vector<std::string> texts = Texts();
    ASSERT_EQ(texts.size(), 3U) << "the mean of these rows is not significant";
    EXPECT_EQ(texts[0], "Strikes of joints, n = 60");
    EXPECT_EQ(texts[1], "Petals by length, 10° sectors");
    EXPECT_TRUE(texts[2].starts_with("Circles every ")) << texts[2];
    plot.record.FabricText.clear();
    plot.record.RoseEqualArea = kTrue;
    plot.record.RoseDisplay6 = 0;
    const std::vector<std::string> others = Texts();
    EXPECT_EQ(others[0], "Strikes, n = 60");
    EXPECT_EQ(others[1], "Petals by area, 10° sectors");
    EXPECT_TRUE(others[2].starts_with("Rim ")) << others[2];
}

TEST_F(RoseLegendOfFigure, SaysTheMeanWithItsIntervalWhereItIsDrawn) {
    AddStrike(25);
    const std::vector<std::string> texts = Texts();
    const double half = RadToDeg(*RoseOf(plot).confidence->halfWidth);
    const double mean = RadToDeg(plot.record.RoseMeanDir[kOfAngles]);
    const std::string azimuth = "0" + std::to_string(static_cast<int>(std::lround(mean)));
    ASSERT_EQ(azimuth.size(), 3U) << "a mean from 10 to 99 degrees";
    EXPECT_EQ(texts[1], "Mean strike " + azimuth + " ± "
                            + std::to_string(static_cast<int>(std::lround(half))) + "° (95%)");
    plot.record.RoseDisplay8 = 0;
    EXPECT_EQ(Texts()[1], "Mean strike " + azimuth);
    plot.record.RoseDisplay7 = 0;
    EXPECT_TRUE(Texts()[1].starts_with("Petals")) << Texts()[1];
}

TEST_F(RoseLegendOfFigure, NamesTheKindsOfRoses) {
    plot.record.RoseType = kRoseValue;
    EXPECT_EQ(Texts()[0], "Sum of Thickness by strike of joints, n = 60");
    plot.record.RoseType = kRoseMeanValue;
    EXPECT_EQ(Texts()[0], "Mean Thickness by strike of joints, n = 60");
    plot.record.RoseType = kRoseVariance;
    EXPECT_EQ(Texts()[0], "Standard deviation of Thickness by strike of joints, n = 60");
    plot.record.RoseType = kRoseValueOverFrequency;
    EXPECT_EQ(Texts()[1], "Strikes of joints");
    EXPECT_EQ(Texts().back(), "Each layer to its own scale");
}

TEST_F(RoseLegendOfFigure, ListsTheClassesThatHavePetals) {
    plot.record.RoseType = 10 * kRoseByLength;
    auto& table = plot.record.ClassTable;
    table[kBaseRow][kNumberClasses] = std::int16_t{3};
    table[kLowestRow][kNumberClasses] = 0.0;
    table[kLowestRow + 1][kNumberClasses] = 4.0;
    table[kLowestRow + 2][kNumberClasses] = 20.0;
    table[kTopRow][kNumberClasses] = 30.0;
    const std::vector<std::string> texts = Texts();
    ASSERT_EQ(texts.size(), 6U);
    EXPECT_EQ(texts[1], "Classes of Thickness");
    EXPECT_EQ(texts[2], "0-4");
    EXPECT_EQ(texts[3], "4-20") << "that from 20 to 30 has no rows";
}

TEST_F(RoseLegendOfFigure, PageHoldsLabelsOfWholeAndHalfRoses) {
    for (std::int16_t shape = 0; shape <= 4; ++shape) {
        plot.record.RoseShape = shape;
        WorkOutRoseUnasked(plot, Formulas::Own);
        for (const LegendPlace place : {LegendPlace::Right, LegendPlace::Below}) {
            const Result<FigureLayout> layout =
                LayOutFigure(plot, In(kJournalStyle), {kHalfPageWidth, 0, place});
            ASSERT_TRUE(layout) << layout.Error();
            EXPECT_DOUBLE_EQ(layout->width, kHalfPageWidth);
            const FigureReach reach = ReachOfFigure(plot, In(kJournalStyle));
            const double radius = layout->net.width / 2.2;
            const double x = layout->net.left + layout->net.width / 2;
            const double y = layout->net.top + layout->net.height / 2;
            EXPECT_GE(x - reach.left.At(radius), kFigureMargin - 1e-6) << shape;
            EXPECT_LE(x + reach.right.At(radius), kHalfPageWidth - kFigureMargin + 1e-6) << shape;
            EXPECT_GE(y - reach.top.At(radius), kFigureMargin - 1e-6) << shape;
            EXPECT_LE(y + reach.bottom.At(radius), layout->height - kFigureMargin + 1e-6) << shape;
        }
    }
}

TEST_F(RoseLegendOfFigure, HalfRosesLeaveNoRoomForTheOtherHalf) {
    const Drawing journal = In(kJournalStyle);
    plot.record.RoseShape = 1;
    EXPECT_NEAR(ReachOfFigure(plot, journal).bottom.share, 0, 1e-12);
    EXPECT_GT(ReachOfFigure(plot, journal).top.share, 1);
    plot.record.RoseShape = 4;
    EXPECT_NEAR(ReachOfFigure(plot, journal).right.share, 0, 1e-12);
    EXPECT_GT(ReachOfFigure(plot, journal).left.share, 1);
}

TEST_F(RoseLegendOfFigure, HasTheWordsOfThePlot) {
    AddStrike(40);
    const std::vector<std::string> own = Texts();
    ASSERT_EQ(own.size(), 4U);
    NameRoseEntry(plot.record, {kRosePetals, 0, "Faults"});
    NameRoseEntry(plot.record, {kRoseMeanLine, 0, "Chief strike"});
    NameRoseEntry(plot.record, {kRoseSectors, 0, "Area-true petals"});
    NameRoseEntry(plot.record, {kRosePetals, 1, "of a layer that the rose does not have"});
    const std::vector<std::string> named = Texts();
    ASSERT_EQ(named.size(), 4U);
    EXPECT_EQ(named[0], "Faults, n = 90");
    EXPECT_EQ(named[1].substr(0, 13), "Chief strike ");
    EXPECT_EQ(named[1].substr(13), own[1].substr(std::string("Mean strike ").size()))
        << "the numbers stay";
    EXPECT_EQ(named[2], "Area-true petals");
    EXPECT_EQ(named[3], own[3]);
    NameRoseEntry(plot.record, {kRosePetals, 0, "Fractures"});
    EXPECT_EQ(Texts()[0], "Fractures, n = 90");
    for (const std::int16_t entry : {kRosePetals, kRoseMeanLine, kRoseSectors}) {
        NameRoseEntry(plot.record, {entry, 0, ""});
    }
    EXPECT_EQ(Texts(), own);
}

TEST_F(RoseLegendOfFigure, IsEmptyWithoutRows) {
    Plot blank;
    blank.record = NewPlotRecord();
    blank.record.PlotKind = kRose;
    WorkOutRoseUnasked(blank, Formulas::Own);
    EXPECT_TRUE(LegendOfFigure(blank, In(kJournalStyle)).entries.empty());
    EXPECT_TRUE(LayOutFigure(blank, In(kJournalStyle), {}));
}

} // namespace
} // namespace quandrel
