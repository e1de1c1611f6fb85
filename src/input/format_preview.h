// SPDX-License-Identifier: MIT
//
// The first lines of a file as a data format splits them.

#pragma once

#include "input/format_choice.h"

#include <array>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Lines of a file that the preview shows.
inline constexpr std::size_t kPreviewLines = 100;

/// Columns that the preview shows at most: as far as the settings can name them.
inline constexpr int kPreviewColumns = 255;

/// What a line of the preview is.
enum class PreviewKind {
    Data,    ///< is read as a row
    Heading, ///< taken as the column headings
    NoData,  ///< holds no digit: skipped by the load
    Other,   ///< blank, comment or parameter line
};

struct PreviewLine {
    std::string line;
    PreviewKind kind = PreviewKind::Data;
    std::vector<std::string> cells; ///< the line itself in one piece for Other
};

struct FormatPreview {
    std::vector<PreviewLine> lines;
    int columns = 0;     ///< most cells of a data line, or of the heading when there is none
    std::string heading; ///< the line of column headings, or empty

    /// The cell of the headings, or an empty text.
    [[nodiscard]] std::string HeadingOf(int column) const;
};

/// Splits lines by the delimiter of a choice. The first line that is neither blank nor a comment
/// nor a parameter line is the heading when the choice has column headings.
[[nodiscard]] FormatPreview SplitPreview(std::span<const std::string> lines,
                                         const FormatChoice& choice);

/// The cells of a line, by a delimiter of the settings: empty is any.
[[nodiscard]] std::vector<std::string> CellsOfLine(const std::string& line,
                                                   const std::string& delimiter);

/// True when lines look as if the first of them that could be a row were column headings, whatever
/// parts the columns: it does not read as a row in the format, it holds no number, and a later line
/// does.
[[nodiscard]] bool SuggestsHeadings(std::span<const std::string> lines, const LineFormat& format);

/// The items that a column serves, as slots in order; empty for a column that is not read.
[[nodiscard]] std::vector<int> ItemsOfColumn(const FormatChoice& choice, int column);

} // namespace quandrel
