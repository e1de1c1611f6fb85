// SPDX-License-Identifier: MIT

#include "shell/grids/row_grid.h"

#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

constexpr int kNarrowestColumn = 36;
constexpr int kWidestColumn = 320;
constexpr int kAirBeside = 10; ///< beside the longest text of a column
constexpr int kAirAbove = 6;   ///< above and below a text
constexpr int kRowsMeasured = 500;

/// Draws the cells of selected rows as selected.
class PickedRowDelegate : public QStyledItemDelegate {
public:
    explicit PickedRowDelegate(RowGrid& grid)
        : QStyledItemDelegate(&grid)
        , grid_(grid) {}

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Selected, grid_.IsPicked(index.row()));
    }

private:
    RowGrid& grid_;
};

} // namespace

RowPicker::RowPicker(QAbstractItemModel& model, std::function<void()> picked, QObject* parent)
    : QItemSelectionModel(&model, parent)
    , picked_(std::move(picked)) {}

std::size_t RowPicker::RowCount() const {
    return model() == nullptr ? 0 : static_cast<std::size_t>(model()->rowCount());
}

bool RowPicker::IsPicked(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return row >= 0 && place < rows_.size() && rows_[place];
}

std::vector<std::size_t> RowPicker::Rows() const {
    std::vector<std::size_t> picked;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row]) {
            picked.push_back(row);
        }
    }
    return picked;
}

void RowPicker::SetRows(std::span<const std::size_t> rows) {
    rows_.assign(RowCount(), false);
    for (const std::size_t row : rows) {
        if (row < rows_.size()) {
            rows_[row] = true;
        }
    }
    settled_ = rows_;
}

void RowPicker::select(const QModelIndex& index, SelectionFlags command) {
    select(QItemSelection(index, index), command);
}

void RowPicker::select(const QItemSelection& selection, SelectionFlags command) {
    if (command == NoUpdate) {
        return;
    }
    // The model may have more rows than before; this does not change the selection.
    rows_.resize(RowCount());
    const std::vector<bool> before = rows_;
    if (command.testFlag(Clear)) {
        rows_.assign(rows_.size(), false);
        settled_ = rows_;
    }
    // A range that is still being dragged replaces its previous state.
    if (command.testFlag(Current)) {
        settled_.resize(rows_.size());
        rows_ = settled_;
    } else {
        settled_ = rows_;
    }
    for (const QItemSelectionRange& range : selection) {
        const int last = std::min(range.bottom(), static_cast<int>(rows_.size()) - 1);
        for (int row = std::max(range.top(), 0); row <= last; ++row) {
            const auto place = static_cast<std::size_t>(row);
            rows_[place] = command.testFlag(Toggle) ? !rows_[place] : command.testFlag(Select);
        }
    }
    if (rows_ != before) {
        picked_();
    }
}

void RowPicker::clear() {
    QItemSelectionModel::clear();
    select(QItemSelection(), Clear);
}

void RowPicker::reset() {
    QItemSelectionModel::reset();
    SetRows({});
}

RowGrid::RowGrid(QWidget* parent)
    : QTableView(parent) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setItemDelegate(new PickedRowDelegate(*this));
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // A whole column cannot be selected.
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(kNarrowestColumn);
    horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kAirAbove);
    verticalHeader()->hide();
}

void RowGrid::setModel(QAbstractItemModel* model) {
    QItemSelectionModel* const former = selectionModel();
    QTableView::setModel(model);
    QItemSelectionModel* const ordinary = selectionModel();
    picker_ = nullptr;
    if (model != nullptr) {
        picker_ = new RowPicker(
            *model,
            [this] {
                viewport()->update();
                if (onPicked) {
                    onPicked();
                }
            },
            this);
        setSelectionModel(picker_);
    }
    for (QItemSelectionModel* unused : {former, ordinary}) {
        if (unused != nullptr && unused != picker_ && unused != selectionModel()) {
            unused->deleteLater();
        }
    }
}

bool RowGrid::IsPicked(int row) const {
    return picker_ != nullptr && picker_->IsPicked(row);
}

std::vector<std::size_t> RowGrid::PickedRows() const {
    return picker_ == nullptr ? std::vector<std::size_t>() : picker_->Rows();
}

void RowGrid::PickRows(std::span<const std::size_t> rows) {
    if (picker_ == nullptr) {
        return;
    }
    picker_->SetRows(rows);
    const int first = std::max(rowAt(0), 0);
    const int below = rowAt(viewport()->height() - 1);
    const int last = below < 0 ? model()->rowCount() - 1 : below;
    const bool isInSight = std::ranges::any_of(rows, [first, last](std::size_t row) {
        return row >= static_cast<std::size_t>(first) && row <= static_cast<std::size_t>(last);
    });
    if (!rows.empty() && !isInSight) {
        scrollTo(model()->index(static_cast<int>(rows.front()), 0), PositionAtCenter);
    }
    viewport()->update();
}

void RowGrid::FitColumns() {
    resizeColumnsToContents();
    for (int column = 0; column < model()->columnCount(); ++column) {
        setColumnWidth(column, std::min(columnWidth(column) + kAirBeside, kWidestColumn));
    }
}

QItemSelectionModel::SelectionFlags RowGrid::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    const bool isPress = event != nullptr && event->type() == QEvent::MouseButtonPress;
    if (isPress && IsPicked(index.row())
        && static_cast<const QMouseEvent*>(event)->button() == Qt::RightButton) {
        return QItemSelectionModel::NoUpdate;
    }
    QItemSelectionModel::SelectionFlags command = QTableView::selectionCommand(index, event);
    if (command.testFlag(QItemSelectionModel::Toggle)) {
        // A drag gives all rows that it crosses the state of the first one.
        if (!command.testFlag(QItemSelectionModel::Current)) {
            toggled_ =
                IsPicked(index.row()) ? QItemSelectionModel::Deselect : QItemSelectionModel::Select;
        }
        command.setFlag(QItemSelectionModel::Toggle, false);
        command.setFlag(toggled_);
    }
    return command;
}

} // namespace quandrel
