// SPDX-License-Identifier: MIT

#include "edit/data_grid.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/marquee.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace quandrel {

namespace {

/// A run of columns with what they are for.
struct GridPiece {
    const char* format;
    std::vector<GridColumnKind> kinds;
};

std::vector<GridPiece> PiecesOf(const PlotRecord& record) {
    using Kind = GridColumnKind;
    std::vector<GridPiece> pieces = {
        {"        |>Dip/Plunge  |>Azimuth  ", {Kind::RowNumber, Kind::Dip, Kind::Azimuth}}};
    if (record.SecondaryFormat > kNoSecondary) {
        pieces.push_back(
            {"|>Sec. Dip/Pl |>Sec Azim ", {Kind::SecondaryDip, Kind::SecondaryAzimuth}});
    }
    if (record.HasAppendedLine != 0) {
        pieces.push_back({"|>App.Line Plunge |>Line Azim ", {Kind::LinePlunge, Kind::LineTrend}});
    }
    if (record.HasAppendedNumeric != 0) {
        pieces.push_back({"|>Numeric ", {Kind::Number}});
    }
    if (record.HasAppendedText != 0) {
        pieces.push_back({"|>AlphaNum. ", {Kind::Text}});
    }
    pieces.push_back({"|^Edited", {Kind::Edited}});
    return pieces;
}

GridColumn ColumnOf(std::string_view piece, GridColumnKind kind) {
    GridColumn column;
    column.kind = kind;
    if (piece.starts_with('>') || piece.starts_with('^')) {
        column.align = piece.front() == '>' ? GridAlign::Right : GridAlign::Centre;
        piece.remove_prefix(1);
    }
    column.header = std::string(WithoutBlanks(piece));
    return column;
}

std::string DipText(std::int32_t dip, bool isMissing) {
    return isMissing ? std::string() : std::to_string(dip);
}

std::string AzimuthText(std::int32_t azimuth, bool isMissing) {
    return isMissing ? std::string() : FormatNumber(azimuth, "000");
}

/// A number with the regional decimal delimiter, which is the one that is read again.
std::string RegionalText(float number) {
    std::string text = TextOf(TaggedValue(number));
    if (gDecimalIsComma) {
        std::ranges::replace(text, '.', ',');
    }
    return text;
}

/// The columns of an orientation.
struct PairKinds {
    GridColumnKind dip;
    GridColumnKind azimuth;
};

/// The pair that a column belongs to, or nothing.
std::optional<PairKinds> PairOf(GridColumnKind kind) {
    using Kind = GridColumnKind;
    switch (kind) {
    case Kind::Dip:
    case Kind::Azimuth:
        return PairKinds{Kind::Dip, Kind::Azimuth};
    case Kind::SecondaryDip:
    case Kind::SecondaryAzimuth:
        return PairKinds{Kind::SecondaryDip, Kind::SecondaryAzimuth};
    case Kind::LinePlunge:
    case Kind::LineTrend:
        return PairKinds{Kind::LinePlunge, Kind::LineTrend};
    default:
        return std::nullopt;
    }
}

/// True for a pair that is no orientation; all but the primary one may be empty.
bool IsBadPair(const PlotRecord& record, const PairKinds& pair, std::string_view dip,
               std::string_view azimuth) {
    const bool isPrimary = pair.dip == GridColumnKind::Dip;
    if (!isPrimary && WithoutBlanks(dip).empty() && WithoutBlanks(azimuth).empty()) {
        return false;
    }
    const bool isPlane = isPrimary ? record.PrimaryFormat == kPrimaryPlane
                                   : pair.dip == GridColumnKind::SecondaryDip
                                         && record.SecondaryFormat == kSecondaryPlane;
    return !ReadGridPair(dip, azimuth, isPlane);
}

bool IsDataKind(GridColumnKind kind) {
    return kind != GridColumnKind::RowNumber && kind != GridColumnKind::Edited;
}

} // namespace

std::string GridFormatOf(const PlotRecord& record) {
    std::string format;
    for (const GridPiece& piece : PiecesOf(record)) {
        format += piece.format;
    }
    return format;
}

