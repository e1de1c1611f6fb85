// SPDX-License-Identifier: MIT
//
// A table whose rows are picked with mouse and keys, as files are in a list, and from outside.
//
// Which rows are picked is a bit each, so that a hundred thousand of them, however scattered, cost
// no more to draw than one. The selection of the view's selection model stays empty.

#pragma once

#include <QItemSelectionModel>
#include <QTableView>

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

namespace quandrel {

/// Takes what a view selects, and keeps it by rows.
class RowPicker : public QItemSelectionModel {
public:
    RowPicker(QAbstractItemModel& model, std::function<void()> picked, QObject* parent);

    [[nodiscard]] bool IsPicked(int row) const;

    /// Ascending.
    [[nodiscard]] std::vector<std::size_t> Rows() const;

    /// Tells nobody. Rows that are not there are left out.
    void SetRows(std::span<const std::size_t> rows);

    void select(const QModelIndex& index, SelectionFlags command) override;
    void select(const QItemSelection& selection, SelectionFlags command) override;
    void clear() override;
    void reset() override;

private:
    [[nodiscard]] std::size_t RowCount() const;

    std::function<void()> picked_;
    std::vector<bool> rows_;
    std::vector<bool> settled_; ///< without the range that is being drawn
};

class RowGrid : public QTableView {
public:
    explicit RowGrid(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    [[nodiscard]] bool IsPicked(int row) const;

    /// Ascending.
    [[nodiscard]] std::vector<std::size_t> PickedRows() const;

    /// Picks rows, scrolls to the first when none of them is in sight, and tells nobody.
    void PickRows(std::span<const std::size_t> rows);

    /// Gives each column the room that its head and the rows in sight need.
    void FitColumns();

    /// Typing is for the cells.
    void keyboardSearch(const QString&) override {}

    std::function<void()> onPicked; ///< told when the user has picked other rows

protected:
    [[nodiscard]] QItemSelectionModel::SelectionFlags
    selectionCommand(const QModelIndex& index, const QEvent* event) const override;

private:
    RowPicker* picker_ = nullptr;
    mutable QItemSelectionModel::SelectionFlag toggled_ = QItemSelectionModel::Select;
};

} // namespace quandrel
