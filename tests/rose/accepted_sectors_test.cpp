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
        ForgetAcceptedSectorSize();
        EngineTest::TearDown();
    }
};

TEST_F(AcceptedSectors, OfAFileAreDrawnWithoutAQuestion) {
    AcceptSectorSize();
    EXPECT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseOddSectorSize, 3);
}

TEST_F(AcceptedSectors, OfAFileTakeThePlaceOfWhatTheSlotHadBefore) {
    RefuseRose();
    ASSERT_TRUE(IsRoseRefused());
    AcceptSectorSize();
    EXPECT_FALSE(IsRoseRefused());
    EXPECT_TRUE(RoseCountSectors());
}

TEST_F(AcceptedSectors, AskWhateverWasAcceptedOnceGoDoes) {
    AcceptSectorSize();
    Expect("Because you have chosen an odd sector size", Button::Cancel);
    EXPECT_FALSE(AskForSectorSize(7));
    EXPECT_TRUE(RoseCountSectors()) << "the size that the rose has stays accepted";
    EXPECT_TRUE(AskForSectorSize(10)) << "equal sectors need no question";
    ActiveRecord().NumValidData = 0;
    EXPECT_TRUE(AskForSectorSize(7)) << "nor does a plot without rows";
}

TEST_F(AcceptedSectors, HoldForTheirSizeAlone) {
    AcceptSectorSize();
    ActiveRecord().RoseSectorSize = 11;
    Expect("Because you have chosen an odd sector size", Button::Cancel);
    EXPECT_FALSE(RoseCountSectors());
}

} // namespace
} // namespace quandrel
