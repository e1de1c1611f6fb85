// SPDX-License-Identifier: MIT
//
// Counting rows into the sectors of a rose: from columns of a plot to the tables of rose_tables.h.

#pragma once

#include "rose/bias_weights.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

/// The largest number of observations whose azimuths are listed. With more the list stays empty.
inline constexpr double kMostListedAngles = 1e7;

/// The largest absolute value that is valid, so that sums and squares stay finite.
inline constexpr double kLargestRoseValue = 1e100;

/// Class of a row without a valid value for classification; 0 is a value outside all classes.
inline constexpr std::int16_t kNoClassValue = -1;

struct RoseCountSettings {
    int kind = kRoseFrequency; ///< RoseKindCode
    SectorLayout layout;
    bool strikes = false;  ///< azimuths are dip directions, and the rose shows strikes
    bool polar = false;    ///< lines with a sense: a negative plunge points away from the azimuth
    bool grouped = false;  ///< the number of a row is its count of observations
    int classes = 1;       ///< m
    BiasSettings bias;     ///< applies to the first three kinds
    DegreeLine sampleLine; ///< of all rows, unless each has its own
};

/// The columns of the rows to count. All have dips.size() values; the later ones may be empty.
struct RoseRows {
    std::span<const std::int32_t> dips;        ///< or plunges; kErrorRow is skipped
    std::span<const std::int32_t> azimuths;    ///< whole degrees
    std::span<const float> numbers;            ///< appended numbers; kInvalidNumber is invalid
    std::span<const double> textNumbers;       ///< wind speeds; NaN is invalid
    std::span<const std::int16_t> classes;     ///< 1 to m, 0 or kNoClassValue; empty: all 1
    std::span<const std::int32_t> linePlunges; ///< appended lines; below -90 is invalid
    std::span<const std::int32_t> lineTrends;
    std::span<const Attitude> measured{}; ///< empty: whole degrees; else the rows with decimals
    std::span<const Attitude> measuredLines{}; ///< likewise of the appended lines
};

/// Above this number rows are not listed one by one.
inline constexpr std::size_t kMostListedRows = 25;

/// A row in the trigonometric sums.
struct RoseObservation {
    double angle = 0;       ///< radians, of axial data below kPi
    std::size_t count = 1;  ///< observations of grouped data
    double weight = 1;      ///< of each observation
    double valueWeight = 0; ///< of the row in sums of values
};

/// The data from which a rose is drawn and described.
struct RoseTables {
    RoseSectorTable sectors;
    RoseSectorStats stats;
    RoseTrigSums trigSums{};
    std::vector<double> angles{0.0};
    std::vector<RoseObservation> rows; ///< of small samples; empty above kMostListedRows
    std::vector<AngleCount> azimuths;  ///< azimuths with rows, and their weighted counts
    Table<double, 7, 3> totals{};      ///< RoseStats of the record
    std::int32_t leftOut = 0;          ///< rows without a value that the kind requires
    std::int32_t rowsCounted = 0;      ///< rows in a class
};

/// Counts rows into the sectors of a layout.
///
/// Kinds that draw a value skip rows without a valid one. A negative count of observations is
/// invalid; the fraction of a count is discarded. In grouped data each observation has the azimuth
/// and the value of its row, and means are over observations. With bias weights the mean is sum(w
/// v) / sum(w), and the variance N / (N - 1) sum(w (v - mean)^2) / sum(w), N the number of
/// observations.
///
/// Where a layout counts axes at both ends, sectors and their classes count each axis with an end
/// in them once; totals count each axis once, and those of means and deviations are half the sum
/// over the sectors.
///
/// O(rows); deviations by a running mean (D. H. D. West, Updating mean and variance estimates,
/// Comm. ACM 22 (1979)).
[[nodiscard]] RoseTables CountRoseRows(const RoseCountSettings& settings, const RoseRows& rows);

} // namespace quandrel
