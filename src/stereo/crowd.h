// SPDX-License-Identifier: MIT
//
// Rows that lie on each other, when their symbols can be seen through. Each place is drawn once, as
// dark as its rows would be together.

#pragma once

#include "platform/surface.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quandrel {

/// Places of a crowd that so many rows share.
struct CrowdLevel {
    std::int32_t rows = 0; ///< 1 or more
    std::vector<Point> places;
};

/// The opacity of symbols that lie on each other, 0 to 1.
///
/// @param opacity  of one of them, 0 to 1
/// @param rows     1 or more
[[nodiscard]] double OpacityTogether(double opacity, std::int32_t rows);

/// The places of rows on the net, with the number of rows on each. Rows are at one place where
/// their positions in whole plot units are the same.
class Crowd {
public:
    /// Adds a row. True when it is the first at its place. A place far outside the net is ignored.
    bool Add(std::int16_t x, std::int16_t y);

    /// The exact position of the place that was last new; without it, that in whole units.
    void PlaceLast(Point at) { places_.back().at = at; }

    /// The places, from those of the fewest rows up; within a level in the order of their first
    /// rows. Places that look as dark as one can are one level.
    ///
    /// @param opacity  of the symbol of one row, 0 to 1
    [[nodiscard]] std::vector<CrowdLevel> Levels(double opacity) const;

private:
    struct Place {
        Point at;
        std::int32_t rows = 0;
    };

    static constexpr int kReach = 1100; ///< the net and what may stand out of it
    static constexpr std::size_t kSide = 2 * kReach + 1;
    std::vector<Place> places_;
    std::array<std::vector<std::int32_t>, kSide> columns_; ///< number of the place at each y, from
                                                           ///< 1; empty for a column without rows
};

} // namespace quandrel
