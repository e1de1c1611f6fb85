// SPDX-License-Identifier: MIT
//
// Parameter lines: lines of a data file that begin with "/" and set its format.
//
// An item is "/", a letter or digit in either case, and a value. The value of a name (D, F) or a
// path (X) goes up to the next tab; any other value is a number and ends at a blank, a tab or the
// next "/".
//
// Files that the program writes begin with ";Quandrel". Their columns are separated by tabs and are
// in the order of the format (column_order.h).

#pragma once

#include "core/data_format.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The first characters of the texts that the program writes.
inline constexpr std::string_view kOwnTextStart = ";Quandrel";

/// The number of characters of a name that are kept.
inline constexpr std::size_t kLongestItemName = 254;

/// Value of item 1 that leaves both formats to the old item code.
inline constexpr std::int16_t kOldFormats = 5;

/// The items of the parameter lines of a file. An item is empty when it is absent, has no value, or
/// has one out of its range.
struct ParameterItems {
    std::optional<std::int16_t> T;       ///< kind of data, a DataKindCode
    std::optional<std::int16_t> N;       ///< kind of plot, a PlotKindCode
    std::optional<std::int16_t> P;       ///< reserved
    std::optional<std::int16_t> one;     ///< a PrimaryFormatCode, or kOldFormats
    std::optional<std::int16_t> two;     ///< a SecondaryFormatCode
    std::optional<bool> S;               ///< the secondary data are shown
    std::optional<bool> A;               ///< lines hold an appended line
    std::optional<bool> L;               ///< lines hold an appended number
    std::optional<bool> W;               ///< lines hold an appended text
    std::optional<std::string> F;        ///< name of the number
    std::optional<std::string> D;        ///< name of the text
    std::optional<std::int16_t> I;       ///< old item code, above 0
    std::optional<std::int16_t> C;       ///< conventions
    std::optional<NegativePlunge> U;     ///< which end the trend beside a negative plunge names
    std::optional<CommentMarks> M;       ///< marks of comment lines, a sum: 1 "#", 2 "%", 4 "//"
    std::optional<bool> G;               ///< lines end with a place on the map: x, y
    std::vector<std::string> extraFiles; ///< X: paths of further data files
    bool isOwnText = false;              ///< the file begins with kOwnTextStart
};

/// Parses the items of a parameter line, or of several joined by tabs. Of repeated items the last
/// one counts. Items with other letters are skipped.
[[nodiscard]] ParameterItems ParseParameterLine(std::string_view text);

/// Parses the parameter lines of a text: those before its first line that is neither blank, nor a
/// comment, nor a parameter line.
///
/// @param marks  of comments, besides those that earlier parameter lines set
[[nodiscard]] ParameterItems ReadParameterLines(std::string_view text,
                                                const CommentMarks& marks = {});

/// Writes a parameter line: items separated by tabs, with the line end CR LF.
///
/// @param full  with the formats, the appended values and their names. Otherwise "/15" replaces
///              them, and rows hold only the primary orientation
///
/// P is written as 0, C as 1, U as 0, M not at all: rows are written in convention 1, with the
/// trends of lower ends. I is 2, or 1 for directions without their formats. Pitches, trends and
/// angles in a plane are written as the lines that they are read as. Inverse: ParseParameterLine.
[[nodiscard]] std::string BuildParameterText(const ParameterItems& items, bool full);

/// The format changed by the items, except those for a new plot.
///
/// Item I above 0, and item 1 of kOldFormats, first set both formats by the old code; the column
/// slots then follow from the format (ColumnsInOrder). Texts that the program wrote have the tab as
/// delimiter, no column headings, no pairs in cells and, unless they say otherwise, the trends of
/// lower ends and no marks of comments.
[[nodiscard]] FormatSettings WithFormatItems(FormatSettings settings, const ParameterItems& items);

/// The format changed by the items for a new plot: its kind, and which values are appended under
/// which names.
[[nodiscard]] FormatSettings WithNewPlotItems(FormatSettings settings, const ParameterItems& items);

/// The format after a text has been read. What the text says about the trends beside negative
/// plunges and about the marks of comments is limited to the text: the former settings return,
/// unless the user has chosen others meanwhile.
///
/// @param before  the format before the items of the text were applied
/// @param now     the format in which the text was read
[[nodiscard]] FormatSettings AfterText(const FormatSettings& before, const ParameterItems& items,
                                       FormatSettings now);

/// Applies WithFormatItems to the format in force.
void ApplyFormatItems(const ParameterItems& items);

/// Applies WithNewPlotItems to the format in force.
void ApplyNewPlotItems(const ParameterItems& items);

} // namespace quandrel
