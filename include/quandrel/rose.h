// SPDX-License-Identifier: MIT
//
// Roses: azimuths counted in sectors, with the lengths of their petals.
//
// Angles are degrees. Azimuths are counted at their nearest whole degrees (half-way cases to even).
// An azimuth on an edge belongs to the sector that ends there: 10 is in the sector from 0 to 10.
// For their statistics see circular.h.
//
// Example: a rose of strikes.
//
//     namespace qd = quandrel::api;
//     const std::vector<double> strikes = {12, 15, 18, 195, 75};
//     const qd::Rose rose = qd::RoseOf(strikes, {.sectorSize = 20});
//     const qd::RoseSector& north = rose.sectors[0];
//     std::cout << north.from << ' ' << north.size << ' ' << north.count << '\n'; // -> 0 20 4
//     std::cout << rose.sectors[3].length << '\n'; // -> 0.25

#pragma once

#include "quandrel/orientation.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel::api {

/// What a petal shows.
enum class RoseMeasure {
    kCount,     ///< the number of azimuths in its sector
    kSum,       ///< the sum of their values
    kMean,      ///< the mean of their values
    kDeviation, ///< the standard deviation of their values, over n - 1
};

struct RoseOptions {
    double sectorSize = 10; ///< 1 to 360; if it does not divide 360, the last sector has the
                            ///< remainder, rounded to whole degrees
    double start = 0;       ///< azimuth at which the first sector begins
    Sense sense = Sense::kAxes;
    RoseMeasure measure = RoseMeasure::kCount; ///< of the lengths; all but counts need values
    bool hasEqualAreas = false; ///< the measure is the area of a petal, not its length
};

struct RoseSector {
    double from = 0;      ///< azimuth, 0 to below 360; the sector goes clockwise from here
    double size = 0;      ///< degrees
    double count = 0;     ///< number of azimuths
    double sum = 0;       ///< of their values; 0 without values, as are the next two
    double mean = 0;      ///< 0 without azimuths
    double deviation = 0; ///< 0 for fewer than two azimuths
    double length = 0;    ///< of the petal: 1 is the longest; 0 or negative for a negative measure
};

struct Rose {
    /// Clockwise from the start. An axis is counted in the sectors of both its ends, once if they
    /// are the same sector.
    std::vector<RoseSector> sectors;
    std::int32_t count = 0; ///< azimuths
};

/// Counts n azimuths into the sectors of a rose.
///
/// @param azimuths  of any size
/// @param values    n numbers from -1e100 to 1e100, or empty
///
/// O(n).
[[nodiscard]] Rose RoseOf(std::span<const double> azimuths, const RoseOptions& options = {},
                          std::span<const double> values = {});

/// The weight that corrects the sampling bias of a structure at an angle to the line along which it
/// was sampled: 1 / sin(angle).
///
/// @param angle  0 to 90
/// @param least  angles below this count as this one, and all below a degree as a degree; 0 to 90
///
/// Formula: R. D. Terzaghi, Sources of error in joint surveys, Geotechnique 15 (1965).
[[nodiscard]] double TerzaghiWeightOf(double angle, double least);

} // namespace quandrel::api
