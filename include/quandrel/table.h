// SPDX-License-Identifier: MIT
//
// Reading text files of measurements into columns of values.
//
// Angles are degrees as in the text: nothing is rounded to whole degrees. Numbers may have a
// decimal point or comma.
//
// Example: planes as strike and dip by the right-hand rule, with the rock as a text.
//
//     namespace qd = quandrel::api;
//     qd::TableFormat format;
//     format.convention = qd::PlaneConvention::kStrikeDip;
//     format.delimiter = ',';
//     format.columns = {.dip = 1, .direction = 0, .text = 2};
//     format.hasText = true;
//     const qd::Table table = qd::ReadTable("030,45,gneiss\n35,70,slate\n400,10,\n", format);
//     std::cout << table.planes[0].dipDirection << ' ' << table.texts[1] << '\n'; // -> 120 slate
//     std::cout << table.refused[0].lineNumber << '\n'; // -> 3

#pragma once

#include "quandrel/notation.h"
#include "quandrel/orientation.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// What each line of a text measures.
enum class Primary {
    kDirections = 1, ///< azimuths
    kPlanes = 2,
    kLines = 3,
};

/// The second measurement of a line.
enum class Secondary {
    kNone = 0,
    /// Of a line in the plane, with the compass name of the end that it is measured from.
    kPitch = 1,
    kTrend = 2, ///< of a line in the plane
    kLine = 3,
    kPlane = 4,
    kAngle = 5, ///< in the plane from its strike to a line, as for LineAtPitch
};

/// Columns are separated by a comma, semicolon, tab or a run of blanks.
inline constexpr char kAnyDelimiter = '\0';

/// The column of each value, from 0. Those that the format does not use are ignored.
struct TableColumns {
    int dip = 0;       ///< or plunge
    int direction = 1; ///< dip direction, strike, or trend
    int sense = 2;     ///< of dip, if the convention has one; or directly after the dip
    int secondDip = 3;
    int secondDirection = 4; ///< or pitch, or angle
    int secondSense = 5;
    int linePlunge = 6;
    int lineTrend = 7;
    int number = 8;
    int text = 9;

    friend bool operator==(const TableColumns&, const TableColumns&) = default;
};

/// The layout of a text.
struct TableFormat {
    Primary primary = Primary::kPlanes;
    Secondary secondary = Secondary::kNone;
    PlaneConvention convention = PlaneConvention::kDipDirection; ///< how planes are written
    bool isQuadrant = false;            ///< azimuths are in quadrant notation
    char delimiter = '\t';              ///< a comma, semicolon, tab, blank, or kAnyDelimiter
    TableColumns columns;               ///< 0 to 254
    bool hasHeading = false;            ///< the first line that could be a row is a heading
    bool hasLine = false;               ///< a line is appended to each row
    bool hasNumber = false;             ///< and a number
    bool hasText = false;               ///< and a text
    bool secondaryMayBeMissing = false; ///< a row may leave its secondary line or plane empty
    bool decimalIsComma = false;        ///< decides for numbers with both delimiters
    bool trendsNameUpperEnds = false;   ///< for a negative plunge; else the lower end
    bool hasPairs = false;              ///< dip and direction in one cell, "045/60NE": both columns
                                        ///< of an orientation are then the same
    bool pairsAreTrendFirst = false;    ///< lines in pairs are trend and plunge
    std::string commentMarks;           ///< what else begins a comment: any of "#", "%", "//"

    friend bool operator==(const TableFormat&, const TableFormat&) = default;
};

/// A line that is not a row.
struct RefusedLine {
    std::size_t lineNumber = 0; ///< from 1
    std::string reason;
};

/// The rows of a text. All columns of the format are as long as `lineNumbers`, the others are
/// empty. A value that a row does not have is NaN.
struct Table {
    std::vector<std::size_t> lineNumbers; ///< line numbers of the rows, from 1

    std::vector<Plane> planes; ///< dips -90 to 90, dip directions 0 to below 360
    std::vector<Line> lines;   ///< also for directions, with the plunge 0

    std::vector<Plane> secondPlanes;
    std::vector<Line> secondLines; ///< however they were measured

    std::vector<Line> appendedLines;
    std::vector<double> numbers;
    std::vector<std::string> texts;

    std::string heading;              ///< the heading line
    std::vector<RefusedLine> refused; ///< without blank lines, comments (";", "*") and parameter
                                      ///< lines ("/")
};

/// Reads the rows of a text.
///
/// @param text  UTF-8, see DecodedText; lines end with CR, LF or CR LF
///
/// O(length of the text).
[[nodiscard]] Table ReadTable(std::string_view text, const TableFormat& format);

/// The format changed by the parameter lines at the head of a text. Such lines begin with "/"; the
/// program writes them.
[[nodiscard]] TableFormat FormatOfText(std::string_view text, const TableFormat& format);

/// The bytes of a file as UTF-8 without a byte-order mark: they may be UTF-8, UTF-16 with a mark,
/// or else Windows-1252.
[[nodiscard]] std::string DecodedText(std::string bytes);

} // namespace quandrel::api
