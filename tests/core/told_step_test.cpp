// SPDX-License-Identifier: MIT

#include "core/told_step.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class Told : public EngineTest {};

TEST_F(Told, ALongStepHasItsTextAndBarUntilItsEnd) {
    {
        ToldStep step("counting", 0, &status, std::chrono::milliseconds(0));
        EXPECT_EQ(status.Text(), "");
        step.Reach(0);
        EXPECT_EQ(status.Text(), "counting");
        EXPECT_TRUE(status.ProgressIsShown());
    }
    EXPECT_EQ(status.Text(), "");
    EXPECT_FALSE(status.ProgressIsShown());
}

TEST_F(Told, AQuickStepLeavesTheStatusLineAlone) {
    status.SetText("as before");
    {
        ToldStep step("counting", 10, &status, std::chrono::hours(1));
        step.Reach(9);
        EXPECT_EQ(status.Text(), "as before");
    }
    EXPECT_EQ(status.Text(), "as before");
}

} // namespace
} // namespace quandrel
