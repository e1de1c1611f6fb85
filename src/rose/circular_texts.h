// SPDX-License-Identifier: MIT
//
// The circular statistics of a rose as texts, each beside that of the textbook's formula.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"
#include "core/result_lines.h"
#include "rose/circular_statistics.h"

namespace quandrel {

/// Results as they are printed, with their units. Where the resultant is 0 directions are
/// undetermined.
struct CircularTexts {
    PrintedResult wholeMean; ///< "050-230": whole degrees, of axial data both ends
    PrintedResult fineMean;  ///< "050.0 - 230.0"
    PrintedResult doubledMean;
    PrintedResult median;          ///< as fineMean
    PrintedResult medianDeviation; ///< about it
    PrintedResult deviation;
    PrintedResult dispersion;
    PrintedResult error;
    PrintedResult skewness;
    PrintedResult kurtosis;
    PrintedResult kappa;
};

/// An azimuth in whole degrees; of axial data the opposite one after it.
[[nodiscard]] std::string WholeAzimuthOf(double azimuth, AngleSense sense);

/// WholeAzimuthOf with a decimal.
[[nodiscard]] std::string FineAzimuthOf(double azimuth, AngleSense sense);

/// The texts of the rose of a plot, which has circular statistics. Directions that are a whole
/// number of periods apart are the same, however they are printed.
///
/// @param formulas  of the statistics in the record. Without the tables of the rose they alone are
///                  printed
[[nodiscard]] CircularTexts CircularTextsOf(const Plot& plot, Formulas formulas);

/// The confidence of the rose of a plot: its lines in the statistics, empty when there is none.
///
/// @param formulas  of the statistics in the record
[[nodiscard]] std::string ConfidenceLines(const Plot& plot, Formulas formulas);

} // namespace quandrel
