// SPDX-License-Identifier: MIT
//
// The two windows that show a plot's data: the one of its files, and the one of its rows. Each is
// made when it is first wanted.
//
// Inside the room: both grids over one model, rows that are picked, cells that are typed into.
// Enters: what edit/data_grid and edit/raw_data show of a plot, and the selection.
// Leaves: edits to edit/data_grid, and the rows that the user picks.

#pragma once

#include <cstdint>
#include <functional>
#include <span>

class QWidget;

namespace quandrel {

class frmDataDisplay;

class DataDisplays {
public:
    /// @param window  that the windows belong to, and that outlives this
    /// @param edited  called when edits in a grid have changed a plot
    DataDisplays(QWidget& window, std::function<void()> edited);

    DataDisplays(const DataDisplays&) = delete;
    DataDisplays& operator=(const DataDisplays&) = delete;

    /// Shows the files of gActivePlot; tells the reason when they cannot be shown.
    void ShowRawData();

    /// Shows the rows of gActivePlot.
    void ShowPlotData();

    /// Picks in both grids what is selected. Called after each change of the selection.
    void SelectionChanged();

    /// Lets the windows show their plots as they stand; they close with their plots. Called
    /// whenever rows, titles or fields may have changed.
    void FollowPlots();

    /// Marks rows as deleted that an edit took out of a plot.
    /// @param points  their point indices before that, ascending
    void RowsRemoved(int slot, std::span<const std::int32_t> points);

    /// Writes edits that wait into their plot; before it is saved, or asked about when it closes.
    void ApplyEdits(int slot);

    /// Takes away the windows of a plot that closes. Edits that wait are gone.
    void PlotClosed(int slot);

private:
    frmDataDisplay& Window(bool isRaw);

    QWidget& window_;
    std::function<void()> edited_;
    frmDataDisplay* raw_ = nullptr;
    frmDataDisplay* plot_ = nullptr;
};

} // namespace quandrel
