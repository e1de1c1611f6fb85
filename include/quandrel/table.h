// SPDX-License-Identifier: MIT
//
// Reading text files of measurements: lines of text to columns of values.
//
// Angles are degrees, as the text has them: nothing is rounded to whole degrees. Numbers may have a
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

/// What it measures besides.
enum class Secondary {
    kNone = 0,
    kPitch =
        1, ///< of a line in the plane, with the compass name of the end that it is counted from
    kTrend = 2, ///< of a line in the plane
    kLine = 3,
    kPlane = 4,
    kAngle = 5, ///< in the plane from its strike to a line, as of LineAtPitch
};

/// Any of comma, semicolon, tab or a run of blanks parts columns.
inline constexpr char kAnyDelimiter = '\0';

/// Which column holds what, from 0. Those that the format does not use do not matter.
struct TableColumns {
    int dip = 0;       ///< or plunge
    int direction = 1; ///< dip direction, strike, or trend
    int sense = 2;     ///< of dip, in the conventions that have one; it may follow the dip directly
    int secondDip = 3;
    int secondDirection = 4; ///< or pitch, or angle
    int secondSense = 5;
    int linePlunge = 6;
    int lineTrend = 7;
    int number = 8;
    int text = 9;

    friend bool operator==(const TableColumns&, const TableColumns&) = default;
};

/// How a text is laid out.
struct TableFormat {
    Primary primary = Primary::kPlanes;
    Secondary secondary = Secondary::kNone;
    PlaneConvention convention = PlaneConvention::kDipDirection; ///< what the azimuth of planes is
    bool isQuadrant = false;            ///< azimuths are in quadrant notation
    char delimiter = '\t';              ///< a comma, semicolon, tab, blank, or kAnyDelimiter
    TableColumns columns;               ///< 0 to 254
    bool hasHeading = false;            ///< the first line that could be a row is a heading
    bool hasLine = false;               ///< a line is appended to each row
    bool hasNumber = false;             ///< and a number
    bool hasText = false;               ///< and a text
    bool secondaryMayBeMissing = false; ///< a row may leave its secondary line or plane empty
    bool decimalIsComma = false;        ///< decides for numbers with both delimiters
    bool trendsNameUpperEnds = false;   ///< the trend of a line with a negative plunge is that of
                                        ///< the end that it points to

    friend bool operator==(const TableFormat&, const TableFormat&) = default;
};

/// A line that is no row.
struct RefusedLine {
    std::size_t lineNumber = 0; ///< from 1
    std::string reason;
};

/// The rows of a text. All columns that the format has are as long as `lineNumbers`, the others are
/// empty. What a row does not have is NaN.
struct Table {
    std::vector<std::size_t> lineNumbers; ///< of the rows, from 1

    std::vector<Plane> planes; ///< dips -90 to 90, dip directions 0 to below 360
    std::vector<Line> lines;   ///< of directions too, whose plunges are 0

    std::vector<Plane> secondPlanes;
    std::vector<Line> secondLines; ///< whatever they were measured as

    std::vector<Line> appendedLines;
    std::vector<double> numbers;
    std::vector<std::string> texts;

    std::string heading;              ///< the line of it
    std::vector<RefusedLine> refused; ///< without blank lines, comments (";", "*") and parameter
                                      ///< lines ("/")
};

/// Reads a text.
///
/// @param text  UTF-8, see DecodedText; lines end in CR, LF or CR LF
///
/// O(length of the text).
[[nodiscard]] Table ReadTable(std::string_view text, const TableFormat& format);

/// The format with what the parameter lines at the head of a text say of it. Such lines begin with
/// "/"; the program writes them.
[[nodiscard]] TableFormat FormatOfText(std::string_view text, const TableFormat& format);

/// The bytes of a file as UTF-8 without a mark: they may be UTF-8, UTF-16 with a mark, or else
/// Windows-1252.
[[nodiscard]] std::string DecodedText(std::string bytes);

} // namespace quandrel::api
