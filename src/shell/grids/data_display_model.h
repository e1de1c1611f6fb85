// SPDX-License-Identifier: MIT
//
// Table models of the two grids of a plot's data: the rows of the plot, and the lines of its files.
// The contents of a row are created when the row becomes visible.

#pragma once

#include "edit/grids/data_grid.h"
#include "edit/grids/raw_data.h"

#include <QAbstractTableModel>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quandrel {

class DataDisplayModel : public QAbstractTableModel {
public:
    /// The plot of the data.
    [[nodiscard]] virtual int Slot() const = 0;

    [[nodiscard]] virtual QString Caption() const = 0;

    /// Makes grid rows the selection.
    virtual void Select(std::span<const std::size_t> rows) const = 0;

    /// The grid rows whose points are highlighted in the plot: selected there, or linked to the
    /// selection of another plot. Ascending.
    [[nodiscard]] virtual std::vector<std::size_t> LitRowsOfGrid() const = 0;

    /// The full contents of a cell, of any length.
    [[nodiscard]] virtual QString FullText(int row, int column) const = 0;

    /// True for columns that can be copied only.
    [[nodiscard]] virtual bool IsDataColumn(int column) const = 0;

    /// Notifies the view that cells may have changed.
    void CellsChanged();
};

class PlotDataModel : public DataDisplayModel {
public:
    /// @param slot  an open plot
    explicit PlotDataModel(int slot)
        : grid_(slot) {}

    [[nodiscard]] const DataGrid& Grid() const { return grid_; }

    /// See DataGrid::SetCell.
    bool SetText(const QModelIndex& cell, const QString& text);

    /// See DataGrid::AddRow.
    bool AddGridRow();

    /// See the DataGrid procedures of the same names.
    void Refill();
    void DiscardEdits();
    void RowsRemoved(std::span<const std::int32_t> points);
    GridEditReport Apply();

    [[nodiscard]] bool IsEditable(const QModelIndex& cell) const;
    [[nodiscard]] QString EditText(const QModelIndex& cell) const;

    /// True if the text that is being typed is invalid for its cell.
    [[nodiscard]] bool IsBadText(const QModelIndex& cell, const QString& text) const;

    /// Edited rows with an invalid cell.
    [[nodiscard]] int BadRows() const;

    [[nodiscard]] int Slot() const override { return grid_.Slot(); }

    [[nodiscard]] QString Caption() const override;
    void Select(std::span<const std::size_t> rows) const override;
    [[nodiscard]] std::vector<std::size_t> LitRowsOfGrid() const override;
    [[nodiscard]] QString FullText(int row, int column) const override;
    [[nodiscard]] bool IsDataColumn(int column) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& cell, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] QVariant Ink(std::size_t row, std::size_t column) const;

    DataGrid grid_;
};

class RawDataModel : public DataDisplayModel {
public:
    explicit RawDataModel(RawData raw)
        : raw_(std::move(raw)) {}

    [[nodiscard]] int Slot() const override { return raw_.Slot(); }

    [[nodiscard]] QString Caption() const override;
    void Select(std::span<const std::size_t> rows) const override;
    [[nodiscard]] std::vector<std::size_t> LitRowsOfGrid() const override;

    [[nodiscard]] QString FullText(int row, int column) const override;

    [[nodiscard]] bool IsDataColumn(int column) const override { return column > 0; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& cell, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    RawData raw_;
};

} // namespace quandrel
