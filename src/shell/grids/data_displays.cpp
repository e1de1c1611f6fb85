// SPDX-License-Identifier: MIT

#include "shell/grids/data_displays.h"

#include "core/plot_store.h"
#include "shell/grids/frm_data_display.h"

#include <utility>

namespace quandrel {

DataDisplays::DataDisplays(QWidget& window, std::function<void()> edited)
    : window_(window)
    , edited_(std::move(edited)) {}

frmDataDisplay& DataDisplays::Window(bool isRaw) {
    frmDataDisplay*& wanted = isRaw ? raw_ : plot_;
    if (wanted == nullptr) {
        wanted = new frmDataDisplay(isRaw ? DataDisplayMode::Raw : DataDisplayMode::Processed,
                                    &window_, edited_);
        frmDataDisplay* const other = isRaw ? plot_ : raw_;
        if (other != nullptr) {
            wanted->SetOtherGrid(other);
            other->SetOtherGrid(wanted);
        }
    }
    return *wanted;
}

void DataDisplays::ShowRawData() {
    static_cast<void>(Window(true).ShowData(gActivePlot));
}

void DataDisplays::ShowPlotData() {
    static_cast<void>(Window(false).ShowData(gActivePlot));
}

void DataDisplays::SelectionChanged() {
    for (frmDataDisplay* window : {raw_, plot_}) {
        if (window != nullptr) {
            window->SelectionChanged();
        }
    }
}

void DataDisplays::FollowPlots() {
    for (frmDataDisplay* window : {raw_, plot_}) {
        if (window != nullptr) {
            window->FollowPlot();
        }
    }
}

void DataDisplays::RowsRemoved(int slot, std::span<const std::int32_t> points) {
    if (plot_ != nullptr) {
        plot_->RowsRemoved(slot, points);
    }
}

void DataDisplays::ApplyEdits(int slot) {
    if (plot_ != nullptr && plot_->Slot() == slot) {
        plot_->ApplyEdits();
    }
}

void DataDisplays::PlotClosed(int slot) {
    for (frmDataDisplay* window : {raw_, plot_}) {
        if (window != nullptr && window->Slot() == slot) {
            window->PlotClosed();
        }
    }
}

} // namespace quandrel
