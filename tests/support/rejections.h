// SPDX-License-Identifier: MIT
//
// How often a test rejects a true hypothesis.

#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace quandrel {

/// Expects a number of rejections within four standard errors of a level: of some forty numbers in
/// this suite none is then expected to fail by chance.
inline void ExpectLevel(int rejected, int samples, double level) {
    EXPECT_NEAR(rejected, level * samples, 4 * std::sqrt(level * (1 - level) * samples) + 1)
        << level;
}

/// How often probabilities are at most 10, 5 and 1%.
struct Rejections {
    std::array<int, 3> counts{};
    int samples = 0;

    void Add(double probability) {
        counts[0] += probability <= 0.1 ? 1 : 0;
        counts[1] += probability <= 0.05 ? 1 : 0;
        counts[2] += probability <= 0.01 ? 1 : 0;
        ++samples;
    }

    void ExpectLevels() const {
        ExpectLevel(counts[0], samples, 0.1);
        ExpectLevel(counts[1], samples, 0.05);
        ExpectLevel(counts[2], samples, 0.01);
    }
};

} // namespace quandrel
