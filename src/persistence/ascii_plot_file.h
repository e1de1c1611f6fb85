// SPDX-License-Identifier: MIT
//
// Plots as text files that the data file reader can read again without a question about their
// format.

#pragma once

#include "core/settings_value.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// How a text file has the orientations of rows with decimals.
enum class SavedDegrees : std::uint8_t {
    Measured, ///< with their decimals, at most six
    Whole,
};

/// The parameter line of gActivePlot, with its line end.
///
/// @param full  false leaves out everything about the formats: the rows are then plain directions
[[nodiscard]] std::string BuildParameterLine(bool full);

/// What a text file of a plot holds.
struct TextContents {
    SavedDegrees degrees = SavedDegrees::Measured;

    /// The non-data lines of the plot's files, at their positions, except for parameter lines and
    /// the head of a file that the program wrote.
    bool nonDataLines = gSettings.files.nonDataLines;
};

/// The main rows of gActivePlot as a text file: head lines, the parameter line, then a line for
/// each valid row with every value in its own field, separated by tabs. Planes are dip and dip
/// direction, lines plunge and trend, numbers have a decimal point. Angles have the decimals that
/// they were measured with, whether the plot uses them or not.
[[nodiscard]] std::string AsciiPlotText(const TextContents& contents = {});

enum class SaveKind { Save, SaveAs, SaveAll };

enum class SaveOutcome { Saved, Cancelled, Failed };

/// Saves gActivePlot, after any questions about its files and overlays: as a binary plot file if
/// the path has its extension, as a table with headings if it ends with ".csv", ".xlsx" or ".gpkg",
/// else as text. Asks for a path unless the plot has a binary file.
[[nodiscard]] SaveOutcome SaveAsciiPlot(SaveKind kind);

/// As SaveAsciiPlot, with a known path.
///
/// @param contents  of a text file; a binary plot file has whole and measured degrees
[[nodiscard]] SaveOutcome SavePlotAs(const std::string& target, SaveKind kind,
                                     const TextContents& contents = {});

} // namespace quandrel
