// SPDX-License-Identifier: MIT
//
// A table whose rows are selected with mouse and keys, like files in a list, or by the program.
//
// The selection is one bit for each row, so that drawing costs the same for one row as for a
// hundred thousand scattered ones. The selection of the view's selection model stays empty.

#pragma once

#include <QItemSelectionModel>
#include <QTableView>

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace quandrel {

/// Takes the selection commands of a view, and stores them by row.
class RowPicker : public QItemSelectionModel {
public:
    RowPicker(QAbstractItemModel& model, std::function<void()> picked, QObject* parent);

    [[nodiscard]] bool IsPicked(int row) const;

    /// Ascending.
    [[nodiscard]] std::vector<std::size_t> Rows() const;

    /// Selects rows without a notification. Rows that do not exist are ignored.
    void SetRows(std::span<const std::size_t> rows);

    void select(const QModelIndex& index, SelectionFlags command) override;
    void select(const QItemSelection& selection, SelectionFlags command) override;
    void clear() override;
    void reset() override;

private:
    [[nodiscard]] std::size_t RowCount() const;

    std::function<void()> picked_;
    std::vector<bool> rows_;
    std::vector<bool> settled_; ///< without the range that is being dragged
};

class RowGrid : public QTableView {
public:
    explicit RowGrid(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    [[nodiscard]] bool IsPicked(int row) const;

    /// Ascending.
    [[nodiscard]] std::vector<std::size_t> PickedRows() const;

    /// Selects rows without a notification, and scrolls to the first if none of them is visible.
    void PickRows(std::span<const std::size_t> rows);

    /// Fits the width of each column to its heading and the visible rows.
    void FitColumns();

    /// No search by keys: typed keys belong to the cells.
    void keyboardSearch(const QString&) override {}

    std::function<void()> onPicked; ///< called after the user has selected other rows

protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    RowPicker* picker_ = nullptr;
    mutable QItemSelectionModel::SelectionFlag toggled_ = QItemSelectionModel::Select;
};

} // namespace quandrel
