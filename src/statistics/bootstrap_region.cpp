// SPDX-License-Identifier: MIT

#include "statistics/bootstrap_region.h"

#include "orientation/repeated_tries.h"
#include "statistics/axis_regions.h"
#include "statistics/direction_regions.h"
#include "statistics/place_table.h"
#include "statistics/resample_moments.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

/// The sums of `draws` rows.
template <class Sums>
Sums Draw(const std::vector<Sums>& rows, const PlaceTable& table, long draws,
          RandomStream& random) {
    Sums sums;
    const auto add = [&](std::uint64_t bits) {
        const Sums& row = rows[table.Place(static_cast<std::uint32_t>(bits))];
        for (std::size_t i = 0; i < sums.values.size(); ++i) {
            sums.values[i] += row.values[i];
        }
    };
    for (long i = 0; i < draws; i += 2) {
        const std::uint64_t bits = random.Bits();
        add(bits);
        if (i + 1 < draws) {
            add(bits >> 32U);
        }
    }
    return sums;
}

/// The options as those of repeated tries.
Repetition RepetitionOf(const BootstrapOptions& options) {
    Repetition repetition{options.resamples, options.seed, options.threads, {}};
    if (options.onDone) {
        repetition.goesOn = [&options](double done) {
            return options.onDone(static_cast<int>(std::lround(done * options.resamples)));
        };
    }
    return repetition;
}

template <class Sums>
std::optional<Resampled> ResampleIn(const Frame& frame, const RegionSample& sample,
                                    RegionTarget target, const BootstrapOptions& options) {
    std::vector<Sums> rows;
    for (const Direction& row : sample.rows.directions) {
        rows.push_back(Sums::Of(InFrame(frame, row)));
    }
    const PlaceTable table(sample.rows.weights);
    const long draws = std::max(std::lround(sample.count), 1L);
    const auto total = static_cast<double>(draws);
    const auto size = static_cast<std::size_t>(options.resamples);
    Resampled resampled{std::vector<double>(size), std::vector<Direction>(size)};
    const RandomBlock draw = [&](RandomStream& random, int first, int last) {
        for (int i = first; i < last; ++i) {
            const ResampleCentre found = Draw(rows, table, draws, random)
                                             .CentreOf(total, target == RegionTarget::GirdlePole);
            const auto place = static_cast<std::size_t>(i);
            resampled.statistics[place] = total * found.statistic;
            const Direction centre = FromFrame(frame, found.centre);
            resampled.centres[place] =
                target == RegionTarget::MeanDirection ? centre : LowerEnd(centre);
        }
    };
    if (options.onDone && !options.onDone(0)) {
        return std::nullopt;
    }
    if (!RunBlocks(RepetitionOf(options), [&draw] { return draw; })) {
        return std::nullopt;
    }
    std::sort(resampled.statistics.begin(), resampled.statistics.end());
    return resampled;
}

} // namespace

std::optional<Resampled> Resample(const RegionSample& sample, RegionTarget target,
                                  const BootstrapOptions& options) {
    if (target == RegionTarget::MeanDirection) {
        const auto frame = MeanFrameOf(sample);
        return frame ? ResampleIn<DirectionSums>(frame->axes, sample, target, options)
                     : std::nullopt;
    }
    const auto frame = AxisFrameOf(sample, CentreOf(target));
    return frame ? ResampleIn<AxisSums>(frame->axes, sample, target, options) : std::nullopt;
}

double QuantileOf(const Resampled& resampled, double level) {
    const std::size_t size = resampled.statistics.size();
    const double place = std::ceil(level * static_cast<double>(size + 1));
    if (!(place >= 1 && place <= static_cast<double>(size))) {
        return std::numeric_limits<double>::infinity();
    }
    return resampled.statistics[static_cast<std::size_t>(place) - 1];
}

ConfidenceRegion BootstrapRegion(const RegionSample& sample, RegionTarget target,
                                 const Resampled& resampled, double level) {
    const double quantile = QuantileOf(resampled, level);
    ConfidenceRegion region = target == RegionTarget::MeanDirection
                                  ? DirectionEllipseOf(sample, level, quantile)
                                  : AxisEllipseOf(sample, target, level, quantile);
    region.method = RegionMethod::Bootstrap;
    region.resamples = static_cast<int>(resampled.centres.size());
    return region;
}

} // namespace quandrel
