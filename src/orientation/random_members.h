// SPDX-License-Identifier: MIT
//
// Random choices of members, for permutations of two samples.

#pragma once

#include "orientation/random_stream.h"

#include <cstddef>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

namespace quandrel {

/// Chooses some of a number of places, all choices equally likely. A choice depends on the random
/// stream alone, not on those before it.
class RandomMembers {
public:
    /// @param members  at most `places`
    /// @param places   below 2^32
    RandomMembers(std::size_t members, std::size_t places)
        : members_(members)
        , order_(places) {}

    /// The places that are chosen; valid until the next call. O(places).
    ///
    /// Method: the first places of a random order, R. A. Fisher, F. Yates (1938).
    [[nodiscard]] std::span<const std::size_t> Draw(RandomStream& random) {
        std::iota(order_.begin(), order_.end(), std::size_t{0});
        for (std::size_t i = 0; i < members_; ++i) {
            const auto left = static_cast<std::uint32_t>(order_.size() - i);
            std::swap(order_[i], order_[i + random.Below(left)]);
        }
        return std::span(order_).first(members_);
    }

private:
    std::size_t members_;
    std::vector<std::size_t> order_;
};

} // namespace quandrel
