// SPDX-License-Identifier: MIT
//
// From the sectors of a rose to the lengths of its petals.
//
// The outer circle has radius kNetRadius. A petal begins at the zero circle. Its length is
// proportional to the value of its sector; with equal area, the area of its part of the ring is.

#pragma once

#include "core/plot_record.h"
#include "rose/rose_tables.h"

namespace quandrel {

struct RoseRadiiSettings {
    int measure = 0;      ///< RoseKindCode of the measure drawn
    bool classes = false; ///< whether to compute the segments of the classes too
    bool equalArea = false;
    bool grouped = false;     ///< whether sectors count observations and their classes rows
    double sectorSize = 10;   ///< degrees
    double oddSectorSize = 0; ///< of the smaller last sector, degrees; 0 for none
    double zeroRadius = 0;    ///< of the zero circle, whole, 0 to below kNetRadius
};

struct RoseRadiiResult {
    RoseRadiiTable radii; ///< one class when segments are not requested
    double total = 0;     ///< the value of 100 %
};

/// The lengths of the petals, and of the segments of their classes.
///
/// @param totals  RoseStats of the record
///
/// The scale, cell (0, 1), is length by value, or with equal area the square of the radius. With
/// equal area the smaller last sector is lengthened by the ratio of the sizes; if it then passes
/// the outer circle, all lengths and the scale are shortened. The segments of grouped data, and
/// those of petals whose length has changed in this way, are stretched to fill their petal. Sectors
/// of a negative value have a length of 0 or below.
[[nodiscard]] RoseRadiiResult RadiiOfRose(const RoseSectorTable& sectors,
                                          const RoseSectorStats& stats,
                                          const Table<double, 7, 3>& totals,
                                          const RoseRadiiSettings& settings);

/// The largest sector of a measure, per cent of its total; 0 without a total.
[[nodiscard]] double LargestPerCent(const Table<double, 7, 3>& totals, int measure);

[[nodiscard]] bool IsRoseKind(int kind);

/// The measure of a rose in its statistics: for overlaid roses that of the top one. An unknown type
/// counts as frequencies.
[[nodiscard]] int MeasureOfRose(int roseType);

/// Whether a rose has class segments. Means and deviations do not: they are not sums over classes.
[[nodiscard]] bool HasRoseClasses(int roseType);

/// Radius of the zero circle, plot units: a whole number from 0 to 990.
[[nodiscard]] double ZeroRadiusOfRose(const PlotRecord& record);

/// Degrees of the smaller last sector of a number of sectors, 0 when all are equal. A size that
/// RoseOddSectorSize still has from another division is ignored.
[[nodiscard]] double OddSectorOfRose(const PlotRecord& record, int sectors);

/// Fills radii and total of the rose of a plot from its tables.
///
/// @param measure      RoseKindCode
/// @param singleClass  above 0 leaves the classes out
void WorkOutRadii(Plot& plot, int measure, int singleClass = 0);

/// The same of gActivePlot.
void RoseRadii(int measure, int singleClass = 0);

} // namespace quandrel
