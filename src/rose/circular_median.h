// SPDX-License-Identifier: MIT
//
// The circular median, and the mean deviation about it. Angles are radians; axial data are computed
// with doubled angles.
//
// The circle is cut at the antipode of the mean direction. The median is the middle one of the
// angles in clockwise order from there, through the mean, back to the antipode.

#pragma once

#include "rose/circular_statistics.h"
#include "rose/rose_tables.h"

#include <span>

namespace quandrel {

/// The result when there is no median.
inline constexpr double kNoMedian = -1;

/// The clockwise distance from an antipode to an angle.
///
/// @param antipode  0 to kTwoPi
/// @param angle     0 to kTwoPi
/// @return 0 to below kTwoPi; an angle just before the antipode, within rounding, is at the
///         antipode
[[nodiscard]] double WayFromAntipode(double antipode, double angle);

/// Median of angles.
///
/// @param angles         0 to kTwoPi, in any order; of axial data below kPi
/// @param meanDirection  of axial data not doubled
/// @return above 0 to kTwoPi, of axial data to kPi; a median at north is kTwoPi. kNoMedian without
///         angles
///
/// For an even number of angles the median is half-way between the two in the middle. O(n).
[[nodiscard]] double CircularMedian(std::span<const double> angles, double meanDirection,
                                    AngleSense sense);

/// Median of grouped angles: the angle at which the count passes half of the total, or half-way
/// between the two angles on either side of half. For whole counts it equals the median of the
/// angles repeated that often.
///
/// @return as CircularMedian; kNoMedian without a count. O(n log n).
[[nodiscard]] double GroupedCircularMedian(std::span<const AngleCount> groups, double meanDirection,
                                           AngleSense sense);

/// Mean of the distances of angles from a median, 0 to kPi, of axial data to kPi/2.
///
/// Formula: pi - |pi - |angle - median||, of axial data half of that of the doubled angles.
/// N. I. Fisher, Statistical Analysis of Circular Data (1993), 2.3.2. 0 without angles.
[[nodiscard]] double CircularMeanDeviation(std::span<const double> angles, double median,
                                           AngleSense sense);

/// CircularMeanDeviation of grouped angles.
[[nodiscard]] double CircularMeanDeviation(std::span<const AngleCount> groups, double median,
                                           AngleSense sense);

} // namespace quandrel
