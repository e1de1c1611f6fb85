// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/plot_store.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class AcceptedSectors : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        ActiveRecord().PlotKind = kRose;
        AddRow(0, 8);
        ActiveRecord().RoseSectorSize = 7;
    }

    void TearDown() override {
        ForgetAcceptedSectorSize(ActivePlot());
        EngineTest::TearDown();
    }
};

TEST_F(AcceptedSectors, OfAFileAreDrawnWithoutAQuestion) {
    AcceptSectorSize(ActivePlot());
    EXPECT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseOddSectorSize, 3);
}

TEST_F(AcceptedSectors, OfAFileTakeThePlaceOfWhatTheSlotHadBefore) {
    RefuseRose(ActivePlot());
    ASSERT_TRUE(IsRoseRefused(ActivePlot()));
    AcceptSectorSize(ActivePlot());
    EXPECT_FALSE(IsRoseRefused(ActivePlot()));
    EXPECT_TRUE(RoseCountSectors());
}

TEST_F(AcceptedSectors, AskWhateverWasAcceptedOnceGoDoes) {
    AcceptSectorSize(ActivePlot());
    Expect("Because you have chosen an odd sector size", Button::Cancel);
    EXPECT_FALSE(AskForSectorSize(ActivePlot(), 7));
    EXPECT_TRUE(RoseCountSectors()) << "the size that the rose has stays accepted";
    EXPECT_TRUE(AskForSectorSize(ActivePlot(), 10)) << "equal sectors need no question";
    ActiveRecord().NumValidData = 0;
    EXPECT_TRUE(AskForSectorSize(ActivePlot(), 7)) << "nor does a plot without rows";
}

TEST_F(AcceptedSectors, HoldForTheirSizeAlone) {
    AcceptSectorSize(ActivePlot());
    ActiveRecord().RoseSectorSize = 11;
    Expect("Because you have chosen an odd sector size", Button::Cancel);
    EXPECT_FALSE(RoseCountSectors());
}

} // namespace
} // namespace quandrel
