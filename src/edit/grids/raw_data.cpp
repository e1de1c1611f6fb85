// SPDX-License-Identifier: MIT

#include "edit/grids/raw_data.h"

#include "core/path_names.h"
#include "core/plot_store.h"
#include "edit/selection/marquee.h"
#include "input/format_model.h"
#include "input/line_tokens.h"
#include "input/table_files.h"
#include "input/text_file.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kNoFile = "There is no filename associated with this data\n";
constexpr const char* kNotShown = "Couldn't display this data properly";

std::vector<std::string> PathsOf(const PlotRecord& record) {
    std::vector<std::string> paths = record.MainFiles;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        const auto& files = record.OverlayFiles[static_cast<std::size_t>(overlay)];
        paths.insert(paths.end(), files.begin(), files.end());
    }
    if (paths.empty()) {
        const auto files = static_cast<std::size_t>(std::clamp<int>(record.NumFiles, 0, kMaxFiles));
        paths.assign(record.FileNames.begin() + kFirstFile,
                     record.FileNames.begin() + kFirstFile + static_cast<std::ptrdiff_t>(files));
    }
    std::erase(paths, std::string());
    return paths;
}

bool HasLine(std::string_view text, std::string_view wanted) {
    LineReader reader(text);
    for (std::string_view line; reader.Next(line);) {
        if (line == wanted) {
            return true;
        }
    }
    return false;
}

/// The text of a file; of one with several tables that of the first with the plot's heading, or of
/// the first of all.
Result<std::string> TextOfPlotFile(const std::string& path, const std::string& heading) {
    std::vector<NamedTable> tables;
    Result<std::string> text = TextOfFile(path, tables);
    for (NamedTable& table : tables) {
        if (!heading.empty() && HasLine(table.text, heading)) {
            return std::move(table.text);
        }
    }
    return text;
}

/// Tabs separate the columns of files that contain tabs; in others any delimiter does.
char DelimiterOf(std::string_view text) {
    return text.find('\t') != std::string_view::npos ? '\t' : kAnyDelimiter;
}

/// True for a line that is not split into columns.
bool IsWhole(std::string_view line) {
    const std::string_view text = WithoutBlanks(line);
    return !text.empty() && (text[0] == ';' || text[0] == '*' || text[0] == '/');
}

/// True for a line that may come before a heading: a comment by any mark that formats can have.
bool MayPrecedeHeading(std::string_view line) {
    constexpr CommentMarks kAll{true, true, true};
    const std::string_view text = WithoutBlanks(line);
    return text.empty() || IsWhole(line) || BeginsWithMark(text, kAll);
}

std::size_t CountTokens(std::string_view line, char delimiter) {
    std::size_t position = 0;
    std::size_t count = 0;
    for (Token token = kEmptyToken; NextToken(line, position, token, delimiter);) {
        ++count;
    }
    return count;
}

/// The token at a zero-based index; empty after the last.
std::string TokenAt(std::string_view line, std::size_t place, char delimiter) {
    std::size_t position = 0;
    std::string token;
    for (std::size_t i = 0; i <= place; ++i) {
        if (!NextToken(line, position, token, delimiter)) {
            return {};
        }
    }
    return token;
}

} // namespace

std::string RawData::Caption() const {
    std::string caption = "Raw File data used in: ";
    bool isFirst = true;
    for (const RawFile& file : files_) {
        caption += (isFirst ? "" : ", ") + file.name;
        isFirst = false;
    }
    return caption;
}

Result<RawData> RawData::Read(int slot) {
    const std::vector<std::string> paths = PathsOf(RecordOf(slot));
    if (paths.empty()) {
        return Failure{std::string(kNoFile) + kNotShown};
    }
    RawData raw(slot);
    raw.heading_ = RecordOf(slot).FileHeadLine;
    for (const std::string& path : paths) {
        Result<std::string> text = TextOfPlotFile(path, raw.heading_);
        if (!text) {
            return Failure{std::string(kNotShown) + "\n" + FileTitleOf(path) + ": " + text.Error()};
        }
        const char delimiter = DelimiterOf(*text);
        raw.AddFile({FileTitleOf(path), std::move(*text), delimiter});
    }
    return raw;
}

