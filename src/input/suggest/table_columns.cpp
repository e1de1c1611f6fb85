// SPDX-License-Identifier: MIT

#include "input/suggest/table_columns.h"

#include "input/format_preview.h"
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

constexpr std::array kTriedDelimiters = {"\t", ";", ",", " ", ""};

bool IsPassedOver(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) {
        return true;
    }
    constexpr std::string_view kMarks = ";*#%/";
    return kMarks.find(line[first]) != std::string_view::npos;
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

Rows Divided(std::span<const std::string> lines, const std::string& delimiter) {
    Rows rows;
    for (const std::string& line : lines) {
        if (!IsPassedOver(line)) {
            rows.push_back(CellsOfLine(line, delimiter));
        }
    }
    return rows;
}

/// A row without a number or a direction in any cell, but with a word.
bool IsHeading(const std::vector<std::string>& row) {
    return !row.empty() && std::ranges::none_of(row, [](const std::string& cell) {
        return NumberOfCell(cell) || QuadrantDegrees(cell);
    });
}

/// The part of a cell before a sense: "45" of "45 SE". Nothing without a sense.
std::optional<double> DipBeforeSense(const std::string& cell) {
    std::string_view number;
    std::string_view letters;
    const bool hasSense =
        SplitSenseLetters(cell, number, letters) && !letters.empty() && IsValidSense(letters);
    return hasSense ? NumberOfCell(number) : std::nullopt;
}

void TakeNumber(double value, ColumnEvidence& column) {
    const bool isFirst = column.numbers + column.dipsWithSense == 1;
    column.least = isFirst ? value : std::min(column.least, value);
    column.most = isFirst ? value : std::max(column.most, value);
}

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
    std::size_t width = 0;
    std::size_t agreeing = 0;
    for (const char* delimiter : kTriedDelimiters) {
        Rows rows = Divided(lines, delimiter);
        const auto [usual, count] = UsualWidth(rows);
        // Nine of ten lines have to agree; a later delimiter must do better.
        if (usual > 1 && 10 * count >= 9 * rows.size() && count > agreeing) {
            best.rows = std::move(rows);
            best.delimiter = delimiter;
            width = usual;
            agreeing = count;
        }
    }
    if (best.rows.empty()) {
        return std::nullopt;
    }
    std::vector<std::string> headings;
    if (IsHeading(best.rows.front())) {
        headings = best.rows.front();
        best.hasHeadings = true;
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
