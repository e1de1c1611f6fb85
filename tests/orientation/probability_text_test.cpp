// SPDX-License-Identifier: MIT

#include "orientation/probability_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace quandrel {
namespace {

TEST(ProbabilityText, HasMoreDecimalsForSmallProbabilities) {
    EXPECT_EQ(ProbabilityText(1), "p = 1.00");
    EXPECT_EQ(ProbabilityText(0.213), "p = 0.21");
    EXPECT_EQ(ProbabilityText(0.1), "p = 0.10");
    EXPECT_EQ(ProbabilityText(0.0499), "p = 0.050");
    EXPECT_EQ(ProbabilityText(0.001), "p = 0.001");
    EXPECT_EQ(ProbabilityText(0.0009), "p < 0.001");
    EXPECT_EQ(ProbabilityText(0), "p < 0.001");
}

TEST(OutcomeText, HasTheStatisticInItsUnit) {
    EXPECT_EQ(OutcomeText("U", {2, 0.3}), "U = 2.00, p = 0.30");
    EXPECT_EQ(OutcomeText("U", {2, 0.3}, 90), "U = 180.00, p = 0.30");
    EXPECT_EQ(OutcomeText("G", {std::numeric_limits<double>::infinity(), 1e-4}),
              "G = infinite, p < 0.001");
}

TEST(IsRejected, IsBelowTheLevel) {
    EXPECT_TRUE(IsRejected({1, 0.0499}));
    EXPECT_FALSE(IsRejected({1, 0.05}));
    EXPECT_TRUE(IsRejected({1, 0.05}, 0.1));
}

} // namespace
} // namespace quandrel
