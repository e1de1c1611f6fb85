// SPDX-License-Identifier: MIT

#include "input/format_preview.h"

#include "input/data_line.h"
#include "input/line_tokens.h"
#include "orientation/number_text.h"

#include <algorithm>

namespace quandrel {

namespace {

std::vector<std::string> Split(const std::string& line, char delimiter) {
    std::vector<std::string> cells;
    const std::string_view text = WithoutLeadingBlanks(line, delimiter);
    std::size_t position = 0;
    std::string cell;
    while (cells.size() < static_cast<std::size_t>(kPreviewColumns)
           && NextToken(text, position, cell, delimiter)) {
        cells.push_back(cell);
    }
    return cells;
}

/// True when a piece of the line is a number, whatever the delimiter.
bool HoldsNumber(const std::string& line) {
    const std::vector<std::string> cells = Split(line, kAnyDelimiter);
    return std::any_of(cells.begin(), cells.end(),
                       [](const std::string& cell) { return ReadNumber(cell).has_value(); });
}

PreviewKind KindOf(LineStatus status) {
    if (IsOfHead(status)) {
        return PreviewKind::Other;
    }
    return status == LineStatus::NotData ? PreviewKind::NoData : PreviewKind::Data;
}

} // namespace

std::string FormatPreview::HeadingOf(int column) const {
    for (const PreviewLine& line : lines) {
        if (line.kind == PreviewKind::Heading) {
            const auto index = static_cast<std::size_t>(column);
            return index < line.cells.size() ? line.cells[index] : std::string();
        }
    }
    return {};
}

FormatPreview SplitPreview(std::span<const std::string> lines, const FormatChoice& choice) {
    const LineFormat format = LineFormatOf(choice);
    FormatPreview preview;
    bool headingIsDue = choice.columnHeadings;
    std::size_t dataColumns = 0;
    std::size_t otherColumns = 0;
    for (const std::string& line : lines) {
        PreviewLine split;
        split.line = line;
        split.kind = KindOf(ParseLine(line, format).status);
        if (split.kind == PreviewKind::Other) {
            split.cells = {line};
            preview.lines.push_back(std::move(split));
            continue;
        }
        split.cells = Split(line, format.delimiter);
        if (headingIsDue) {
            headingIsDue = false;
            split.kind = PreviewKind::Heading;
            preview.heading = line;
        }
        std::size_t& columns = split.kind == PreviewKind::Data ? dataColumns : otherColumns;
        columns = std::max(columns, split.cells.size());
        preview.lines.push_back(std::move(split));
    }
    preview.columns = static_cast<int>(dataColumns > 0 ? dataColumns : otherColumns);
    return preview;
}

std::vector<std::string> CellsOfLine(const std::string& line, const std::string& delimiter) {
    return Split(line, delimiter.empty() ? kAnyDelimiter : delimiter.front());
}

bool SuggestsHeadings(std::span<const std::string> lines, const LineFormat& format) {
    bool headingFound = false;
    for (const std::string& line : lines) {
        const LineStatus status = ParseLine(line, format).status;
        if (KindOf(status) == PreviewKind::Other) {
            continue;
        }
        if (status == LineStatus::Row || HoldsNumber(line)) {
            return headingFound;
        }
        headingFound = true;
    }
    return false;
}

std::vector<int> ItemsOfColumn(const FormatChoice& choice, int column) {
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice);
    std::vector<int> items;
    for (int slot = 0; slot < kColumnSlots; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        if (used[index] && choice.columns[index] == column) {
            items.push_back(slot);
        }
    }
    return items;
}

} // namespace quandrel
