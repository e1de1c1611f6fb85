// SPDX-License-Identifier: MIT

#include "platform/place_filter.h"

#include <algorithm>
#include <bit>
#include <cstddef>

namespace quandrel {

namespace {

/// A set of positions that only grows: a table with open addressing, at least twice as large as its
/// contents. Several times as fast as a set of the standard library; it is called with a hundred
/// thousand positions at a time.
class PlaceTable {
public:
    explicit PlaceTable(std::size_t most)
        : mask_(std::bit_ceil(2 * most + 1) - 1)
        , taken_(mask_ + 1, 0)
        , places_(mask_ + 1) {}

    /// True when the position was not in the set before.
    bool Insert(StepPlace place) {
        std::size_t at = Hash(place) & mask_;
        while (taken_[at] != 0) {
            if (places_[at] == place) {
                return false;
            }
            at = (at + 1) & mask_;
        }
        taken_[at] = 1;
        places_[at] = place;
        return true;
    }

private:
    static std::size_t Hash(StepPlace place) {
        const std::uint64_t both = static_cast<std::uint64_t>(static_cast<std::uint32_t>(place.x))
                                       << 32
                                   | static_cast<std::uint32_t>(place.y);
        return static_cast<std::size_t>(both * 0x9e3779b97f4a7c15U >> 24);
    }

    std::size_t mask_;
    std::vector<std::uint8_t> taken_;
    std::vector<StepPlace> places_;
};

} // namespace

std::vector<std::uint32_t> LastOfEachPlace(std::span<const StepPlace> places) {
    std::vector<std::uint32_t> kept;
    kept.reserve(places.size());
    PlaceTable seen(places.size());
    for (std::size_t i = places.size(); i-- > 0;) {
        if (seen.Insert(places[i])) {
            kept.push_back(static_cast<std::uint32_t>(i));
        }
    }
    std::reverse(kept.begin(), kept.end());
    return kept;
}

} // namespace quandrel
