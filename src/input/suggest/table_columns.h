// SPDX-License-Identifier: MIT
//
// A text as a table, and what its columns hold.

#pragma once

#include "core/format_settings.h"
#include "input/suggest/heading_terms.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// What the cells of a column are.
struct ColumnEvidence {
    std::string heading; ///< as the text has it
    HeadingMeaning meaning = HeadingMeaning::None;
    std::size_t filled = 0;
    std::size_t numbers = 0;       ///< cells that are numbers, with a point or a comma
    std::size_t quadrants = 0;     ///< "N30E"
    std::size_t senses = 0;        ///< "SE"
    std::size_t dipsWithSense = 0; ///< "45 SE"
    std::size_t steep = 0;         ///< numbers that can be a dip: -90 to 90
    std::size_t turns = 0;         ///< numbers that can be an azimuth: 0 to 360
    double least = 0;              ///< of the numbers, those before a sense included
    double most = 0;
    bool rises = false; ///< evenly from row to row, as identifiers do

    /// Whether a kind of cell is most of the filled ones: nine of ten.
    [[nodiscard]] bool IsMostly(std::size_t count) const { return 10 * count >= 9 * filled; }
};

/// The cells of some rows of a text.
struct TextTable {
    std::string delimiter;       ///< as FormatChoice::delimiter
    bool hasHeadings = false;    ///< as a line of their own; else they may be in the last comment
    CommentMarks comments;       ///< that some lines begin with
    bool decimalIsComma = false; ///< most of the numbers with decimals have a comma
    std::vector<std::vector<std::string>> rows; ///< without headings
    std::vector<ColumnEvidence> columns;
};

/// Adds a cell to what is known of its column.
void TakeCell(const std::string& cell, ColumnEvidence& column);

/// The number of a cell, with a decimal point or comma, and perhaps a degree sign.
[[nodiscard]] std::optional<double> NumberOfCell(std::string_view cell);

/// Divides lines into cells by the delimiter by which most lines have as many, and more than one
/// unless no delimiter does. Blank lines, comments and parameter lines are passed over; further
/// headings between rows as well. Nothing for a text without a row.
[[nodiscard]] std::optional<TextTable> TableOfText(std::span<const std::string> lines);

} // namespace quandrel
