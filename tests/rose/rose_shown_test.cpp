// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/formulas.h"
#include "core/plot_store.h"
#include "rose/rose_plot.h"
#include "rose/rose_scale.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

constexpr const char* kOddQuestion = "odd sector size";

class RoseShown : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = false;
        slot = NewRose();
    }

    void TearDown() override {
        for (int each = 1; each <= HighestSlot(); ++each) {
            ForgetRose(PlotOf(each));
        }
        EngineTest::TearDown();
    }

    int NewRose() {
        const int made = NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().DataKind = kPolarLines;
        ActiveRecord().RoseSectorSize = 10;
        for (const int azimuth : {12, 15, 120}) {
            AddRow(0, azimuth);
        }
        return made;
    }

    /// A new plot of the same rows in the slot of the first one, as after a load that failed.
    void ReuseSlot() {
        ReleasePlotSlot(slot);
        ASSERT_EQ(NewRose(), slot);
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    int slot = 0;
};

TEST_F(RoseShown, IsStaleUnderOtherFormulas) {
    RosePlot();
    gSettings.notation.formulas = Formulas::Textbook;
    EXPECT_TRUE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
    RosePlot(false);
    EXPECT_FALSE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
}

TEST_F(RoseShown, ARefusedRoseStaysRefusedUnderOtherFormulas) {
    Record().RoseSectorSize = 100;
    Expect(kOddQuestion, Button::Cancel);
    RosePlot(true);
    EXPECT_TRUE(IsRoseRefused(ActivePlot()));
    gSettings.notation.formulas = Formulas::Textbook;
    RosePlot(false);
    EXPECT_TRUE(IsRoseRefused(ActivePlot()));
}

TEST_F(RoseShown, IsStaleOnceRowsOrSettingsOfTheCountChange) {
    EXPECT_TRUE(IsRoseStale(ActivePlot(), gSettings.notation.formulas)) << "none was noted";
    RosePlot();
    EXPECT_FALSE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
    Record().RoseShape = 2;
    EXPECT_FALSE(IsRoseStale(ActivePlot(), gSettings.notation.formulas))
        << "the count does not depend on it";
    Record().RoseStartAngle = 5;
    EXPECT_TRUE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
    Record().RoseStartAngle = 0;
    EXPECT_FALSE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
    AddRow(0, 200);
    EXPECT_TRUE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
}

TEST_F(RoseShown, RestoresTheSettingsNoted) {
    Record().RoseShape = 1;
    Record().RoseScaleType = "circ7";
    RosePlot();
    Record().RoseShape = 3;
    Record().RoseSectorSize = 30;
    Record().RoseStartAngle = 15;
    Record().RoseZeroCircle = 40;
    Record().RoseScaleType = "tick2";
    Record().RowsChanged = kTrue;
    ASSERT_TRUE(RestoreRose(ActivePlot(), gSettings.notation.formulas));
    EXPECT_EQ(Record().RoseShape, 1);
    EXPECT_EQ(Record().RoseSectorSize, 10);
    EXPECT_EQ(Record().RoseStartAngle, 0);
    EXPECT_EQ(Record().RoseZeroCircle, 0);
    EXPECT_EQ(Record().RoseScaleType, "circ7");
    EXPECT_EQ(Record().RowsChanged, 0);
    EXPECT_FALSE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
}

TEST_F(RoseShown, RestoresNothingOfAnotherPlot) {
    RosePlot();
    ReuseSlot();
    EXPECT_FALSE(RestoreRose(ActivePlot(), gSettings.notation.formulas));
    Record().RoseRangeA[kTopRoseLayer][kInPerCent] = 20; // of a file
    EXPECT_FALSE(RestoreRose(ActivePlot(), gSettings.notation.formulas));
}

TEST_F(RoseShown, IsRefusedUntilRowsOrSizeChange) {
    RefuseRose(ActivePlot());
    EXPECT_TRUE(IsRoseRefused(ActivePlot()));
    Record().RoseSectorSize = 20;
    EXPECT_FALSE(IsRoseRefused(ActivePlot()));
    Record().RoseSectorSize = 10;
    EXPECT_TRUE(IsRoseRefused(ActivePlot()));
    RosePlot();
    EXPECT_FALSE(IsRoseRefused(ActivePlot())) << "there is one now";
    RefuseRose(ActivePlot());
    ReuseSlot();
    EXPECT_FALSE(IsRoseRefused(ActivePlot())) << "of another plot in the slot";
}

TEST_F(RoseShown, AsksAboutTheSizeOfANewPlotInASlot) {
    Record().RoseSectorSize = 7;
    Expect(kOddQuestion);
    RosePlot();
    RosePlot(); // not asked again
    ReuseSlot();
    Record().RoseSectorSize = 7;
    Expect(kOddQuestion);
    RosePlot();
    EXPECT_EQ(prompts.Shown().size(), 2U);
}

TEST_F(RoseShown, AsksAboutASizeThatWasForgotten) {
    Record().RoseSectorSize = 7;
    Expect(kOddQuestion);
    RosePlot();
    ForgetRose(PlotOf(slot));
    Expect(kOddQuestion);
    RosePlot();
    EXPECT_EQ(prompts.Shown().size(), 2U);
}

TEST_F(RoseShown, IsForgottenWhole) {
    Record().RoseScaleType = "tickauto";
    RosePlot();
    ASSERT_TRUE(ActiveRose().isCounted);
    ASSERT_FALSE(ActiveRose().wedges.empty());
    const int other = NewPlot();
    ForgetRose(PlotOf(other));
    ReleasePlotSlot(other);
    gActivePlot = slot;
    EXPECT_TRUE(ActiveRose().isCounted);
    EXPECT_FALSE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
    ForgetRose(PlotOf(slot));
    EXPECT_FALSE(ActiveRose().isCounted);
    EXPECT_TRUE(ActiveRose().wedges.empty());
    EXPECT_TRUE(IsRoseStale(ActivePlot(), gSettings.notation.formulas));
    EXPECT_FALSE(RestoreRose(ActivePlot(), gSettings.notation.formulas));
    RefuseRose(ActivePlot());
    ForgetRose(PlotOf(slot));
    EXPECT_FALSE(IsRoseRefused(ActivePlot()));
}

} // namespace
} // namespace quandrel
