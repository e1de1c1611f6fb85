// SPDX-License-Identifier: MIT

#include "stereo/distinct_lines.h"

#include "core/plot_store.h"
#include "orientation/angles.h"

#include <array>
#include <memory>

namespace quandrel {

namespace {

struct KnownLines {
    std::uint64_t version = 0; ///< of the table; 0 is none
    std::int32_t lastIndex = 0;
    std::vector<DistinctLine> lines;
};

KnownLines known;

/// Degrees lifted above 0, so that cutting their half more rounds them without looking at a sign.
constexpr double kLift = 90;

} // namespace

int LineKey(double plunge, double trend) {
    constexpr double kDegrees = 180 / kPi;
    const auto lifted = static_cast<int>(plunge * kDegrees + (kLift + 0.5));
    return LineKeyOfDegrees(lifted - static_cast<int>(kLift),
                            static_cast<int>(trend * kDegrees + 0.5));
}

std::vector<DistinctLine> DistinctLinesOf(const RowTable& table, std::int32_t lastIndex) {
    const auto rows = std::make_unique<std::array<std::int32_t, kLineKeys>>();
    rows->fill(0);
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (table.index[place] <= lastIndex && !IsErrorRow(table.plunge[place])) {
            const int key = LineKey(table.plunge[place], table.trend[place]);
            ++(*rows)[static_cast<std::size_t>(key)];
        }
    }
    std::vector<DistinctLine> lines;
    for (int key = 0; key < kLineKeys; ++key) {
        if (const std::int32_t count = (*rows)[static_cast<std::size_t>(key)]; count > 0) {
            lines.push_back({static_cast<std::int16_t>(key / 361 - 90),
                             static_cast<std::int16_t>(key % 361), count});
        }
    }
    return lines;
}

const std::vector<DistinctLine>& DistinctLinesOfActivePlot() {
    const RowTable& table = TableOf(gActivePlot);
    const std::int32_t lastIndex = ActiveRecord().NumData;
    if (known.version != table.version || known.lastIndex != lastIndex) {
        known = {table.version, lastIndex, DistinctLinesOf(table, lastIndex)};
    }
    return known.lines;
}

} // namespace quandrel
