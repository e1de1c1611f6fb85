// SPDX-License-Identifier: MIT

#include "input/suggest/table_columns.h"

#include "input/format_preview.h"
#include "input/paired_cell.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

constexpr std::array kTriedDelimiters = {"\t", ";", ",", " ", "", "/"};

std::string_view WithoutIndent(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t\r\n"), line.size()));
    return line;
}

/// The marks of comments, which fewer than half of the lines begin with.
CommentMarks MarksOf(std::span<const std::string> lines) {
    const auto isFew = [&](const CommentMarks& mark) {
        std::size_t marked = 0;
        std::size_t written = 0;
        for (const std::string& line : lines) {
            const std::string_view text = WithoutIndent(line);
            marked += BeginsWithMark(text, mark) ? 1U : 0U;
            written += text.empty() ? 0U : 1U;
        }
        return marked > 0 && 2 * marked < written;
    };
    return {isFew({true, false, false}), isFew({false, true, false}), isFew({false, false, true})};
}

bool IsPassedOver(std::string_view line, const CommentMarks& marks) {
    const std::string_view text = WithoutIndent(line);
    constexpr std::string_view kAlways = ";*/";
    return text.empty() || kAlways.find(text.front()) != std::string_view::npos
           || BeginsWithMark(text, marks);
}

using Rows = std::vector<std::vector<std::string>>;

/// The number of cells that most rows have, and how many rows have it.
std::pair<std::size_t, std::size_t> UsualWidth(const Rows& rows) {
    std::map<std::size_t, std::size_t> counts;
    for (const auto& row : rows) {
        ++counts[row.size()];
    }
    std::pair<std::size_t, std::size_t> best{0, 0};
    for (const auto& [width, count] : counts) {
        if (count > best.second) {
            best = {width, count};
        }
    }
    return best;
}

/// The rows from the first one of a width on: titles may stand before it.
std::span<const std::vector<std::string>> FromWidth(const Rows& rows, std::size_t width) {
    const auto first = std::ranges::find(rows, width, &std::vector<std::string>::size);
    return {first, rows.end()};
}

bool EndsWithSeparator(const std::string& cell) {
    return cell.ends_with(',') || cell.ends_with(';');
}

Rows Divided(std::span<const std::string> lines, const std::string& delimiter,
             const CommentMarks& marks) {
    Rows rows;
    for (const std::string& line : lines) {
        if (!IsPassedOver(line, marks)) {
            rows.push_back(CellsOfLine(line, delimiter));
            if (delimiter == " " && std::ranges::any_of(rows.back(), EndsWithSeparator)) {
                rows.back().clear(); // "13, N51E" has another delimiter
            }
        }
    }
    return rows;
}

/// The part of a cell before a sense: "45" of "45 SE". Nothing without a sense.
std::optional<double> DipBeforeSense(const std::string& cell) {
    std::string_view number;
    std::string_view letters;
    const bool hasSense =
        SplitSenseLetters(cell, number, letters) && !letters.empty() && IsValidSense(letters);
    return hasSense ? NumberOfCell(number) : std::nullopt;
}

bool IsAngle(std::string_view text) {
    return NumberOfCell(text) || QuadrantDegrees(text) || DipBeforeSense(std::string(text));
}

/// A row without a number, a direction or a pair of them in any cell.
bool IsHeading(const std::vector<std::string>& row) {
    return !row.empty() && std::ranges::none_of(row, [](const std::string& cell) {
        const auto pair = SplitPair(cell);
        return IsAngle(cell) || (pair && IsAngle(pair->first) && IsAngle(pair->second));
    });
}

bool HoldsDigit(const std::string& text) {
    return text.find_first_of("0123456789") != std::string::npos;
}

/// The last of the lines before the rows that has a heading for each column; titles may stand
/// before it.
std::vector<std::string> HeadingsBeforeRows(const Rows& rows, std::size_t width) {
    std::vector<std::string> headings;
    for (const std::vector<std::string>& row : rows) {
        if (row.size() == width && !IsHeading(row)) {
            break;
        }
        if (row.size() >= width && IsHeading(row)) {
            headings = row;
        }
    }
    return headings;
}

/// The headings in the last comment before the rows, if it has at least one for each column.
std::vector<std::string> HeadingsInComment(std::span<const std::string> lines,
                                           const CommentMarks& marks, std::size_t width) {
    std::string_view last;
    for (const std::string& line : lines) {
        const std::string_view text = WithoutIndent(line);
        const bool isComment = IsPassedOver(line, marks);
        if (!isComment && HoldsDigit(line)) {
            break; // the first row
        }
        last = isComment && !text.empty() ? text : last;
    }
    constexpr std::string_view kMarks = ";*#%/ \t";
    last.remove_prefix(std::min(last.find_first_not_of(kMarks), last.size()));
    for (const char* delimiter : kTriedDelimiters) {
        std::vector<std::string> cells = CellsOfLine(std::string(last), delimiter);
        const bool hasTerm = std::ranges::any_of(cells, [](const std::string& cell) {
            return MeaningOfHeading(cell) != HeadingMeaning::None;
        });
        if (cells.size() >= width && IsHeading(cells) && hasTerm) {
            return cells;
        }
    }
    return {};
}

