// SPDX-License-Identifier: MIT

#include "rose/shown_azimuths.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quandrel {

ShownAzimuths::ShownAzimuths(const RoseCountSettings& settings, const RoseRows& rows)
    : settings_(settings)
    , rows_(rows) {
    if (rows.measured.empty()) {
        constexpr std::size_t kWholeAzimuths = 361;
        different_.resize(kWholeAzimuths);
        std::iota(different_.begin(), different_.end(), 0.0);
    } else {
        FindDifferent();
    }
}

/// To 1e-9 degree, so that sums of decimals meet the edges of sectors.
double ShownAzimuths::MeasuredAzimuth(std::size_t row) const {
    constexpr double kPerDegree = 1e9;
    const Attitude& measured = rows_.measured[row];
    const double shown = measured.azimuth + TurnOf(measured.dip < 0);
    return WrappedAzimuth(RoundToEven(shown * kPerDegree) / kPerDegree);
}

void ShownAzimuths::FindDifferent() {
    std::vector<std::pair<double, std::size_t>> sorted;
    for (std::size_t row = 0; row < rows_.dips.size(); ++row) {
        if (rows_.dips[row] != kErrorRow) {
            sorted.emplace_back(MeasuredAzimuth(row), row);
        }
    }
    std::sort(sorted.begin(), sorted.end());
    places_.resize(rows_.dips.size());
    for (const auto& [azimuth, row] : sorted) {
        if (different_.empty() || different_.back() != azimuth) {
            different_.push_back(azimuth);
        }
        places_[row] = different_.size() - 1;
    }
}

} // namespace quandrel
