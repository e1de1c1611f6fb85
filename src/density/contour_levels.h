// SPDX-License-Identifier: MIT
//
// The levels of density contours, in per cent of the data per 1% of the area.

#pragma once

#include <array>
#include <cmath>
#include <cstdint>

namespace quandrel {

inline constexpr int kMostContourLevels = 9;

/// Levels, ascending; those from `count` on are 0.
struct ContourLevelSet {
    std::array<std::int16_t, kMostContourLevels> levels{};
    std::int16_t count = 0;

    friend bool operator==(const ContourLevelSet&, const ContourLevelSet&) = default;
};

/// Density of one row among n, per cent.
[[nodiscard]] constexpr double DensityOfOneRow(std::int32_t n) {
    return 100.0 / n;
}

/// The levels of n rows: the density of one row, rounded up to a whole per cent (GridBandBase),
/// doubled repeatedly up to the greatest density.
///
/// @param n            rows counted; below 1 there are no levels
/// @param mostDensity  greatest density of the grid, per cent; only its whole part counts
[[nodiscard]] ContourLevelSet ContourLevelsOf(std::int32_t n, double mostDensity);

/// The position of the contour of a level among the counts of n rows: half-way between the smallest
/// whole count that has the level's density and the count below. Counts are whole numbers; a
/// contour at a whole number would follow the edges of its cells.
///
/// @param level  per cent. The product of a whole level and n is exact, and so is the count
[[nodiscard]] inline double CountOfLevel(double level, std::int32_t n) {
    return std::ceil(level * n / 100) - 0.5;
}

} // namespace quandrel
