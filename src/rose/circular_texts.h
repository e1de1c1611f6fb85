// SPDX-License-Identifier: MIT
//
// The circular statistics of a rose as texts, each with that of the textbook's formula.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"
#include "core/result_lines.h"
#include "rose/circular_statistics.h"

namespace quandrel {

/// Printed results with their units. Directions are undetermined where the resultant is 0.
struct CircularTexts {
    PrintedResult wholeMean;       ///< "050-230": whole degrees, of axial data both ends
    PrintedResult fineMean;        ///< "050.0 - 230.0"
    PrintedResult doubledMean;     ///< "100": whole degrees
    PrintedResult fineDoubledMean; ///< "100.0"
    PrintedResult median;          ///< as fineMean
    PrintedResult medianDeviation; ///< about the median
    PrintedResult deviation;
    PrintedResult dispersion;
    PrintedResult error;
    PrintedResult skewness;
    PrintedResult kurtosis;
    PrintedResult kappa;
};

/// An azimuth in whole degrees; for axial data the opposite one follows.
[[nodiscard]] std::string WholeAzimuthOf(double azimuth, AngleSense sense);

/// WholeAzimuthOf with one decimal.
[[nodiscard]] std::string FineAzimuthOf(double azimuth, AngleSense sense);

/// The texts of the rose of a plot, which must have circular statistics. Directions that differ by
/// a whole number of periods are equal, however they are printed.
///
/// @param formulas  of the statistics in the record. Without the tables of the rose only these are
///                  printed
[[nodiscard]] CircularTexts CircularTextsOf(const Plot& plot, Formulas formulas);

/// The confidence of the rose of a plot: its lines in the statistics, empty when there is none.
///
/// @param formulas  of the statistics in the record
[[nodiscard]] std::string ConfidenceLines(const Plot& plot, Formulas formulas);

} // namespace quandrel
