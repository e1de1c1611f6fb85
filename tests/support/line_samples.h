// SPDX-License-Identifier: MIT
//
// Distributions of whole-degree lines for tests that compare all pairs.

#pragma once

#include "stereo/distinct_lines.h"

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

/// Lines in whole degrees, one for each row.
using WholeDegreeRows = std::vector<std::pair<int, int>>;

struct LineSample {
    std::string name;
    WholeDegreeRows rows; ///< plunge and trend
    std::vector<DistinctLine> lines;
};

inline std::vector<DistinctLine> LinesOfRows(const WholeDegreeRows& rows) {
    std::map<std::pair<int, int>, std::int32_t> counts;
    for (const auto& row : rows) {
        ++counts[row];
    }
    std::vector<DistinctLine> lines;
    for (const auto& [line, count] : counts) {
        lines.push_back(
            {static_cast<std::int16_t>(line.first), static_cast<std::int16_t>(line.second), count});
    }
    return lines;
}

/// Random, clustered, girdle, near-horizontal and vertical rows, some of them upward.
inline std::vector<LineSample> LineSamples(int rowsOfEach = 300) {
    std::mt19937 random(20261121);
    const auto within = [&random](int first, int last) {
        return first + static_cast<int>(random() % static_cast<unsigned int>(last - first + 1));
    };
    std::vector<LineSample> samples = {{"random", {}, {}},   {"clustered", {}, {}},
                                       {"girdle", {}, {}},   {"rim", {}, {}},
                                       {"vertical", {}, {}}, {"one place", {}, {}}};
    for (int i = 0; i < rowsOfEach; ++i) {
        samples[0].rows.emplace_back(within(-90, 90), within(0, 360));
        samples[1].rows.emplace_back(within(35, 50), within(350, 380) % 361);
        const int along = within(0, 180);
        samples[2].rows.emplace_back(90 - std::abs(along - 90) + within(-2, 0),
                                     along < 90 ? 40 + within(0, 4) : 220 + within(0, 4));
        samples[3].rows.emplace_back(within(-3, 3), within(0, 360));
        samples[4].rows.emplace_back(90 - within(0, 13) * within(0, 1), within(0, 360));
        samples[5].rows.emplace_back(12, 348);
    }
    for (auto& row : samples[2].rows) {
        row.first = std::clamp(row.first, -90, 90);
    }
    for (LineSample& sample : samples) {
        sample.lines = LinesOfRows(sample.rows);
    }
    return samples;
}

} // namespace quandrel
