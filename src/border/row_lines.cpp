// SPDX-License-Identifier: MIT

#include "border/row_lines.h"

#include "border/border.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <vector>

namespace quandrel::api {

namespace {

constexpr double kFullTurn = 360;

/// The number of a line in whole degrees, -1 for another one. Trends are 0 to below a full turn.
int KeyOf(const Line& line) {
    const auto plunge = static_cast<int>(line.plunge);
    const auto trend = static_cast<int>(line.trend);
    const bool isWhole =
        static_cast<double>(plunge) == line.plunge && static_cast<double>(trend) == line.trend;
    return isWhole ? LineKeyOfDegrees(plunge, trend) : -1;
}

/// A checked line with a trend within a turn.
Line Turned(const Line& line) {
    static_cast<void>(In(line)); // checks it
    return {line.plunge, WithinTurn(line.trend)};
}

/// Whether the line can be asked for its number at once.
bool IsInReach(const Line& line) {
    return line.plunge >= -90 && line.plunge <= 90 && line.trend >= 0 && line.trend < kFullTurn;
}

/// Counts the lines by their numbers; false where one is not in whole degrees.
bool CountWhole(std::span<const Line> lines, std::vector<std::int32_t>& counts) {
    for (const Line& line : lines) {
        const int key = KeyOf(IsInReach(line) ? line : Turned(line));
        if (key < 0) {
            return false;
        }
        ++counts[static_cast<std::size_t>(key)];
    }
    return true;
}

std::vector<DistinctLine> DistinctOf(const std::vector<std::int32_t>& counts) {
    constexpr int kTrends = 361;
    std::vector<DistinctLine> lines;
    for (std::size_t key = 0; key < counts.size(); ++key) {
        if (counts[key] > 0) {
            const int place = static_cast<int>(key);
            lines.push_back({static_cast<std::int16_t>(place / kTrends - 90),
                             static_cast<std::int16_t>(place % kTrends), counts[key]});
        }
    }
    return lines;
}

} // namespace

MeasuredLine MeasuredIn(const Line& line) {
    const RadianLine in = In(line);
    return {in.plunge, in.trend};
}

RowLines RowLinesIn(std::span<const Line> lines) {
    if (lines.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
        throw std::invalid_argument("too many lines to count");
    }
    RowLines rows;
    std::vector<std::int32_t> counts(kLineKeys);
    if (CountWhole(lines, counts)) {
        rows.whole = DistinctOf(counts);
        return rows;
    }
    rows.measured.resize(lines.size());
    std::ranges::transform(lines, rows.measured.begin(), MeasuredIn);
    return rows;
}

} // namespace quandrel::api
