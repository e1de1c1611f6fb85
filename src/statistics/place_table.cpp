// SPDX-License-Identifier: MIT

#include "statistics/place_table.h"

#include <algorithm>
#include <numeric>

namespace quandrel {

namespace {

constexpr double kWhole = 4294967296.0; ///< 2^32

} // namespace

PlaceTable::PlaceTable(std::span<const double> weights)
    : columns_(weights.size()) {
    const double mean =
        std::accumulate(weights.begin(), weights.end(), 0.0) / static_cast<double>(weights.size());
    std::vector<double> shares; // of each place, 1 on average
    std::vector<std::size_t> below;
    std::vector<std::size_t> above;
    for (std::size_t i = 0; i < weights.size(); ++i) {
        shares.push_back(weights[i] / mean);
        columns_[i].other = static_cast<std::uint32_t>(i);
        (shares[i] < 1 ? below : above).push_back(i);
    }
    // A place below 1 is filled up from one above. What is left of either kind is 1 but for
    // rounding.
    while (!below.empty() && !above.empty()) {
        const std::size_t filled = below.back();
        const std::size_t source = above.back();
        below.pop_back();
        columns_[filled] = {static_cast<std::uint32_t>(std::max(shares[filled], 0.0) * kWhole),
                            static_cast<std::uint32_t>(source)};
        shares[source] -= 1 - shares[filled];
        if (shares[source] < 1) {
            above.pop_back();
            below.push_back(source);
        }
    }
}

} // namespace quandrel
