// SPDX-License-Identifier: MIT
//
// Parameter lines: lines of a data file that begin with "/" and set its format.
//
// An item is "/", a letter or digit in either case, and a value. The value of a name (D, F) or a
// path (X) goes up to the next tab; any other value is a number and ends at a blank, a tab or the
// next "/".
//
// The files that the program writes begin with ";Quandrel": their columns are parted by tabs and
// stand in the order of the format (column_order.h).

#pragma once

#include "core/data_format.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// How the program's own texts begin.
inline constexpr std::string_view kOwnTextStart = ";Quandrel";

/// Characters of a name that are kept.
inline constexpr std::size_t kLongestItemName = 254;

/// Value of the item 1 that stands for all formats: the old item code tells them.
inline constexpr std::int16_t kOldFormats = 5;

/// The items of the parameter lines of a file. One that is not there, has no value, or one out of
/// its range, is empty.
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
    std::optional<NegativePlunge> U;     ///< what the trend beside a negative plunge names
    std::vector<std::string> extraFiles; ///< X: paths of further data files
    bool isOwnText = false;              ///< the file begins with kOwnTextStart
};

/// Reads the items of a parameter line, or of several joined by tabs. The last of several like
/// items counts. Items with other letters are skipped.
[[nodiscard]] ParameterItems ParseParameterLine(std::string_view text);

/// Reads the parameter lines of a text: those before its first line that is neither blank, nor a
/// comment, nor a parameter line.
[[nodiscard]] ParameterItems ReadParameterLines(std::string_view text);

/// Writes a parameter line, tabs between its items, with its line end CR LF.
///
/// @param full  with the formats, the appended values and their names. Otherwise "/15" stands for
///              them, and rows hold the primary orientation alone
///
/// P is written as 0, C as 1, U as 0: rows are written in convention 1, with the trends of lower
/// ends. I is 2; 1 for directions without
/// their formats. Pitches, trends and angles in a plane are written as the lines that they are read
/// as. Inverse: ParseParameterLine.
[[nodiscard]] std::string BuildParameterText(const ParameterItems& items, bool full);

/// The format with what the items say of it, but for what belongs to a new plot.
///
/// Item I above 0, and item 1 of kOldFormats, first set both formats by the old code, and at the
/// end the column slots follow from the format (ColumnsInOrder). The program's own texts have the
/// tab for delimiter, no column headings and, where they do not say otherwise, the trends of lower
/// ends.
[[nodiscard]] FormatSettings WithFormatItems(FormatSettings settings, const ParameterItems& items);

/// The format with what the items say of a new plot: its kind, and which values are appended under
/// which names.
[[nodiscard]] FormatSettings WithNewPlotItems(FormatSettings settings, const ParameterItems& items);

/// What a text says of the trends beside negative plunges holds for that text alone: at the end of
/// the block that reads it the setting is as it was, unless the user has changed it meanwhile.
class OwnWordOnUpwardLines {
public:
    /// @param items  those of the text, before they are applied
    explicit OwnWordOnUpwardLines(const ParameterItems& items);
    ~OwnWordOnUpwardLines();
    OwnWordOnUpwardLines(const OwnWordOnUpwardLines&) = delete;
    OwnWordOnUpwardLines& operator=(const OwnWordOnUpwardLines&) = delete;

private:
    NegativePlunge former_;
    NegativePlunge ofText_;
};

/// WithFormatItems on the format in force.
void ApplyFormatItems(const ParameterItems& items);

/// WithNewPlotItems on the format in force.
void ApplyNewPlotItems(const ParameterItems& items);

} // namespace quandrel
