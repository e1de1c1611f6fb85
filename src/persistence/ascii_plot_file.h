// SPDX-License-Identifier: MIT
//
// Plots as text files that the data file reader can read again without a question about their
// format.

#pragma once

#include "core/settings_value.h"

#include <string>

namespace quandrel {

/// The parameter line of gActivePlot, with its line end.
///
/// @param full  false leaves out everything about the formats: the rows are then plain directions
[[nodiscard]] std::string BuildParameterLine(bool full);

/// The main rows of gActivePlot as a text file: head lines, the parameter line, then a line for
/// each valid row with every value in its own field, separated by tabs. Planes are dip and dip
/// direction, lines plunge and trend, numbers have a decimal point.
///
/// @param withNonDataLines  includes the non-data lines of the plot's files at their positions,
///                          except for parameter lines and the head of a file that the program
///                          wrote
[[nodiscard]] std::string AsciiPlotText(bool withNonDataLines = gSettings.files.nonDataLines);

enum class SaveKind { Save, SaveAs, SaveAll };

enum class SaveOutcome { Saved, Cancelled, Failed };

/// Saves gActivePlot, after any questions about its files and overlays: as a binary plot file if
/// the path has its extension, else as text. Asks for a path unless the plot has a binary file.
[[nodiscard]] SaveOutcome SaveAsciiPlot(SaveKind kind);

/// As SaveAsciiPlot, with a known path.
///
/// @param withNonDataLines  as of AsciiPlotText, if the plot is saved as text
[[nodiscard]] SaveOutcome SavePlotAs(const std::string& target, SaveKind kind,
                                     bool withNonDataLines = gSettings.files.nonDataLines);

} // namespace quandrel
