// SPDX-License-Identifier: MIT
//
// The cell editor of the data grid, and the keys that open and leave it.

#include "shell/controls/bad_text.h"
#include "shell/grids/data_display_model.h"
#include "shell/grids/frm_data_display.h"
#include "shell/grids/row_grid.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace quandrel {

namespace {

bool IsTyping(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().at(0).isPrint()
           && !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

void frmDataDisplay::BeginEdit(const QModelIndex& cell) {
    ConfirmEdit();
    if (plot_ == nullptr || !plot_->IsEditable(cell)) {
        return;
    }
    grdRawData->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    grdRawData->scrollTo(cell);
    edited_ = cell;
    txtCellContents->setText(plot_->EditText(cell));
    txtCellContents->setAlignment(
        Qt::Alignment(cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask));
    txtCellContents->selectAll();
    ShowVerdict();
    PlaceEditor();
    txtCellContents->show();
    txtCellContents->setFocus();
}

void frmDataDisplay::PlaceEditor() {
    if (!IsEditing()) {
        return;
    }
    // A little larger than its cell, so that the text has the same space as in the cell.
    QRect room = grdRawData->visualRect(edited_);
    room.adjust(-1, -1, 1, 1);
    room.setWidth(qMax(room.width(), txtCellContents->minimumSizeHint().width()));
    txtCellContents->setGeometry(room);
}

void frmDataDisplay::ShowVerdict() {
    const bool isBad = IsEditing() && plot_->IsBadText(edited_, txtCellContents->text());
    ShowAsBad(*txtCellContents, isBad);
    txtCellContents->setToolTip(isBad ? "This cannot be read" : "");
}

void frmDataDisplay::ConfirmEdit() {
    if (!IsEditing()) {
        return;
    }
    const QModelIndex cell = edited_;
    edited_ = QPersistentModelIndex(); // losing the focus must not confirm again
    static_cast<void>(plot_->SetText(cell, txtCellContents->text()));
    DropEdit();
    ShowEdits();
}

void frmDataDisplay::DropEdit() {
    edited_ = QPersistentModelIndex();
    if (txtCellContents->isHidden()) {
        return;
    }
    const bool hadFocus = txtCellContents->hasFocus();
    txtCellContents->hide();
    if (hadFocus) {
        grdRawData->setFocus();
    }
}

void frmDataDisplay::ConfirmAndGoTo(const QModelIndex& cell) {
    ConfirmEdit();
    if (cell.isValid()) {
        BeginEdit(cell);
    }
}

QModelIndex frmDataDisplay::NextEditable(const QModelIndex& from, bool isForward) const {
    const int columns = plot_->columnCount();
    const int step = isForward ? 1 : -1;
    // Deleted rows and read-only columns are skipped.
    for (int place = from.row() * columns + from.column() + step;
         place >= 0 && place < plot_->rowCount() * columns; place += step) {
        const QModelIndex cell = plot_->index(place / columns, place % columns);
        if (plot_->IsEditable(cell)) {
            return cell;
        }
    }
    return {};
}

bool frmDataDisplay::EditorKey(const QKeyEvent& event) {
    const QModelIndex cell = edited_;
    if (IsEnter(event)) {
        ConfirmEdit();
        const QModelIndex below =
            cell.siblingAtColumn(cell.column()).sibling(cell.row() + 1, cell.column());
        if (below.isValid()) {
            grdRawData->selectionModel()->setCurrentIndex(below, QItemSelectionModel::NoUpdate);
        }
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        DropEdit();
        return true;
    case Qt::Key_Tab:
        ConfirmAndGoTo(NextEditable(cell, true));
        return true;
    case Qt::Key_Backtab:
        ConfirmAndGoTo(NextEditable(cell, false));
        return true;
    case Qt::Key_Down:
        ConfirmAndGoTo(cell.sibling(cell.row() + 1, cell.column()));
        return true;
    case Qt::Key_Up:
        ConfirmAndGoTo(cell.sibling(cell.row() - 1, cell.column()));
        return true;
    default:
        return false;
    }
}

bool frmDataDisplay::GridKey(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) {
        CopyCells();
        return true;
    }
    const QModelIndex cell = grdRawData->currentIndex();
    if (plot_ == nullptr || !plot_->IsEditable(cell)) {
        return false;
    }
    if (event.key() == Qt::Key_F2 || IsEnter(event)) {
        BeginEdit(cell);
        return true;
    }
    if (IsTyping(event) && event.key() != Qt::Key_Space) {
        BeginEdit(cell);
        txtCellContents->setText(event.text());
        return true;
    }
    return false;
}

bool frmDataDisplay::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (object == txtCellContents && IsEditing()) {
            return EditorKey(key);
        }
        if (object == grdRawData && model_ != nullptr) {
            return GridKey(key);
        }
    }
    if (object == txtCellContents && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            ConfirmEdit();
        }
    }
    if (object == grdRawData->viewport() && event->type() == QEvent::Resize) {
        PlaceEditor();
    }
    return QDialog::eventFilter(object, event);
}

} // namespace quandrel
