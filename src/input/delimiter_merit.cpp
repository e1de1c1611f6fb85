// SPDX-License-Identifier: MIT

#include "input/delimiter_merit.h"

#include "input/format_choice.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace quandrel {

namespace {

/// Cells without another delimiter at either end.
std::size_t CleanCells(const std::vector<std::string>& cells) {
    constexpr std::string_view kLeftOver = ",; \t";
    return static_cast<std::size_t>(
        std::count_if(cells.begin(), cells.end(), [&](const std::string& cell) {
            return !cell.empty() && kLeftOver.find(cell.front()) == std::string_view::npos
                   && kLeftOver.find(cell.back()) == std::string_view::npos;
        }));
}

/// Rates a delimiter by the lines of the usual width; other lines say nothing about it.
DelimiterMerit MeritOf(const DelimiterName& entry, const FormatPreview& preview) {
    DelimiterMerit merit;
    merit.name = entry.name;
    std::vector<std::vector<std::string>> rows;
    std::vector<std::size_t> widths;
    for (const std::size_t line : DataLinesOf(preview)) {
        rows.push_back(CellsOfLine(preview.lines[line].line, entry.delimiter));
        widths.push_back(rows.back().size());
    }
    merit.columns = MiddleOf(std::move(widths));
    for (const std::vector<std::string>& cells : rows) {
        merit.clean += cells.size() == merit.columns ? CleanCells(cells) : 0;
    }
    const PreviewLine* heading = HeadingLineOf(preview);
    merit.headingAgrees =
        heading != nullptr && CellsOfLine(heading->line, entry.delimiter).size() == merit.columns;
    return merit;
}

} // namespace

bool DelimiterMerit::IsBetterThan(const DelimiterMerit& other) const {
    return std::tie(headingAgrees, clean, columns)
           > std::tie(other.headingAgrees, other.clean, other.columns);
}

std::optional<DelimiterMerit> BestDelimiter(const FormatPreview& preview) {
    std::optional<DelimiterMerit> best;
    for (const DelimiterName& entry : kDelimiters) {
        const DelimiterMerit merit = MeritOf(entry, preview);
        if (merit.columns > 1 && (!best || merit.IsBetterThan(*best))) {
            best = merit;
        }
    }
    return best;
}

std::vector<std::size_t> DataLinesOf(const FormatPreview& preview) {
    std::vector<std::size_t> lines;
    for (std::size_t i = 0; i < preview.lines.size(); ++i) {
        if (preview.lines[i].kind == PreviewKind::Data) {
            lines.push_back(i);
        }
    }
    return lines;
}

const PreviewLine* HeadingLineOf(const FormatPreview& preview) {
    for (const PreviewLine& line : preview.lines) {
        if (line.kind == PreviewKind::Data) {
            break;
        }
        if (line.kind == PreviewKind::Heading || line.kind == PreviewKind::NoData) {
            return &line;
        }
    }
    return nullptr;
}

std::size_t MiddleOf(std::vector<std::size_t> widths) {
    std::sort(widths.begin(), widths.end());
    return widths[widths.size() / 2];
}

} // namespace quandrel
