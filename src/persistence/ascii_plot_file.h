// SPDX-License-Identifier: MIT
//
// Plots as text files that the data file reader reads again without being told their format.

#pragma once

#include <string>

namespace quandrel {

/// The parameter line of gActivePlot, with its line end.
///
/// @param full  false leaves out everything about the formats: the rows are then plain directions
[[nodiscard]] std::string BuildParameterLine(bool full);

/// The main rows of gActivePlot as a text file: head lines, the parameter line, then a line for
/// each valid row with every value in a field of its own, parted by tabs. Planes are dip and dip
/// direction, lines plunge and trend, numbers have a decimal point. With FileSettings::nonDataLines
/// the lines of the plot's files that are no data stand in their places among them, but for
/// parameter lines and the head of a file that the program wrote.
[[nodiscard]] std::string AsciiPlotText();

enum class SaveKind { Save, SaveAs, SaveAll };

enum class SaveOutcome { Saved, Cancelled, Failed };

/// Saves gActivePlot, after the questions that its files and overlays call for: as a binary plot
/// file where the path ends so, else as text. A path is asked for unless the plot has a binary one.
[[nodiscard]] SaveOutcome SaveAsciiPlot(SaveKind kind);

/// As SaveAsciiPlot, to a path that is known.
[[nodiscard]] SaveOutcome SavePlotAs(const std::string& target, SaveKind kind);

} // namespace quandrel
