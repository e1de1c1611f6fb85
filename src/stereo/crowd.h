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

/// The places of rows on the net, in whole plot units, with the number of rows on each.
class Crowd {
public:
    /// Adds a row. A place far outside the net is ignored.
    void Add(std::int16_t x, std::int16_t y);

    /// The places, from those of the fewest rows up; within a level by columns from the left.
    /// Places that look as dark as one can are one level.
    ///
    /// @param opacity  of the symbol of one row, above 0 to 1
    [[nodiscard]] std::vector<CrowdLevel> Levels(double opacity) const;

private:
    static constexpr int kReach = 1100; ///< the net and what may stand out of it
    static constexpr std::size_t kSide = 2 * kReach + 1;
    std::array<std::vector<std::int32_t>, kSide> columns_; ///< rows at each y, empty for no rows
};

} // namespace quandrel
