// SPDX-License-Identifier: MIT

#include "orientation/normal_distribution.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace quandrel {
namespace {

TEST(NormalQuantile, IsThatOfThePrintedTable) {
    // Abramowitz and Stegun (1964), table 26.5.
    for (const auto& [tail, value] : {std::pair(0.5, 0.0),
                                      {0.25, 0.67449},
                                      {0.1, 1.28155},
                                      {0.05, 1.64485},
                                      {0.025, 1.95996},
                                      {0.01, 2.32635},
                                      {0.001, 3.09023},
                                      {1e-6, 4.75342}}) {
        EXPECT_NEAR(NormalQuantile(tail), -value, 5e-6) << tail;
        EXPECT_NEAR(NormalQuantile(1 - tail), value, 5e-6) << tail;
    }
}

TEST(NormalQuantile, UndoesTheDistribution) {
    for (double value = -8; value <= 5; value += 0.25) {
        EXPECT_NEAR(NormalQuantile(NormalBelow(value)), value, value > 0 ? 1e-9 : 1e-13) << value;
    }
}

} // namespace
} // namespace quandrel
