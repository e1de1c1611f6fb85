// SPDX-License-Identifier: MIT

#include "stereo/distinct_lines.h"

#include "core/plot_store.h"
#include "orientation/angles.h"

#include <array>
#include <cstdlib>
#include <memory>

namespace quandrel {

namespace {

struct KnownLines {
    std::uint64_t version = 0; ///< of the table; 0 is none
    std::int32_t lastIndex = 0;
    std::vector<DistinctLine> lines;
};

KnownLines known;

/// The lines of a plot of P and T axes that its statistics are about.
struct KnownAxes {
    int slot = 0;
    KnownLines lines;
};

KnownAxes knownAxes;

/// Counts the rows of a table up to a point index that are wanted, by the numbers of their lines.
template <class Wanted>
std::vector<DistinctLine> CountLines(const RowTable& table, std::int32_t lastIndex,
                                     const Wanted& isWanted) {
    const auto rows = std::make_unique<std::array<std::int32_t, kLineKeys>>();
    rows->fill(0);
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (table.index[place] <= lastIndex && !IsErrorRow(table.plunge[place])
            && isWanted(table.index[place])) {
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

/// The sign of an axis marks its kind, and a level one cannot have it: all are taken by their lower
/// ends.
std::vector<DistinctLine> ByLowerEnds(std::vector<DistinctLine> lines) {
    for (DistinctLine& line : lines) {
        line.plunge = static_cast<std::int16_t>(std::abs(line.plunge));
    }
    return lines;
}

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
    return CountLines(table, lastIndex, [](std::int32_t) { return true; });
}

const std::vector<DistinctLine>& DistinctLinesOfActivePlot() {
    const RowTable& table = TableOf(gActivePlot);
    const std::int32_t lastIndex = ActiveRecord().NumData;
    if (known.version != table.version || known.lastIndex != lastIndex) {
        known = {table.version, lastIndex, DistinctLinesOf(table, lastIndex)};
    }
    return known.lines;
}

const std::vector<DistinctLine>& StatisticsLinesOfActivePlot() {
    if (ActiveRecord().AxesTitle.empty()) {
        return DistinctLinesOfActivePlot();
    }
    const RowTable& table = TableOf(gActivePlot);
    const std::int32_t lastIndex = ActiveRecord().NumData;
    KnownLines& axes = knownAxes.lines;
    if (knownAxes.slot != gActivePlot || axes.version != table.version
        || axes.lastIndex != lastIndex) {
        knownAxes.slot = gActivePlot;
        axes = {table.version, lastIndex,
                HoldsBothAxes(ActiveRecord())
                    ? DistinctLinesOfAxes(gActivePlot, AxisKind::Shortening)
                    : ByLowerEnds(DistinctLinesOf(table, lastIndex))};
    }
    return axes.lines;
}

std::vector<DistinctLine> DistinctLinesOfAxes(int slot, AxisKind kind) {
    return ByLowerEnds(CountLines(TableOf(slot), RecordOf(slot).NumData,
                                  [slot, kind](int row) { return AxisOfRow(slot, row) == kind; }));
}

std::int32_t CountOfLines(const std::vector<DistinctLine>& lines) {
    std::int32_t count = 0;
    for (const DistinctLine& line : lines) {
        count += line.rows;
    }
    return count;
}

} // namespace quandrel
