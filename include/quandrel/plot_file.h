// SPDX-License-Identifier: MIT
//
// Plots as values, from binary plot files (.qpx) and into them.
//
// Angles are degrees. Results of the program start from whole degrees, unless a plot uses decimals;
// a plot file keeps up to six decimals in addition. A row that has no value in a column holds NaN
// there; a line of the data file that held no data is a row of NaN.
//
// Example: beds and a line of another set, written and read again.
//
//     namespace qd = quandrel::api;
//     qd::Plot plot;
//     plot.fabric = "S0";
//     plot.rows.planes = {{40, 120}, {38.4, 118}};
//     plot.overlays = {{qd::OverlayKind::kLines, {}}};
//     plot.overlays[0].rows.lines = {{12, 31}};
//     const qd::Result<std::string> bytes = qd::PlotBytes(plot);
//     const qd::Result<qd::Plot> again = qd::ReadPlot(*bytes);
//     std::cout << again->fabric << ' ' << again->rows.planes[1].dip << '\n'; // -> S0 38.4
//     std::cout << again->overlays[0].rows.lines[0].trend << '\n'; // -> 31
//     std::cout << qd::ReadPlot("a letter").Error() << '\n'; // -> It is not a binary plot file.

#pragma once

#include "quandrel/orientation.h"
#include "quandrel/result.h"
#include "quandrel/table.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// What a plot is drawn on.
enum class PlotKind {
    kEqualArea = 1,
    kEqualAngle = 2,
    kRose = 3,
};

/// What the main rows are drawn as.
enum class DrawnAs {
    kPlanes = 1,
    kLines = 2,
    kPolarLines = 3,
};

/// How the main rows appear on a net. Roses leave it aside.
enum class RowsAs {
    kGreatCircles = 0,
    kPoints = 1,
    kIntersections = 3,       ///< lines in which the planes meet
    kPointDensities = 4,      ///< points by the density about each
    kDensities = 5,           ///< symbols on a grid
    kContours = 6,            ///< of the densities
    kContoursOnDensities = 7, ///< both
};

/// What the rows of an overlay are, and are drawn as.
enum class OverlayKind {
    kGreatCircles = 0, ///< of planes
    kPoles = 1,        ///< of planes
    kLines = 2,
    kPolarLines = 3,
};

/// The most overlays of a plot, and the most rows of one.
inline constexpr std::size_t kMostOverlays = 20;
inline constexpr std::size_t kMostOverlayRows = 32767;

/// A row that held no data.
struct UnreadRow {
    std::size_t row = 0; ///< from 0
    std::string text;    ///< the line of the data file; empty where the file does not tell it

    friend bool operator==(const UnreadRow&, const UnreadRow&) = default;
};

/// The formulas of a plot's statistics, where the program's own definitions and the textbook's
/// differ.
enum class PlotFormulas {
    kOfPreferences = 0, ///< no choice: the program follows its preferences, DrawPlot its own
    kOwn = 1,
    kTextbook = 2,
};

/// Rows as arrays. Either planes or lines are as many as there are rows, the other is empty; so it
/// is with the second ones. Each of the other columns has all rows, or is empty.
///
/// Dips and plunges are -90 to 90, a line that points up as of Line; azimuths are 0 to 360.
struct PlotRows {
    std::vector<Plane> planes;
    std::vector<Line> lines; ///< of directions too, whose plunges are 0

    std::vector<Plane> secondPlanes;
    std::vector<Line> secondLines; ///< whatever they were measured as

    std::vector<Line> appendedLines;
    std::vector<double> numbers; ///< kept as 32-bit floats
    std::vector<std::string> texts;

    std::vector<UnreadRow> unread; ///< rows of NaN
};

/// A further set of rows in a plot. Appended columns of it are not kept.
struct PlotOverlay {
    OverlayKind kind = OverlayKind::kPoles;
    PlotRows rows;
};

/// A plot.
struct Plot {
    PlotKind kind = PlotKind::kEqualArea;
    DrawnAs drawnAs = DrawnAs::kPlanes;
    RowsAs rowsAs = RowsAs::kPoints;
    Primary primary = Primary::kPlanes;
    Secondary secondary = Secondary::kNone;
    bool showsSecondary = false; ///< the second orientations are drawn instead
    bool usesDecimals = false;   ///< drawings and results use decimals, not whole degrees
    PlotFormulas formulas = PlotFormulas::kOfPreferences;
    std::string axesTitle; ///< of derived axes, such as P and T; empty for measured rows
    std::string fabric;
    std::string description;
    std::string numberName = "value";
    std::string textName = "type";
    bool numberIsFrequency = false;
    PlotRows rows;
    std::vector<PlotOverlay> overlays;
    std::string version; ///< that saved it, such as "9.51"; plays no part in writing

    /// What of the file was damaged and is left out, such as its decimals, a sentence each. Plays
    /// no part in writing.
    std::vector<std::string> leftOut;
};

/// The plot that the bytes of a file hold. Of the file's settings, results and marks nothing is
/// given.
///
/// Files of every version from 7.0 on are read. Bytes that are damaged, or that hold what no plot
/// can have, are a failure. Memory taken is at most a small multiple of the bytes.
[[nodiscard]] Result<Plot> ReadPlot(std::string_view bytes);

/// ReadPlot of a file. A file that cannot be read is a failure too.
///
/// @param path  UTF-8
[[nodiscard]] Result<Plot> ReadPlotFile(const std::string& path);

/// A plot as the bytes of a file. What a Plot does not say is as in a new plot of the program.
///
/// Orientations are rounded to 1e-6 degree, and are stored beside their whole degrees (halves to
/// even), which are all that earlier versions of the program read. A row whose dip or plunge is NaN
/// is one without data. Texts longer than 32767 bytes are a failure. Arrays of lengths that do not
/// fit each other, angles out of their range, too many overlays or rows of one throw
/// std::invalid_argument. Inverse: ReadPlot.
[[nodiscard]] Result<std::string> PlotBytes(const Plot& plot);

/// Writes PlotBytes into a file. What was there stays until the new file is whole.
///
/// @param path  UTF-8
/// @return the number of bytes
[[nodiscard]] Result<std::size_t> WritePlotFile(const Plot& plot, const std::string& path);

} // namespace quandrel::api
