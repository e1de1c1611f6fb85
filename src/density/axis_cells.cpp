// SPDX-License-Identifier: MIT

#include "density/axis_cells.h"

#include "density/shared_work.h"
#include "platform/platform.h"
#include "stereo/distinct_lines.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr std::int64_t kCentresAtOnce = 256;

/// Fewer lines are sorted sooner by one thread than others start.
constexpr std::size_t kFewLines = 10'000;

/// Cells so small that looking at the axes on the border of a cone takes about as long as finding
/// its border.
int CellsPerDegreeFor(std::size_t axes) {
    constexpr std::size_t kMany = 200'000;
    return axes < kMany ? 1 : 2;
}

/// The cells of a plot with the version of the table they were taken from.
struct KnownCells {
    std::uint64_t version = 0; ///< of the table; 0 for none
    std::int32_t lastIndex = 0;
    std::optional<AxisCells> cells;
};

/// The lines of each ring, by slices of the lines, one slice for a thread.
class RingSlices {
public:
    RingSlices(std::span<const MeasuredLine> lines, const CellRings& rings, unsigned threads)
        : lines_(lines)
        , rings_(rings)
        , slices_(threads)
        , places_(threads, std::vector<std::int32_t>(static_cast<std::size_t>(rings.Rings()))) {}

    /// Calls a function with ring and number of each line, slice by slice.
    template <class Visit>
    void VisitLines(const Visit& visit) {
        ShareWork(slices_, 1, slices_, [&](unsigned, std::int64_t slice, std::int64_t) {
            std::vector<std::int32_t>& places = places_[static_cast<std::size_t>(slice)];
            const std::size_t end = lines_.size() * static_cast<std::size_t>(slice + 1) / slices_;
            for (std::size_t i = lines_.size() * static_cast<std::size_t>(slice) / slices_; i < end;
                 ++i) {
                visit(i, places[static_cast<std::size_t>(rings_.RingOf(lines_[i].plunge))]);
            }
        });
    }

    /// Makes of the lines of each ring in each slice the place of the first.
    ///
    /// @return the first place of each ring, and the end of the last
    std::vector<std::int32_t> SumUp() {
        std::vector<std::int32_t> firsts;
        std::int32_t total = 0;
        for (std::size_t ring = 0; ring < places_.front().size(); ++ring) {
            firsts.push_back(total);
            for (std::vector<std::int32_t>& slice : places_) {
                total += std::exchange(slice[ring], total);
            }
        }
        firsts.push_back(total);
        return firsts;
    }

private:
    std::span<const MeasuredLine> lines_;
    const CellRings& rings_;
    unsigned slices_;
    std::vector<std::vector<std::int32_t>> places_; ///< by slice and ring
};

} // namespace

struct AxisCells::LineOfRing {
    double plunge;
    double trend;
    std::int32_t number;
    std::int32_t cell; ///< in the ring
};

AxisCells::AxisCells(std::span<const MeasuredLine> lines, unsigned threads)
    : rings_(CellsPerDegreeFor(lines.size()))
    , count_(static_cast<std::int32_t>(lines.size()))
    , starts_(static_cast<std::size_t>(rings_.Rings()) * Trends() + 1)
    , axes_(std::make_unique_for_overwrite<SortedAxis[]>(lines.size()))
    , norths_(std::make_unique_for_overwrite<float[]>(lines.size() + kBeyond))
    , easts_(std::make_unique_for_overwrite<float[]>(lines.size() + kBeyond))
    , downs_(std::make_unique_for_overwrite<float[]>(lines.size() + kBeyond)) {
    // First by rings, then each ring by itself, so that the places written lie close together.
    const unsigned sharers = lines.size() < kFewLines ? 1 : threads;
    const auto ofRings = std::make_unique_for_overwrite<LineOfRing[]>(lines.size());
    RingSlices slices(lines, rings_, sharers);
    slices.VisitLines([](std::size_t, std::int32_t& count) { ++count; });
    const std::vector<std::int32_t> firsts = slices.SumUp();
    slices.VisitLines([&](std::size_t number, std::int32_t& place) {
        const MeasuredLine& line = lines[number];
        ofRings[static_cast<std::size_t>(place++)] = {
            line.plunge, line.trend, static_cast<std::int32_t>(number), rings_.PlaceOf(line.trend)};
    });
    ShareWork(rings_.Rings(), 1, sharers, [&](unsigned, std::int64_t ring, std::int64_t) {
        const auto i = static_cast<std::size_t>(ring);
        starts_[i * Trends()] = firsts[i];
        SortRing(static_cast<int>(ring),
                 {ofRings.get() + firsts[i], ofRings.get() + firsts[i + 1]});
    });
    starts_.back() = count_;
    for (std::size_t beyond = 0; beyond < kBeyond; ++beyond) {
        for (float* column : {norths_.get(), easts_.get(), downs_.get()}) {
            column[lines.size() + beyond] = 0;
        }
    }
}

/// Sorts the lines of a ring by cells; those of a cell keep their order.
void AxisCells::SortRing(int ring, std::span<const LineOfRing> own) {
    std::vector<std::int32_t> places(Trends());
    for (const LineOfRing& line : own) {
        ++places[static_cast<std::size_t>(line.cell)];
    }
    const std::size_t base = static_cast<std::size_t>(ring) * Trends();
    std::int32_t total = starts_[base];
    for (std::size_t cell = 0; cell < places.size(); ++cell) {
        starts_[base + cell] = total;
        total += std::exchange(places[cell], total);
    }
    for (const LineOfRing& line : own) {
        Store(places[static_cast<std::size_t>(line.cell)]++, {line.plunge, line.trend},
              line.number);
    }
}

void AxisCells::Store(std::int32_t place, const MeasuredLine& line, std::int32_t number) {
    const auto i = static_cast<std::size_t>(place);
    const Direction axis = AxisOf(line);
    axes_[i] = {axis.l, axis.m, axis.n, number};
    norths_[i] = static_cast<float>(axis.l);
    easts_[i] = static_cast<float>(axis.m);
    downs_[i] = static_cast<float>(axis.n);
}

std::int32_t AxisCells::CountInRun(const AxisRun& run, const Direction& centre,
                                   double cosine) const {
    const auto first = static_cast<std::size_t>(run.first);
    const CountBounds bounds =
        CountRoughly(Columns().From(first), static_cast<std::size_t>(run.end) - first,
                     RoughCone(centre, cosine, cosine));
    if (bounds.AreEqual()) {
        return bounds.least;
    }
    std::int32_t count = 0;
    for (std::int32_t place = run.first; place < run.end; ++place) {
        count += AreWithin(AxisAt(place), centre, cosine) ? 1 : 0;
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
        known.cells.emplace(lines.measured, ThreadsToUse());
    }
    return &*known.cells;
}

std::vector<std::int32_t> CountsAbout(const AxisCells& axes, std::span<const MeasuredLine> centres,
                                      double halfAngle, unsigned threads,
                                      const std::function<void(std::int64_t)>& onDone) {
    std::vector<std::int32_t> counts(centres.size());
    ShareWork(static_cast<std::int64_t>(centres.size()), kCentresAtOnce, threads,
              [&](unsigned thread, std::int64_t first, std::int64_t end) {
                  if (thread == 0) {
                      onDone(first);
                  }
                  for (auto i = static_cast<std::size_t>(first); i < static_cast<std::size_t>(end);
                       ++i) {
                      counts[i] = axes.CountWithin(centres[i], halfAngle);
                  }
              });
    return counts;
}

} // namespace quandrel