void TakeNumber(double value, ColumnEvidence& column) {
    const bool isFirst = column.numbers + column.dipsWithSense == 1;
    constexpr double kSteepest = 90;
    constexpr double kFullTurn = 360;
    column.steep += std::abs(value) <= kSteepest ? 1U : 0U;
    column.turns += value >= 0 && value <= kFullTurn ? 1U : 0U;
    column.least = isFirst ? value : std::min(column.least, value);
    column.most = isFirst ? value : std::max(column.most, value);
}

bool RisesEvenly(const Rows& rows, std::size_t column) {
    constexpr std::size_t kLeastRows = 4;
    std::optional<double> last;
    std::optional<double> step;
    std::size_t count = 0;
    for (const auto& row : rows) {
        const auto number = column < row.size() ? NumberOfCell(row[column]) : std::nullopt;
        if (!number) {
            return false;
        }
        if (last) {
            const double now = *number - *last;
            if (now <= 0 || (step && std::abs(now - *step) > 1e-9)) {
                return false;
            }
            step = now;
        }
        last = number;
        ++count;
    }
    return count >= kLeastRows;
}

bool HasDecimalCommas(const Rows& rows) {
    std::ptrdiff_t commas = 0;
    std::ptrdiff_t points = 0;
    for (const auto& row : rows) {
        for (const std::string& cell : row) {
            const bool isNumber = NumberOfCell(cell) || DipBeforeSense(cell);
            commas += isNumber ? std::ranges::count(cell, ',') : 0;
            points += isNumber ? std::ranges::count(cell, '.') : 0;
        }
    }
    return commas > points;
}

std::vector<ColumnEvidence> EvidenceOf(const TextTable& table, std::size_t width,
                                       const std::vector<std::string>& headings) {
    std::vector<ColumnEvidence> columns(width);
    for (std::size_t i = 0; i < width; ++i) {
        ColumnEvidence& column = columns[i];
        column.heading = i < headings.size() ? headings[i] : std::string();
        column.meaning = MeaningOfHeading(column.heading);
        for (const auto& row : table.rows) {
            if (i < row.size()) {
                TakeCell(row[i], column);
            }
        }
        column.rises = RisesEvenly(table.rows, i);
    }
    return columns;
}

} // namespace

void TakeCell(const std::string& cell, ColumnEvidence& column) {
    if (cell.empty()) {
        return;
    }
    ++column.filled;
    if (const auto number = NumberOfCell(cell)) {
        ++column.numbers;
        TakeNumber(*number, column);
    } else if (const auto dip = DipBeforeSense(cell)) {
        ++column.dipsWithSense;
        TakeNumber(*dip, column);
    } else if (IsValidSense(cell)) {
        ++column.senses;
    } else if (QuadrantDegrees(cell)) {
        ++column.quadrants;
    }
}

std::optional<double> NumberOfCell(std::string_view cell) {
    std::string text(WithoutBlanks(cell));
    for (const std::string_view degree : {"°", "º"}) {
        if (text.ends_with(degree)) {
            text.resize(text.size() - degree.size());
        }
    }
    if (std::ranges::count(text, ',') == 1 && text.find('.') == std::string::npos) {
        std::ranges::replace(text, ',', '.');
    }
    return text.empty() ? std::nullopt : ReadNumber(text);
}

std::optional<TextTable> TableOfText(std::span<const std::string> lines) {
    TextTable best;
    best.comments = MarksOf(lines);
    std::size_t width = 0;
    std::size_t agreeing = 0;
    for (const std::size_t least : {std::size_t{2}, std::size_t{1}}) {
        for (const char* delimiter : kTriedDelimiters) {
            Rows rows = Divided(lines, delimiter, best.comments);
            const auto [usual, count] = UsualWidth(rows);
            // Nine of ten lines have to agree; a later delimiter must do better by some lines.
            const std::size_t rowsBelow = FromWidth(rows, usual).size();
            if (usual >= least && 10 * count >= 9 * rowsBelow
                && count > agreeing + rowsBelow / 50) {
                best.rows = std::move(rows);
                best.delimiter = delimiter;
                width = usual;
                agreeing = count;
            }
        }
        if (agreeing > 0) {
            break;
        }
    }
    if (best.rows.empty()) {
        return std::nullopt;
    }
    std::vector<std::string> headings = HeadingsBeforeRows(best.rows, width);
    // The first line is taken for headings where it is; a title with a digit would be a bad row.
    best.hasHeadings =
        IsHeading(best.rows.front())
        && (headings == best.rows.front() || std::ranges::any_of(best.rows.front(), HoldsDigit));
    if (headings.empty()) {
        headings = HeadingsInComment(lines, best.comments, width);
    }
    std::erase_if(best.rows,
                  [width](const auto& row) { return row.size() != width || IsHeading(row); });
    if (best.rows.empty()) {
        return std::nullopt;
    }
    best.columns = EvidenceOf(best, width, headings);
    best.decimalIsComma = HasDecimalCommas(best.rows);
    return best;
}

} // namespace quandrel
