// SPDX-License-Identifier: MIT
//
// The first lines of a file, split by a data format.

#pragma once

#include "input/format_choice.h"

#include <array>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Number of lines of a file that the preview shows.
inline constexpr std::size_t kPreviewLines = 100;

/// Largest number of columns that the preview shows: as many as the settings can name.
inline constexpr int kPreviewColumns = 255;

/// What a line of the preview is.
enum class PreviewKind {
    Data,    ///< is read as a row
    Heading, ///< taken as the column headings
    NoData,  ///< holds no digit: the load skips it
    Other,   ///< blank, comment or parameter line
};

struct PreviewLine {
    std::string line;
    PreviewKind kind = PreviewKind::Data;
    std::vector<std::string> cells; ///< for Other the whole line as one cell
};

struct FormatPreview {
    std::vector<PreviewLine> lines;
    int columns = 0;     ///< most cells of a data line, else of the heading
    std::string heading; ///< the line of column headings, or empty

    /// The cell of the headings, or an empty text.
    [[nodiscard]] std::string HeadingOf(int column) const;
};

/// Splits lines by the delimiter of a choice. When the choice has column headings, the first line
/// that is neither blank nor a comment nor a parameter line is the heading.
[[nodiscard]] FormatPreview SplitPreview(std::span<const std::string> lines,
                                         const FormatChoice& choice);

/// The cells of a line, by a delimiter of the settings: empty means any.
[[nodiscard]] std::vector<std::string> CellsOfLine(const std::string& line,
                                                   const std::string& delimiter);

/// True when the first line that could be a row looks like column headings, whatever the delimiter:
/// it cannot be parsed as a row, it holds no number, and a later line does.
[[nodiscard]] bool SuggestsHeadings(std::span<const std::string> lines, const LineFormat& format);

/// The items of a column, as slots in order; empty for a column that is not used.
[[nodiscard]] std::vector<int> ItemsOfColumn(const FormatChoice& choice, int column);

} // namespace quandrel
