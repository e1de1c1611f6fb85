// SPDX-License-Identifier: MIT

#include "stereo/distinct_lines.h"

#include "orientation/angles.h"
#include "stereo/cell_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace quandrel {

namespace {

/// Lines with the version of the table they were taken from.
struct KnownLines {
    std::uint64_t version = 0; ///< of the table; 0 for none
    std::int32_t lastIndex = 0;
    RowLines lines;

    [[nodiscard]] bool AreOf(const Plot& plot) const {
        return version == plot.table.version && lastIndex == plot.record.NumData;
    }
};

/// The cache of a plot: the lines of all main rows, and those of its statistics where these differ.
struct LinesOfPlot {
    KnownLines rows;
    KnownLines axes;
};

bool IsAnyRow(std::int32_t /*row*/) {
    return true;
}

/// Each row of a table counts once.
std::int32_t Once(std::int32_t /*row*/) {
    return 1;
}

/// Counts the selected rows of a table up to a point index, by the numbers of their lines.
///
/// @param timesOf  how often a row counts
template <class Wanted, class Times>
std::vector<DistinctLine> CountLines(const RowTable& table, std::int32_t lastIndex,
                                     const Wanted& isWanted, const Times& timesOf) {
    const auto rows = std::make_unique<std::array<std::int32_t, kLineKeys>>();
    rows->fill(0);
    for (std::size_t place = 0; place < table.size(); ++place) {
        if (table.index[place] <= lastIndex && !IsErrorRow(table.plunge[place])
            && isWanted(table.index[place])) {
            const int key = LineKey(table.plunge[place], table.trend[place]);
            (*rows)[static_cast<std::size_t>(key)] += timesOf(table.index[place]);
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

/// The selected rows of a table up to a point index, one line for each.
template <class Wanted>
RowLines ListLines(const RowTable& table, std::int32_t lastIndex, const Wanted& isWanted) {
    RowLines lines;
    lines.measured.reserve(table.size());
    lines.rows.reserve(table.size());
    for (std::size_t place = 0; place < table.size(); ++place) {
        const std::int32_t row = table.index[place];
        if (row <= lastIndex && !IsErrorRow(table.plunge[place]) && isWanted(row)) {
            lines.measured.push_back({table.plunge[place], table.trend[place]});
            lines.rows.push_back(row);
        }
    }
    return lines;
}

/// A table of the main rows of a plot where they were measured.
RowTable MeasuredTableOf(const Plot& plot) {
    const bool asPole = IsPlottedAsPole(plot.record, 0);
    RowTable table;
    ReserveRows(table, static_cast<std::size_t>(std::max(plot.record.NumData, 0)));
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        AppendRow(table,
                  PlottedOrientation(plot.record.PlotKind, asPole, row, MeasuredShown(plot, row)));
    }
    return table;
}

/// The selected main rows of a plot.
template <class Wanted>
RowLines LinesIn(const Plot& plot, LinePrecision precision, const Wanted& isWanted) {
    const std::int32_t last = plot.record.NumData;
    if (HasCellRows(plot)) {
        return {CountLines(plot.table, last, isWanted,
                           [&plot](std::int32_t row) { return MeasurementsOfRow(plot, row); }),
                {},
                {}};
    }
    if (ShowsDecimals(plot)) {
        return ListLines(plot.table, last, isWanted);
    }
    if (precision == LinePrecision::Measured && HasMeasuredLines(plot)) {
        return ListLines(MeasuredTableOf(plot), last, isWanted);
    }
    return {CountLines(plot.table, last, isWanted, Once), {}, {}};
}

/// The sign of an axis marks its kind, even a horizontal one: all are taken by their lower ends.
RowLines ByLowerEnds(RowLines lines) {
    for (DistinctLine& line : lines.whole) {
        line.plunge = static_cast<std::int16_t>(std::abs(line.plunge));
    }
    for (MeasuredLine& line : lines.measured) {
        line.plunge = std::abs(line.plunge);
    }
    return lines;
}

/// The lines for the statistics of a plot of axes.
RowLines StatisticsLinesOfAxes(const Plot& plot, const Styles& styles, LinePrecision precision) {
    return HoldsBothAxes(plot.record) ? LinesOfAxes(plot, styles, AxisKind::Shortening, precision)
                                      : ByLowerEnds(LinesIn(plot, precision, IsAnyRow));
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
    return CountLines(table, lastIndex, IsAnyRow, Once);
}

bool HasMeasuredLines(const Plot& plot) {
    const PlotRows& rows = plot.rows;
    const MeasuredColumns& measured =
        plot.record.ShowSecondary != 0 ? rows.measured2 : rows.measured;
    const std::int32_t last = std::min(plot.record.NumData, measured.RowCount() - 1);
    for (std::int32_t row = 1; row <= last; ++row) {
        if (measured.Has(row)) {
            return true;
        }
    }
    return false;
}

bool ShowsDecimals(const Plot& plot) {
    return plot.record.UseDecimals != 0 && HasMeasuredLines(plot);
}

const RowLines& LinesOf(Plot& plot) {
    KnownLines& known = plot.attachments.Of<LinesOfPlot>().rows;
    if (!known.AreOf(plot)) {
        known = {plot.table.version, plot.record.NumData,
                 LinesIn(plot, LinePrecision::Shown, IsAnyRow)};
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

const RowLines& StatisticsLinesOf(Plot& plot, const Styles& styles) {
    if (plot.record.AxesTitle.empty()) {
        return LinesOf(plot);
    }
    KnownLines& known = plot.attachments.Of<LinesOfPlot>().axes;
    if (!known.AreOf(plot)) {
        known = {plot.table.version, plot.record.NumData,
                 StatisticsLinesOfAxes(plot, styles, LinePrecision::Shown)};
    }
    return known.lines;
}

RowLines MeasuredStatisticsLinesOf(const Plot& plot, const Styles& styles) {
    return plot.record.AxesTitle.empty()
               ? LinesIn(plot, LinePrecision::Measured, IsAnyRow)
               : StatisticsLinesOfAxes(plot, styles, LinePrecision::Measured);
}

RowLines LinesOfAxes(const Plot& plot, const Styles& styles, AxisKind kind,
                     LinePrecision precision) {
    return ByLowerEnds(LinesIn(plot, precision, [&plot, &styles, kind](std::int32_t row) {
        return AxisOfRow(plot, styles, row) == kind;
    }));
}

std::int32_t CountOfLines(const RowLines& lines) {
    auto count = static_cast<std::int32_t>(lines.measured.size());
    for (const DistinctLine& line : lines.whole) {
        count += line.rows;
    }
    return count;
}

} // namespace quandrel