std::vector<GridColumn> GridColumnsOf(const PlotRecord& record) {
    std::vector<GridColumn> columns;
    for (const GridPiece& piece : PiecesOf(record)) {
        std::string_view rest = piece.format;
        rest.remove_prefix(rest.starts_with('|') ? 1 : 0);
        for (const GridColumnKind kind : piece.kinds) {
            const std::size_t end = std::min(rest.find('|'), rest.size());
            columns.push_back(ColumnOf(rest.substr(0, end), kind));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return columns;
}

std::string DataGridCaption(const PlotRecord& record) {
    return "Processed data in: " + record.PlotTitle;
}

std::optional<ShownOrientation> ReadGridPair(std::string_view dip, std::string_view azimuth,
                                             bool isPlane) {
    LineFormat format;
    format.primary = isPlane ? kPrimaryPlane : kPrimaryLine;
    const ParsedRow row = ParseValues({WithoutBlanks(dip), WithoutBlanks(azimuth)}, format);
    if (row.status != LineStatus::Row) {
        return std::nullopt;
    }
    return RoundedOrientation(row.dip, row.az, isPlane);
}

std::optional<float> ReadGridNumber(std::string_view text) {
    LineFormat format;
    format.wantNumber = true;
    format.decimalIsComma = gDecimalIsComma;
    format.convertDecimals = gConvertDecimals;
    // The orientation is there for the sake of the parser alone.
    std::array<std::string_view, kColumnSlots> values = {"0", "0"};
    values[kSlotNumber] = WithoutBlanks(text);
    const ParsedRow row = ParseValues(values, format);
    if (row.numberStatus != NumberStatus::Good
        || std::abs(row.number) > static_cast<double>(std::numeric_limits<float>::max())) {
        return std::nullopt;
    }
    const auto number = static_cast<float>(row.number);
    return number == kInvalidNumber ? std::nullopt : std::optional(number);
}

DataGrid::DataGrid(int slot)
    : slot_(slot) {
    Fill();
}

void DataGrid::Fill() {
    edits_.clear();
    lines_.clear();
    if (!IsOpenSlot(slot_)) {
        FindPoints();
        return;
    }
    const PlotRecord& record = RecordOf(slot_);
    format_ = GridFormatOf(record);
    columns_ = GridColumnsOf(record);
    rowsKnown_ = record.NumLoadedData;
    std::vector<std::int32_t> points(static_cast<std::size_t>(std::max(rowsKnown_, 0)));
    std::iota(points.begin(), points.end(), 1);
    std::ranges::stable_sort(points.begin(), points.begin() + std::min(record.NumData, rowsKnown_),
                             {}, [this](std::int32_t point) { return gDataOrder(slot_, point); });
    for (const std::int32_t point : points) {
        lines_.push_back({point, false, gDataOrder(slot_, point)});
    }
    FindPoints();
}

std::size_t DataGrid::FirstOfOrder(std::size_t row) const {
    while (row > 0 && lines_[row - 1].order == lines_[row].order) {
        --row;
    }
    return row;
}

void DataGrid::Refill() {
    /// Rows of one order stand together, so that a row is known by its place among them.
    struct KeptEdits {
        std::int32_t order;
        std::size_t place;
        CellEdits cells;
    };

    std::vector<KeptEdits> kept;
    std::vector<CellEdits> ofNewRows;
    for (auto& [row, cells] : edits_) {
        if (IsNew(row)) {
            ofNewRows.push_back(std::move(cells));
        } else {
            kept.push_back({lines_[row].order, row - FirstOfOrder(row), std::move(cells)});
        }
    }
    Fill();
    const auto put = [this](std::size_t row, const CellEdits& cells) {
        for (std::size_t column = 0; column < columns_.size(); ++column) {
            if (const auto cell = cells.find(columns_[column].kind); cell != cells.end()) {
                SetCell(row, column, cell->second);
            }
        }
    };
    const auto behindMain =
        std::ranges::find_if_not(lines_, [this](const GridLine& line) { return IsMainRow(line); });
    for (const KeptEdits& edits : kept) {
        const auto first =
            std::ranges::lower_bound(lines_.begin(), behindMain, edits.order, {}, &GridLine::order);
        const auto same =
            first + std::min(behindMain - first, static_cast<std::ptrdiff_t>(edits.place));
        if (same != behindMain && same->order == edits.order) {
            put(static_cast<std::size_t>(same - lines_.begin()), edits.cells);
        }
    }
    for (const CellEdits& cells : ofNewRows) {
        if (AddRow()) {
            put(lines_.size() - 1, cells);
        }
    }
}

void DataGrid::FindPoints() {
    rowOfPoint_.assign(static_cast<std::size_t>(std::max(rowsKnown_, 0)) + 1, lines_.size());
    for (std::size_t row = 0; row < lines_.size(); ++row) {
        const auto point = static_cast<std::size_t>(lines_[row].point);
        if (point > 0 && point < rowOfPoint_.size()) {
            rowOfPoint_[point] = row;
        }
    }
}

std::string DataGrid::NumberText(std::size_t row) const {
    const std::string digits(std::to_string(lines_.size()).size(), '0');
    return FormatNumber(static_cast<double>(row + 1), digits);
}

std::string DataGrid::StoredText(const GridLine& line, GridColumnKind kind) const {
    const std::int32_t point = line.point;
    const bool isError = gDataDip(slot_, point) == kErrorRow;
    if (point == 0 || (isError && kind != GridColumnKind::Dip)) {
        return {};
    }
    const bool isSecondaryMissing = gData2Dip(slot_, point) == kErrorRow;
    const bool isLineMissing = gAppLineDip(slot_, point) == kInvalidAppendedLine;
    switch (kind) {
    case GridColumnKind::Dip:
        return DipText(gDataDip(slot_, point), isError);
    case GridColumnKind::Azimuth:
        return AzimuthText(gDataAz(slot_, point), false);
    case GridColumnKind::SecondaryDip:
        return DipText(gData2Dip(slot_, point), isSecondaryMissing);
    case GridColumnKind::SecondaryAzimuth:
        return AzimuthText(gData2Az(slot_, point), isSecondaryMissing);
    case GridColumnKind::LinePlunge:
        return DipText(gAppLineDip(slot_, point), isLineMissing);
    case GridColumnKind::LineTrend:
        return AzimuthText(gAppLineAz(slot_, point), isLineMissing);
    case GridColumnKind::Number: {
        const float number = gAppNumeric(slot_, point);
        return number == kInvalidNumber ? std::string() : RegionalText(number);
    }
    case GridColumnKind::Text:
        return std::string(gAppText(slot_, point));
    case GridColumnKind::RowNumber:
    case GridColumnKind::Edited:
        break;
    }
    return {};
}

std::string DataGrid::EditText(std::size_t row, std::size_t column) const {
    if (row >= lines_.size() || column >= columns_.size() || !IsDataKind(columns_[column].kind)) {
        return {};
    }
    return TextOfKind(row, columns_[column].kind);
}

std::string DataGrid::TextOfKind(std::size_t row, GridColumnKind kind) const {
    if (const auto edits = edits_.find(row); edits != edits_.end()) {
        if (const auto edit = edits->second.find(kind); edit != edits->second.end()) {
            return edit->second;
        }
    }
    return StoredText(lines_.at(row), kind);
}

std::string DataGrid::CellText(std::size_t row, std::size_t column) const {
    if (row >= lines_.size() || column >= columns_.size() || !IsOpenSlot(slot_)) {
        return {};
    }
    const GridLine& line = lines_[row];
    const GridColumnKind kind = columns_[column].kind;
    if (kind == GridColumnKind::RowNumber) {
        return NumberText(row);
    }
    if (kind == GridColumnKind::Edited) {
        return IsEdited(row) ? std::string(kEditedMark) : std::string();
    }
    if (kind == GridColumnKind::Dip && line.isDeleted) {
        return std::string(kDeletedRow);
    }
    const bool isError = line.point > 0 && gDataDip(slot_, line.point) == kErrorRow;
    if (kind == GridColumnKind::Dip && isError && !HasEdit(row, kind)) {
        return std::string(kNonDataRow);
    }
    return EditText(row, column);
}

std::string DataGrid::LineBehind(std::size_t row) const {
    const std::int32_t point = PointOfRow(row);
    const auto slot = static_cast<std::size_t>(slot_);
    if (point == 0 || slot >= gErrorLines.size()) {
        return {};
    }
    const auto line = gErrorLines[slot].find(point);
    return line == gErrorLines[slot].end() ? std::string() : line->second;
}

bool DataGrid::IsMainRow(const GridLine& line) const {
    return line.point > 0 && line.point <= RecordOf(slot_).NumData;
}

bool DataGrid::IsEditable(std::size_t row, std::size_t column) const {
    return row < lines_.size() && column < columns_.size() && IsOpenSlot(slot_)
           && IsDataKind(columns_[column].kind) && (IsMainRow(lines_[row]) || IsNew(row));
}

bool DataGrid::SetCell(std::size_t row, std::size_t column, std::string_view text) {
    if (!IsEditable(row, column) || EditText(row, column) == text) {
        return false;
    }
    edits_[row][columns_[column].kind] = std::string(text);
    return true;
}

bool DataGrid::HasEdit(std::size_t row, GridColumnKind kind) const {
    const auto edits = edits_.find(row);
    return edits != edits_.end() && edits->second.contains(kind);
}

bool DataGrid::IsEdited(std::size_t row) const {
    return edits_.contains(row);
}

std::vector<std::size_t> DataGrid::EditedRows() const {
    std::vector<std::size_t> rows;
    for (const auto& [row, edits] : edits_) {
        rows.push_back(row);
    }
    return rows;
}

bool DataGrid::IsBad(std::size_t row, std::size_t column) const {
    if (!IsEditable(row, column)) {
        return false;
    }
    const GridColumnKind kind = columns_[column].kind;
    const std::optional<PairKinds> pair = PairOf(kind);
    const bool isEdited =
        pair ? HasEdit(row, pair->dip) || HasEdit(row, pair->azimuth) : HasEdit(row, kind);
    return isEdited && IsBadText(row, column, TextOfKind(row, kind));
}

bool DataGrid::IsBadText(std::size_t row, std::size_t column, std::string_view text) const {
    if (!IsEditable(row, column)) {
        return false;
    }
    const GridColumnKind kind = columns_[column].kind;
    if (kind == GridColumnKind::Number) {
        return !WithoutBlanks(text).empty() && !ReadGridNumber(text);
    }
    const std::optional<PairKinds> pair = PairOf(kind);
    if (!pair) {
        return false;
    }
    const bool isDip = kind == pair->dip;
    const std::string other = TextOfKind(row, isDip ? pair->azimuth : pair->dip);
    return IsBadPair(RecordOf(slot_), *pair, isDip ? text : other, isDip ? other : text);
}

void DataGrid::DiscardEdits() {
    edits_.clear();
    std::erase_if(lines_, [](const GridLine& line) { return line.point == 0 && !line.isDeleted; });
    FindPoints();
}

bool DataGrid::AddRow() {
    if (!IsOpenSlot(slot_) || RecordOf(slot_).OverlayRows[0] > 0
        || RecordOf(slot_).ShowSecondary != 0 || RecordOf(slot_).PlotKind == kRose) {
        return false;
    }
    lines_.push_back({});
    FindPoints();
    return true;
}

bool DataGrid::IsNew(std::size_t row) const {
    return row < lines_.size() && lines_[row].point == 0 && !lines_[row].isDeleted;
}

std::int32_t DataGrid::PointOfRow(std::size_t row) const {
    return row < lines_.size() ? lines_[row].point : 0;
}

std::optional<std::size_t> DataGrid::RowOfPoint(std::int32_t point) const {
    const auto place = static_cast<std::size_t>(point);
    if (point < 1 || place >= rowOfPoint_.size() || rowOfPoint_[place] >= lines_.size()) {
        return std::nullopt;
    }
    return rowOfPoint_[place];
}

void DataGrid::RowsRemoved(std::span<const std::int32_t> points) {
    for (std::size_t row = 0; row < lines_.size(); ++row) {
        GridLine& line = lines_[row];
        if (line.point == 0) {
            continue;
        }
        const auto first = std::lower_bound(points.begin(), points.end(), line.point);
        if (first != points.end() && *first == line.point) {
            line.point = 0;
            line.isDeleted = true;
            edits_.erase(row);
        } else {
            line.point -= static_cast<std::int32_t>(first - points.begin());
        }
    }
    rowsKnown_ -= static_cast<std::int32_t>(points.size());
    FindPoints();
}

std::optional<std::vector<std::int32_t>> DataGrid::LostRows() const {
    if (!IsOpenSlot(slot_) || GridFormatOf(RecordOf(slot_)) != format_) {
        return std::nullopt;
    }
    const std::int32_t left = RecordOf(slot_).NumLoadedData;
    std::vector<std::int32_t> lost;
    std::int32_t next = 1;
    for (std::int32_t point = 1; point <= rowsKnown_; ++point) {
        const std::optional<std::size_t> row = RowOfPoint(point);
        const bool isLeft = row && next <= left && lines_[*row].order == gDataOrder(slot_, next);
        if (isLeft) {
            ++next;
        } else {
            lost.push_back(point);
        }
    }
    return next > left && !lost.empty() ? std::optional(lost) : std::nullopt;
}

bool DataGrid::IsStale() const {
    return !IsOpenSlot(slot_) || RecordOf(slot_).NumLoadedData != rowsKnown_
           || GridFormatOf(RecordOf(slot_)) != format_;
}

void SelectRowsOfGrid(const DataGrid& grid, std::span<const std::size_t> rows) {
    std::vector<std::int32_t> points;
    for (const std::size_t row : rows) {
        const std::int32_t point = grid.PointOfRow(row);
        if (point > 0 && OrientationShown(grid.Slot(), point).dip != kErrorRow) {
            points.push_back(point);
        }
    }
    std::ranges::sort(points);
    points.erase(std::unique(points.begin(), points.end()), points.end());
    SelectRows(grid.Slot(), std::move(points));
}

std::vector<std::size_t> SelectedRowsOfGrid(const DataGrid& grid) {
    std::vector<std::size_t> rows;
    for (const std::int32_t point : SelectedRowsOf(grid.Slot())) {
        if (const std::optional<std::size_t> row = grid.RowOfPoint(point)) {
            rows.push_back(*row);
        }
    }
    std::ranges::sort(rows);
    return rows;
}

} // namespace quandrel
