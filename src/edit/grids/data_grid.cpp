// SPDX-License-Identifier: MIT

#include "edit/grids/data_grid.h"

#include "core/data_format.h"
#include "core/measured_rows.h"
#include "core/plot_store.h"
#include "edit/selection/marquee.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quandrel {

namespace {

constexpr std::int32_t kFullTurn = 360;

} // namespace

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
    const bool hasPlaces = HasMapPlaces(PlotOf(slot_));
    format_ = GridFormatOf(record, hasPlaces);
    columns_ = GridColumnsOf(record, hasPlaces);
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
    /// Rows of the same order are adjacent, so that a row is identified by its index among them.
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

std::string DataGrid::AngleText(std::int32_t point, GridColumnKind kind, AngleDigits digits) const {
    const PairKinds pair = PairOf(kind).value();
    const RowAngles which = AnglesOf(pair);
    const PlotRows& rows = PlotOf(slot_).rows;
    const Attitude whole = WholeAttitude(rows, which, point);
    if (whole.dip == (which == RowAngles::Line ? kInvalidAppendedLine : kErrorRow)) {
        return {};
    }
    const Attitude shown =
        digits == AngleDigits::Whole ? whole : MeasuredAttitude(rows, which, point);
    return kind == pair.dip ? DipText(shown.dip, digits) : AzimuthText(shown.azimuth, digits);
}

std::string DataGrid::StoredText(const GridLine& line, GridColumnKind kind) const {
    const std::int32_t point = line.point;
    const bool isError = gDataDip(slot_, point) == kErrorRow;
    if (point == 0 || (isError && kind != GridColumnKind::Dip)) {
        return {};
    }
    switch (kind) {
    case GridColumnKind::Number: {
        const float number = gAppNumeric(slot_, point);
        return number == kInvalidNumber ? std::string() : RegionalText(number);
    }
    case GridColumnKind::Text:
        return std::string(gAppText(slot_, point));
    case GridColumnKind::MapX:
    case GridColumnKind::MapY: {
        const std::optional<MapPlace> place = MapPlaceOf(PlotOf(slot_).rows, point);
        return place ? RegionalCoordinate(kind == GridColumnKind::MapX ? place->x : place->y)
                     : std::string();
    }
    case GridColumnKind::RowNumber:
    case GridColumnKind::Edited:
        return {};
    default:
        return AngleText(point, kind,
                         RecordOf(slot_).UseDecimals != 0 ? AngleDigits::OneDecimal
                                                          : AngleDigits::Whole);
    }
}

bool DataGrid::IsChanged(std::size_t row, GridColumnKind kind) const {
    return HasEdit(row, kind) && TextOfKind(row, kind) != StoredText(lines_.at(row), kind);
}

std::string DataGrid::ExactTextOfKind(std::size_t row, GridColumnKind kind) const {
    const std::optional<PairKinds> pair = PairOf(kind);
    const std::int32_t point = PointOfRow(row);
    const std::string shown = TextOfKind(row, kind);
    if (!pair || point == 0 || shown.empty() || IsChanged(row, kind)) {
        return shown;
    }
    const PlotRows& rows = PlotOf(slot_).rows;
    const Attitude measured = MeasuredAttitude(rows, AnglesOf(*pair), point);
    // The whole degrees of a nearly level line may name its other end: its digits do not fit them.
    const Attitude whole = WholeAttitude(rows, AnglesOf(*pair), point);
    const bool isSameEnd = RecordOf(slot_).UseDecimals != 0
                           || (WholeDegree(measured.azimuth - whole.azimuth) % kFullTurn) == 0;
    return isSameEnd ? AngleText(point, kind, AngleDigits::All) : shown;
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
    const Plot* const plot = PlotSlots::Find(slot_);
    if (point == 0 || plot == nullptr) {
        return {};
    }
    const auto line = plot->rows.errorLines.find(point);
    return line == plot->rows.errorLines.end() ? std::string() : line->second;
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
    const bool isEdited = pair ? HasEdit(row, pair->dip) || HasEdit(row, pair->azimuth)
                          : IsPlaceKind(kind) ? HasEdit(row, GridColumnKind::MapX)
                                                    || HasEdit(row, GridColumnKind::MapY)
                                              : HasEdit(row, kind);
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
    if (IsPlaceKind(kind)) {
        const std::string beside = TextOfKind(
            row, kind == GridColumnKind::MapX ? GridColumnKind::MapY : GridColumnKind::MapX);
        const bool isEmpty = WithoutBlanks(text).empty() && WithoutBlanks(beside).empty();
        return !isEmpty && !ReadGridPlace(text, beside);
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
    if (!IsOpenSlot(slot_) || RecordOf(slot_).OverlayRows[kOverlayCount] > 0
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
    if (!IsOpenSlot(slot_) || HasOtherColumns()) {
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

bool DataGrid::HasOtherColumns() const {
    return GridFormatOf(RecordOf(slot_), HasMapPlaces(PlotOf(slot_))) != format_;
}

bool DataGrid::IsStale() const {
    return !IsOpenSlot(slot_) || RecordOf(slot_).NumLoadedData != rowsKnown_ || HasOtherColumns();
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
