// SPDX-License-Identifier: MIT
//
// A plot's data in a grid: the lines of its files, to be read, or its rows, to be edited.
//
// The window stays with its plot until that closes. Rows picked in it are selected on the plot, and
// rows selected there are picked in it. A cell is edited in txtCellContents, which stands over it;
// what was typed waits in the grid until OK or until the window closes.

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

    /// The window that shows the other grid, or none.
    void SetOtherGrid(frmDataDisplay* other) { other_ = other; }

    /// Brings the window up with the data of a plot. Edits that wait are applied if they are of
    /// another plot, and stay if they are of this one.
    /// @return false, with the reason told, when the data cannot be shown
    bool ShowData(int slot);

    /// The plot shown; 0 while the window is not up.
    [[nodiscard]] int Slot() const;

    /// Makes the rows picked in the grid the selection of the plot.
    void SelectFromGrid();

    /// Picks the selected rows in the other grid.
    void ShowSelectionInOtherGrid();

    /// Picks the rows that are selected on the plot. Does nothing while it is the grid's own
    /// picking that changes the selection.
    void SelectionChanged();

    /// Shows the plot as it stands now. Edits that wait go with their rows.
    void FollowPlot();

    /// As DataGrid::RowsRemoved, for a plot.
    void RowsRemoved(int slot, std::span<const std::int32_t> points);

    /// Writes the edits that wait into the plot.
    void ApplyEdits();

    /// The plot is gone: the window closes, and edits that wait are gone too.
    void PlotClosed();

    /// Opens the editor over a cell, if that can be edited.
    void BeginEdit(const QModelIndex& cell);

    /// Takes what was typed, or drops it.
    void ConfirmEdit();
    void DropEdit();

    /// Esc: closes the window, unless edits wait.
    void reject() override;

    RowGrid* grdRawData;
    QLineEdit* txtCellContents;
    QLabel* lblEdits; ///< how many edits wait, and whether all of them can be read
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
    PlotDataModel* plot_ = nullptr; ///< model_ where the grid can be edited
    QPersistentModelIndex edited_;  ///< the cell under the editor
    bool selecting_ = false;        ///< the grid's picking is on its way to the plot
    bool applying_ = false;
    bool toldOfEdits_ = false; ///< the status line says that edits wait
};

} // namespace quandrel
