// SPDX-License-Identifier: MIT

#include "core/step_progress.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class Progress : public EngineTest {};

TEST_F(Progress, AStepThatTakesLongHasABarUntilItsEnd) {
    {
        StepProgress progress(10, std::chrono::milliseconds(0), &status);
        EXPECT_FALSE(status.ProgressIsShown());
        EXPECT_TRUE(progress.Reach(3));
        EXPECT_TRUE(status.ProgressIsShown());
    }
    EXPECT_FALSE(status.ProgressIsShown());
}

TEST_F(Progress, AQuickStepHasNone) {
    StepProgress progress(10, std::chrono::hours(1), &status);
    EXPECT_FALSE(progress.Reach(9));
    EXPECT_FALSE(status.ProgressIsShown());
}

} // namespace
} // namespace quandrel
