// SPDX-License-Identifier: MIT

#include "density/axis_cells.h"

#include "stereo/distinct_lines.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numeric>
#include <optional>
#include <thread>

namespace quandrel {

namespace {

constexpr std::int64_t kCentresAtOnce = 256;

/// Cells so small that looking at the axes on the border of a cone takes about as long as finding
/// its border.
int CellsPerDegreeFor(std::size_t axes) {
    constexpr std::size_t kFew = 30'000;
    constexpr std::size_t kMany = 300'000;
    return axes < kFew ? 1 : axes < kMany ? 2 : 4;
}

/// The cells of a plot with the version of the table they were taken from.
struct KnownCells {
    std::uint64_t version = 0; ///< of the table; 0 for none
    std::int32_t lastIndex = 0;
    std::optional<AxisCells> cells;
};

} // namespace

AxisCells::AxisCells(std::span<const MeasuredLine> lines)
    : rings_(CellsPerDegreeFor(lines.size()))
    , starts_(static_cast<std::size_t>(rings_.Rings()) * Trends() + 1)
    , norths_(lines.size())
    , easts_(lines.size())
    , downs_(lines.size())
    , order_(lines.size()) {
    const auto cellOf = [this](const MeasuredLine& line) {
        return static_cast<std::size_t>(rings_.RingOf(line.plunge)) * Trends()
               + static_cast<std::size_t>(rings_.PlaceOf(line.trend));
    };
    for (const MeasuredLine& line : lines) {
        ++starts_[cellOf(line)];
    }
    std::inclusive_scan(starts_.begin(), starts_.end(), starts_.begin());
    // From the last axis to the first, so that those of a cell keep their order.
    for (std::size_t number = lines.size(); number-- > 0;) {
        const auto place = static_cast<std::size_t>(--starts_[cellOf(lines[number])]);
        const Direction axis = AxisOf(lines[number]);
        norths_[place] = axis.l;
        easts_[place] = axis.m;
        downs_[place] = axis.n;
        order_[place] = static_cast<std::int32_t>(number);
    }
}

std::int32_t AxisCells::CountInRun(const AxisRun& run, const Direction& centre,
                                   double cosine) const {
    const auto first = static_cast<std::size_t>(run.first);
    const auto end = static_cast<std::size_t>(run.end);
    std::int32_t count = 0;
    for (std::size_t i = first; i < end; ++i) {
        const double product = norths_[i] * centre.l + easts_[i] * centre.m + downs_[i] * centre.n;
        count += std::abs(product) >= cosine ? 1 : 0;
    }
    return count;
}

std::int32_t AxisCells::CountWithin(const MeasuredLine& centre, double halfAngle) const {
    const Direction axis = AxisOf(centre);
    const double cosine = std::cos(halfAngle);
    std::int32_t count = 0;
    Scan(
        centre, halfAngle, [&count](const AxisRun& run) { count += run.end - run.first; },
        [&](const AxisRun& run) { count += CountInRun(run, axis, cosine); });
    return count;
}

const AxisCells* MeasuredCellsOf(Plot& plot) {
    const RowLines& lines = LinesOf(plot);
    if (!lines.AreMeasured()) {
        plot.attachments.Drop<KnownCells>();
        return nullptr;
    }
    auto& known = plot.attachments.Of<KnownCells>();
    const std::int32_t last = plot.record.NumData;
    if (!known.cells || known.version != plot.table.version || known.lastIndex != last) {
        known.version = plot.table.version;
        known.lastIndex = last;
        known.cells.emplace(lines.measured);
    }
    return &*known.cells;
}

std::vector<std::int32_t> CountsAbout(const AxisCells& axes, std::span<const MeasuredLine> centres,
                                      double halfAngle, unsigned threads,
                                      const std::function<void(std::int64_t)>& onDone) {
    std::vector<std::int32_t> counts(centres.size());
    const auto last = static_cast<std::int64_t>(centres.size());
    std::atomic<std::int64_t> next = 0;
    const auto work = [&](const std::function<void(std::int64_t)>& tell) {
        for (std::int64_t first = next.fetch_add(kCentresAtOnce); first < last;
             first = next.fetch_add(kCentresAtOnce)) {
            tell(first);
            for (std::int64_t i = first; i < std::min(first + kCentresAtOnce, last); ++i) {
                const auto place = static_cast<std::size_t>(i);
                counts[place] = axes.CountWithin(centres[place], halfAngle);
            }
        }
    };
    {
        std::vector<std::jthread> others; // their destructors wait for them
        for (unsigned thread = 1; thread < threads; ++thread) {
            others.emplace_back([&work] { work([](std::int64_t) {}); });
        }
        work(onDone);
    }
    return counts;
}

} // namespace quandrel
