// SPDX-License-Identifier: MIT
//
// Even levels that leave a number of bands.

#include "density/density_levels.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace quandrel {
namespace {

TEST(LevelsInBands, AreEvenAndRound) {
    const struct {
        double greatest;
        int bands;
        std::vector<double> levels;
    } cases[] = {
        {6, 5, {1, 2, 3, 4, 5}},              // a sixth is 1 exactly
        {5.7, 5, {0.9, 1.8, 2.7, 3.6, 4.5}},  // a sixth is 0.95
        {11.5, 5, {1.9, 3.8, 5.7, 7.6, 9.5}}, // 1.92: 1 would be half of it
        {13.7, 3, {3.4, 6.8, 10.2}},          // 3.43: 3 would be 13% less
        {120, 1, {60}},
        {0.0084, 2, {0.0028, 0.0056}},
        {0.3, 2, {0.1, 0.2}}, // 0.3 / 3 is a little less than 0.1
    };

    for (const auto& [greatest, bands, levels] : cases) {
        EXPECT_EQ(LevelsInBands(greatest, bands), levels) << greatest;
    }
}

TEST(LevelsInBands, AreBelowTheGreatestAndLeaveNoBandTooWide) {
    for (double greatest = 0.01; greatest < 1e4; greatest *= 1.07) {
        for (int bands = 1; bands <= kMostLevels; ++bands) {
            const std::vector<double> levels = LevelsInBands(greatest, bands);
            ASSERT_EQ(levels.size(), static_cast<std::size_t>(bands));
            EXPECT_LT(levels.back(), greatest) << bands;
            // A step that is a tenth shorter leaves a tenth of all others to the highest band.
            const double step = levels.front();
            EXPECT_LE(greatest - levels.back(), step * (1 + (bands + 1) / 9.0) * (1 + 1e-9))
                << greatest << " " << bands;
        }
    }
}

TEST(LevelsInBands, AreNoneOfNoDensity) {
    EXPECT_TRUE(LevelsInBands(0, 5).empty());
    EXPECT_TRUE(LevelsInBands(-1, 5).empty());
    EXPECT_TRUE(LevelsInBands(std::numeric_limits<double>::quiet_NaN(), 5).empty());
    EXPECT_TRUE(LevelsInBands(std::numeric_limits<double>::infinity(), 5).empty());
}

} // namespace
} // namespace quandrel
