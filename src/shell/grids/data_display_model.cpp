// SPDX-License-Identifier: MIT

#include "shell/grids/data_display_model.h"

#include "core/plot_store.h"
#include "edit/selection/linked_rows.h"
#include "shell/controls/bad_text.h"
#include "shell/controls/faint_text.h"
#include "shell/controls/plain_tip.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

constexpr int kShownCharacters = 500;
constexpr int kLongText = 30; ///< length of a text that its column may cut

std::size_t Place(int index) {
    return static_cast<std::size_t>(index);
}

int Count(std::size_t count) {
    return static_cast<int>(count);
}

QVariant Alignment(GridAlign align) {
    switch (align) {
    case GridAlign::Right:
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    case GridAlign::Centre:
        return QVariant::fromValue(Qt::AlignHCenter | Qt::AlignVCenter);
    case GridAlign::Left:
        break;
    }
    return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
}

QString Shown(const QString& text) {
    return text.left(kShownCharacters);
}

} // namespace

void DataDisplayModel::CellsChanged() {
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    }
}

bool PlotDataModel::SetText(const QModelIndex& cell, const QString& text) {
    if (!grid_.SetCell(Place(cell.row()), Place(cell.column()), text.toStdString())) {
        return false;
    }
    Q_EMIT dataChanged(index(cell.row(), 0), index(cell.row(), columnCount() - 1));
    return true;
}

bool PlotDataModel::AddGridRow() {
    // AddRow can fail, so the view learns of the row afterwards. A last row moves no other row.
    const int rows = rowCount();
    if (!grid_.AddRow()) {
        return false;
    }
    beginInsertRows({}, rows, rows);
    endInsertRows();
    return true;
}

void PlotDataModel::Refill() {
    beginResetModel();
    grid_.Refill();
    endResetModel();
}

void PlotDataModel::DiscardEdits() {
    beginResetModel();
    grid_.DiscardEdits();
    endResetModel();
}

void PlotDataModel::RowsRemoved(std::span<const std::int32_t> points) {
    grid_.RowsRemoved(points);
    CellsChanged();
}

GridEditReport PlotDataModel::Apply() {
    // This may ask the user; until then the rows stay unchanged.
    const GridEditReport report = ApplyGridEdits(grid_);
    beginResetModel();
    endResetModel();
    return report;
}

bool PlotDataModel::IsEditable(const QModelIndex& cell) const {
    return cell.isValid() && grid_.IsEditable(Place(cell.row()), Place(cell.column()));
}

QString PlotDataModel::EditText(const QModelIndex& cell) const {
    return QString::fromStdString(grid_.EditText(Place(cell.row()), Place(cell.column())));
}

bool PlotDataModel::IsBadText(const QModelIndex& cell, const QString& text) const {
    const std::size_t row = Place(cell.row());
    const std::size_t column = Place(cell.column());
    return text == EditText(cell) ? grid_.IsBad(row, column)
                                  : grid_.IsBadText(row, column, text.toStdString());
}

int PlotDataModel::BadRows() const {
    const std::vector<std::size_t> rows = grid_.EditedRows();
    return Count(static_cast<std::size_t>(std::ranges::count_if(rows, [this](std::size_t row) {
        for (std::size_t column = 0; column < grid_.Columns().size(); ++column) {
            if (grid_.IsBad(row, column)) {
                return true;
            }
        }
        return false;
    })));
}

QString PlotDataModel::Caption() const {
    return QString::fromStdString(DataGridCaption(RecordOf(grid_.Slot())));
}

void PlotDataModel::Select(std::span<const std::size_t> rows) const {
    SelectRowsOfGrid(grid_, rows);
}

std::vector<std::size_t> PlotDataModel::LitRowsOfGrid() const {
    std::vector<std::size_t> rows;
    for (const std::int32_t point : LitRows(grid_.Slot())) {
        if (const std::optional<std::size_t> row = grid_.RowOfPoint(point)) {
            rows.push_back(*row);
        }
    }
    std::ranges::sort(rows);
    return rows;
}

QString PlotDataModel::FullText(int row, int column) const {
    return QString::fromStdString(grid_.CellText(Place(row), Place(column)));
}

bool PlotDataModel::IsDataColumn(int column) const {
    const GridColumnKind kind = grid_.Columns().at(Place(column)).kind;
    return kind != GridColumnKind::RowNumber && kind != GridColumnKind::Edited;
}

int PlotDataModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count(grid_.RowCount());
}

int PlotDataModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count(grid_.Columns().size());
}

QVariant PlotDataModel::Ink(std::size_t row, std::size_t column) const {
    if (grid_.IsBad(row, column)) {
        return BadTextColour();
    }
    if (grid_.Columns().at(column).kind == GridColumnKind::Edited) {
        return {};
    }
    const std::string text = grid_.CellText(row, column);
    const bool isOther =
        text == kDeletedRow || text == kNonDataRow || !grid_.IsEditable(row, column);
    return isOther ? QVariant(MutedText(QGuiApplication::palette())) : QVariant();
}

QVariant PlotDataModel::data(const QModelIndex& cell, int role) const {
    const std::size_t row = Place(cell.row());
    const std::size_t column = Place(cell.column());
    switch (role) {
    case Qt::DisplayRole:
        return Shown(FullText(cell.row(), cell.column()));
    case Qt::TextAlignmentRole:
        return Alignment(grid_.Columns().at(column).align);
    case Qt::ForegroundRole:
        return Ink(row, column);
    case Qt::ToolTipRole:
        return PlainTip(Shown(QString::fromStdString(grid_.LineBehind(row))));
    default:
        return {};
    }
}

QVariant PlotDataModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    const GridColumn& column = grid_.Columns()[Place(section)];
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(column.header);
    case Qt::TextAlignmentRole:
        return Alignment(column.align);
    default:
        return {};
    }
}

QString RawDataModel::Caption() const {
    return QString::fromStdString(raw_.Caption());
}

void RawDataModel::Select(std::span<const std::size_t> rows) const {
    SelectRowsOfRawData(raw_, rows);
}

std::vector<std::size_t> RawDataModel::LitRowsOfGrid() const {
    std::vector<std::size_t> rows;
    for (const std::int32_t point : LitRows(raw_.Slot())) {
        if (const std::optional<std::size_t> row = raw_.RowOfPoint(point)) {
            rows.push_back(*row);
        }
    }
    std::ranges::sort(rows);
    return rows;
}

QString RawDataModel::FullText(int row, int column) const {
    return QString::fromStdString(raw_.CellText(Place(row), Place(column)));
}

int RawDataModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count(raw_.RowCount());
}

int RawDataModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count(raw_.ColumnCount());
}

QVariant RawDataModel::data(const QModelIndex& cell, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return Shown(FullText(cell.row(), cell.column()));
    case Qt::TextAlignmentRole:
        return Alignment(GridAlign::Left);
    case Qt::ToolTipRole: {
        const QString text = FullText(cell.row(), cell.column());
        return text.size() > kLongText ? PlainTip(Shown(text)) : QString();
    }
    case Qt::ForegroundRole:
        return cell.column() == 0 ? QVariant(MutedText(QGuiApplication::palette())) : QVariant();
    default:
        return {};
    }
}

QVariant RawDataModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return QString::fromStdString(raw_.Header(Place(section)));
    case Qt::TextAlignmentRole:
        return Alignment(GridAlign::Left);
    default:
        return {};
    }
}

} // namespace quandrel
