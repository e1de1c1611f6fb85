// SPDX-License-Identifier: MIT
//
// The two windows that show a plot's data: that of its files and that of its rows. Each is created
// when it is first needed.
//
// This room holds one model for both grids, the selection of rows, and the cell editor.
// Input: the contents of edit/grids/data_grid and edit/grids/raw_data, and the selection.
// Output: edits to edit/grids/data_grid, and the rows that the user selects.

#pragma once

#include <cstdint>
#include <functional>
#include <span>

class QWidget;

namespace quandrel {

class frmDataDisplay;

class DataDisplays {
public:
    /// @param window  the owner of the windows; outlives this object
    /// @param edited  called when edits in a grid have changed a plot
    DataDisplays(QWidget& window, std::function<void()> edited);

    DataDisplays(const DataDisplays&) = delete;
    DataDisplays& operator=(const DataDisplays&) = delete;

    /// Shows the files of gActivePlot, or a message with the reason why they cannot be shown.
    void ShowRawData();

    /// Shows the rows of gActivePlot.
    void ShowPlotData();

    /// Shows the selection in both grids. Called after each change of the selection.
    void SelectionChanged();

    /// Updates the windows from their plots; a window closes with its plot. Called whenever rows,
    /// titles or fields may have changed.
    void FollowPlots();

    /// Marks rows as deleted after an edit has removed them from a plot.
    /// @param points  their point indices before the removal, ascending
    void RowsRemoved(int slot, std::span<const std::int32_t> points);

    /// Writes pending edits to their plot; called before the plot is saved, and before the question
    /// when it closes.
    void ApplyEdits(int slot);

    /// Closes the windows of a plot that closes. Pending edits are lost.
    void PlotClosed(int slot);

private:
    frmDataDisplay& Window(bool isRaw);

    QWidget& window_;
    std::function<void()> edited_;
    frmDataDisplay* raw_ = nullptr;
    frmDataDisplay* plot_ = nullptr;
};

} // namespace quandrel
