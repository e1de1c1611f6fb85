// SPDX-License-Identifier: MIT
//
// A plot's data in a grid: the lines of its files (read-only), or its rows (editable).
//
// The window stays with its plot until the plot closes. Rows selected in the grid are selected on
// the plot, and vice versa. A cell is edited in txtCellContents, which lies over the cell. Edits
// are pending until OK or until the window closes.

#pragma once

#include <QDialog>
#include <QPersistentModelIndex>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quandrel {

class DataDisplayModel;
class PlotDataModel;
class RowGrid;

enum class DataDisplayMode { Raw, Processed };

class frmDataDisplay : public QDialog {
public:
    /// @param edited  called when edits have been applied to the plot
    frmDataDisplay(DataDisplayMode mode, QWidget* parent, std::function<void()> edited = {});
    ~frmDataDisplay() override;

    frmDataDisplay(const frmDataDisplay&) = delete;
    frmDataDisplay& operator=(const frmDataDisplay&) = delete;

    /// The window that shows the other grid, or null.
    void SetOtherGrid(frmDataDisplay* other) { other_ = other; }

    /// Opens the window with the data of a plot. Pending edits of another plot are applied first;
    /// pending edits of this plot are kept.
    /// @return false if the data cannot be shown; the user has seen the reason
    bool ShowData(int slot);

    /// The plot that is shown; 0 while the window is closed.
    [[nodiscard]] int Slot() const;

    /// Makes the rows selected in the grid the selection of the plot.
    void SelectFromGrid();

    /// Selects the same rows in the other grid.
    void ShowSelectionInOtherGrid();

    /// Selects the rows that are selected on the plot. Does nothing while the grid itself is
    /// changing the selection.
    void SelectionChanged();

    /// Shows the current state of the plot. Pending edits stay with their rows.
    void FollowPlot();

    /// See DataGrid::RowsRemoved; for a plot.
    void RowsRemoved(int slot, std::span<const std::int32_t> points);

    /// Writes the pending edits to the plot.
    void ApplyEdits();

    /// The plot is closed: the window closes, and pending edits are lost.
    void PlotClosed();

    /// Opens the editor over a cell, if the cell is editable.
    void BeginEdit(const QModelIndex& cell);

    /// Accepts or discards the typed text.
    void ConfirmEdit();
    void DropEdit();

    /// Esc: closes the window unless edits are pending.
    void reject() override;

    RowGrid* grdRawData;
    QLineEdit* txtCellContents;
    QLabel* lblEdits; ///< the number of pending edits, and whether all are valid
    QPushButton* cmdAddRow;
    QPushButton* cmdDiscard;
    QPushButton* cmdOK;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    [[nodiscard]] std::unique_ptr<DataDisplayModel> ModelOf(int slot, QString& reason) const;
    void SetModel(std::unique_ptr<DataDisplayModel> model);
    void MakeLayout();
    void FitWidth();
    void Connect();
    [[nodiscard]] bool HasEdits() const;

    [[nodiscard]] bool IsEditing() const { return edited_.isValid(); }

    [[nodiscard]] bool GridKey(const QKeyEvent& event);
    [[nodiscard]] bool EditorKey(const QKeyEvent& event);
    [[nodiscard]] QModelIndex NextEditable(const QModelIndex& from, bool isForward) const;
    void ConfirmAndGoTo(const QModelIndex& cell);
    void PlaceEditor();
    void ShowVerdict();
    void ShowEdits();
    void AddRow();
    void DiscardEdits();
    void CopyCells();

    DataDisplayMode mode_;
    std::function<void()> editsApplied_;
    frmDataDisplay* other_ = nullptr;
    std::unique_ptr<DataDisplayModel> model_;
    PlotDataModel* plot_ = nullptr; ///< equal to model_ if the grid is editable
    QPersistentModelIndex edited_;  ///< the cell under the editor
    bool selecting_ = false;        ///< the grid is changing the selection of the plot
    bool applying_ = false;
    bool toldOfEdits_ = false; ///< the status line reports pending edits
};

} // namespace quandrel
