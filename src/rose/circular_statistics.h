// SPDX-License-Identifier: MIT
//
// Circular statistics of a rose, from its trigonometric sums and the azimuths of its observations.
//
// Angles are radians; azimuths run clockwise from north. Axial data are computed with doubled
// angles: their first resultant is that of twice the azimuths, their second that of four times, and
// resulting angles are halved.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"

#include <array>
#include <cstddef>
#include <optional>

namespace quandrel {

/// Whether a direction and its opposite are equivalent.
enum class AngleSense { kDirected, kAxial };

/// The dispersion of angles without a resultant.
inline constexpr double kNoDispersion = 99999;

/// The concentration of identical angles by maximum likelihood. It stands in for infinity, because
/// records hold finite numbers.
inline constexpr double kBoundlessKappa = 99999;

/// The sums from which statistics are computed, of an angle or of twice an axial one.
using TrigSums = std::array<double, 4>;

/// Places of TrigSums.
enum TrigTerm : std::size_t {
    kSine = 0,
    kCosine = 1,
    kSineOfDouble = 2,
    kCosineOfDouble = 3,
};

/// The contribution of one angle to the sums.
[[nodiscard]] TrigSums TrigTermsOf(double angle, AngleSense sense);

/// The angle of a vector, 0 to kTwoPi.
///
/// @param y,x  sine and cosine, of any common length
/// @return 0 when both are below 1e-10. The textbook's formula is atan2; the program's own differs
///         at the axes: pi for a positive y and an x near 0; 2 pi for a y of exactly 0, whatever
///         the sign of x
[[nodiscard]] double AngleFromSinCos(double y, double x, Formulas formulas = Formulas::Own);

/// Concentration of a von Mises distribution from a mean resultant length.
///
/// @param r  0 to 1
/// @return by maximum likelihood in the textbook (kBoundlessKappa for 1); the program's own formula
///         is its approximation in three parts, 1 / (2 (1 - r)) from 0.85 on, and 0 for 1
///
/// Formula: N. I. Fisher, Statistical Analysis of Circular Data (1993), 4.5.5.
[[nodiscard]] double KappaOfLength(double r, Formulas formulas);

/// Length of a mean vector.
///
/// @return 0 to 1; a length within 1e-12 of 0 or 1 is rounded to it, because identical angles never
///         give exactly 1, nor opposite ones 0. Empty when it is longer than 1: weights of both
///         signs do not have a mean direction
[[nodiscard]] std::optional<double> MeanResultantLength(double cosine, double sine);

/// Circular statistics of a sample. All but the mean directions, and the variance and standard
/// deviation of axial data, refer to the doubled angles.
struct CircularResults {
    std::array<double, 2> moments{};       ///< Cbar, Sbar
    std::array<double, 2> resultant{};     ///< R1 and R2, 0 to 1
    std::array<double, 2> meanDirection{}; ///< of the angles and of their doubles, 0 to kTwoPi
    double variance = 0;                   ///< 0 to 1
    double standardDeviation = 0;          ///< pi, or pi/2 of axial data, without a resultant
    double kappa = 0;                      ///< estimate of the von Mises concentration
    double dispersion = 0;                 ///< kNoDispersion without a resultant
    double skewness = 0;
    double kurtosis = 0;
};

/// Statistics of weighted angles from their sums.
///
/// @param sums  sin a, cos a, sin b, cos b; b is twice a, and a is the angle, or twice an axial one
/// @param n     sum of the weights, not 0
/// @param formulas  decides the mean directions (AngleFromSinCos) and kappa (KappaOfLength)
/// @return empty when a resultant is longer than MeanResultantLength allows
///
/// Formulas: N. I. Fisher, Statistical Analysis of Circular Data (1993), 2.3, 4.5.5; variance and
/// standard deviation of axial data: K. V. Mardia, Statistics of Directional Data (1972), 2.6.
[[nodiscard]] std::optional<CircularResults> CircularStatistics(const std::array<double, 4>& sums,
                                                                double n, AngleSense sense,
                                                                Formulas formulas = Formulas::Own);

/// Above this number of data the confidence interval of the mean is reported.
inline constexpr double kLargeSample = 25;

/// Computes the circular statistics of the rose of a plot, from the tables of its data pass, into
/// the record, and the confidence of its mean.
///
/// @param measure  RoseKindCode: frequencies are weighted by the count of observations, means and
///                 deviations do not have statistics, all others are weighted by the value of a row
///
/// All of the fields are 0 without statistics, without weight, and when values of both signs make a
/// resultant longer than 1. The median and the deviation about it are 0 where there is no median.
/// O(rows).
void WorkOutCircularStats(Plot& plot, int measure, Formulas formulas);

/// The same of gActivePlot, by the current formulas.
void RoseCircularStats(int measure);

/// Whether WorkOutCircularStats can give results: a kind with statistics, a weight, and resultants
/// of at most 1.
[[nodiscard]] bool HasCircularStatistics(const PlotRecord& record);

/// Whether there are no results because values of both signs made a resultant longer than 1.
[[nodiscard]] bool IsResultantTooLong(const PlotRecord& record);

/// The statistics in a record.
[[nodiscard]] CircularResults ResultsInRecord(const PlotRecord& record);

/// The statistics of the rose of a plot by the given formulas, from the tables of its data pass;
/// empty when it has none, or was never counted.
[[nodiscard]] std::optional<CircularResults> CircularResultsOf(const Plot& plot, Formulas formulas);

/// The total weight of the statistics of a rose: for frequencies the number of observations, for
/// other kinds the sum of the values, with the weights of a bias correction.
[[nodiscard]] double WeightOfStatistics(const PlotRecord& record);

} // namespace quandrel