void RawData::AddFile(RawFile file) {
    const auto place = static_cast<std::uint16_t>(files_.size());
    files_.push_back(std::move(file));
    const RawFile& added = files_.back();
    LineReader reader(added.text);
    std::string_view line;
    bool isHead = true;
    for (std::int32_t number = 1; reader.Next(line); ++number) {
        const bool isHeading = isHead && !heading_.empty() && line == heading_;
        isHead = isHead && !isHeading && MayPrecedeHeading(line);
        headingDelimiter_ = isHeading ? added.delimiter : headingDelimiter_;
        lines_.push_back({static_cast<std::size_t>(line.data() - added.text.data()),
                          static_cast<std::uint32_t>(line.size()), place, number,
                          isHeading ? 0 : ++lastOrder_});
        const std::size_t tokens = IsWhole(line) ? 1 : CountTokens(line, added.delimiter);
        columns_ = std::max(columns_, tokens + 1);
    }
}

std::string_view RawData::Line(std::size_t row) const {
    const RawLine& line = lines_.at(row);
    return std::string_view(files_[line.file].text).substr(line.offset, line.length);
}

std::string RawData::Header(std::size_t column) const {
    if (column == 0) {
        return "Line";
    }
    const std::string name = TokenAt(heading_, column - 1, headingDelimiter_);
    return name.empty() ? "Column " + std::to_string(column) : name;
}

std::string RawData::CellText(std::size_t row, std::size_t column) const {
    if (row >= lines_.size() || column >= columns_) {
        return {};
    }
    const RawLine& line = lines_[row];
    if (column == 0) {
        const std::string number = std::to_string(line.number);
        return files_.size() > 1 ? files_[line.file].name + ":" + number : number;
    }
    const std::string_view text = Line(row);
    if (IsWhole(text)) {
        return column == 1 ? std::string(text) : std::string();
    }
    return TokenAt(text, column - 1, files_[line.file].delimiter);
}

std::int32_t RawData::PointOfRow(std::size_t row) const {
    const std::vector<std::int32_t> points = PointsOfRows(std::span(&row, 1));
    return points.empty() ? 0 : points.front();
}

std::vector<std::int32_t> RawData::PointsOfRows(std::span<const std::size_t> rows) const {
    if (!IsOpenSlot(slot_)) {
        return {};
    }
    std::vector<std::int32_t> pointOfOrder(static_cast<std::size_t>(lastOrder_) + 1, 0);
    for (std::int32_t point = RecordOf(slot_).NumLoadedData; point > 0; --point) {
        const auto order = static_cast<std::size_t>(std::max(gDataOrder(slot_, point), 0));
        if (order < pointOfOrder.size()) {
            pointOfOrder[order] = point;
        }
    }
    pointOfOrder[0] = 0;
    std::vector<std::int32_t> points;
    for (const std::size_t row : rows) {
        const auto order = row < lines_.size() ? static_cast<std::size_t>(lines_[row].order) : 0;
        if (pointOfOrder[order] > 0) {
            points.push_back(pointOfOrder[order]);
        }
    }
    std::ranges::sort(points);
    return points;
}

std::optional<std::size_t> RawData::RowOfPoint(std::int32_t point) const {
    if (!IsOpenSlot(slot_) || point < 1 || point > RecordOf(slot_).NumLoadedData) {
        return std::nullopt;
    }
    const std::int32_t order = gDataOrder(slot_, point);
    // Line and order differ only by headings, at most one in each file.
    for (auto row = static_cast<std::size_t>(std::max(order, 1)) - 1; row < lines_.size(); ++row) {
        if (lines_[row].order == order) {
            return row;
        }
        if (lines_[row].order > order) {
            break;
        }
    }
    return std::nullopt;
}

void SelectRowsOfRawData(const RawData& raw, std::span<const std::size_t> rows) {
    std::vector<std::int32_t> points = raw.PointsOfRows(rows);
    std::erase_if(points, [&raw](std::int32_t point) {
        return OrientationShown(raw.Slot(), point).dip == kErrorRow;
    });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    SelectRows(raw.Slot(), std::move(points));
}

std::vector<std::size_t> SelectedRowsOfRawData(const RawData& raw) {
    std::vector<std::size_t> rows;
    for (const std::int32_t point : SelectedRowsOf(raw.Slot())) {
        if (const std::optional<std::size_t> row = raw.RowOfPoint(point)) {
            rows.push_back(*row);
        }
    }
    std::ranges::sort(rows);
    return rows;
}

} // namespace quandrel
