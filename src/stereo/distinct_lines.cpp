// SPDX-License-Identifier: MIT

#include "stereo/distinct_lines.h"

#include "orientation/angles.h"

#include <array>
#include <cstdlib>
#include <memory>

namespace quandrel {

namespace {

/// Lines with the version of the table they were taken from.
struct KnownLines {
    std::uint64_t version = 0; ///< of the table; 0 for none
    std::int32_t lastIndex = 0;
    std::vector<DistinctLine> lines;

    [[nodiscard]] bool AreOf(const Plot& plot) const {
        return version == plot.table.version && lastIndex == plot.record.NumData;
    }
};

/// The cache of a plot: the lines of all main rows, and those of its statistics where these differ.
struct LinesOfPlot {
    KnownLines rows;
    KnownLines axes;
};

/// Counts the selected rows of a table up to a point index, by the numbers of their lines.
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

/// The sign of an axis marks its kind, even a horizontal one: all are taken by their lower ends.
std::vector<DistinctLine> ByLowerEnds(std::vector<DistinctLine> lines) {
    for (DistinctLine& line : lines) {
        line.plunge = static_cast<std::int16_t>(std::abs(line.plunge));
    }
    return lines;
}

/// Degrees are shifted above 0, so that adding one half and truncating rounds them.
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

const std::vector<DistinctLine>& DistinctLinesOf(Plot& plot) {
    KnownLines& known = plot.attachments.Of<LinesOfPlot>().rows;
    if (!known.AreOf(plot)) {
        const std::int32_t last = plot.record.NumData;
        known = {plot.table.version, last, DistinctLinesOf(plot.table, last)};
    }
    return known.lines;
}

std::int32_t CountOfMainRows(const Plot& plot) {
    const auto* known = plot.attachments.Find<LinesOfPlot>();
    if (known != nullptr && known->rows.AreOf(plot)) {
        return CountOfLines(known->rows.lines);
    }
    std::int32_t count = 0;
    for (std::size_t place = 0; place < plot.table.size(); ++place) {
        const bool isMain = plot.table.index[place] <= plot.record.NumData;
        count += isMain && !IsErrorRow(plot.table.plunge[place]) ? 1 : 0;
    }
    return count;
}

const std::vector<DistinctLine>& StatisticsLinesOf(Plot& plot, const Styles& styles) {
    if (plot.record.AxesTitle.empty()) {
        return DistinctLinesOf(plot);
    }
    KnownLines& known = plot.attachments.Of<LinesOfPlot>().axes;
    if (!known.AreOf(plot)) {
        const std::int32_t last = plot.record.NumData;
        known = {plot.table.version, last,
                 HoldsBothAxes(plot.record)
                     ? DistinctLinesOfAxes(plot, styles, AxisKind::Shortening)
                     : ByLowerEnds(DistinctLinesOf(plot.table, last))};
    }
    return known.lines;
}

std::vector<DistinctLine> DistinctLinesOfAxes(const Plot& plot, const Styles& styles,
                                              AxisKind kind) {
    return ByLowerEnds(
        CountLines(plot.table, plot.record.NumData, [&plot, &styles, kind](std::int32_t row) {
            return AxisOfRow(plot, styles, row) == kind;
        }));
}

std::int32_t CountOfLines(const std::vector<DistinctLine>& lines) {
    std::int32_t count = 0;
    for (const DistinctLine& line : lines) {
        count += line.rows;
    }
    return count;
}

} // namespace quandrel
