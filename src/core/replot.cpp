// SPDX-License-Identifier: MIT

#include "core/replot.h"

#include "core/plot_store.h"

#include <utility>

namespace quandrel {

namespace {

PlotDrawer& Drawer() {
    static PlotDrawer drawer;
    return drawer;
}

} // namespace

void ConnectPlotDrawer(PlotDrawer drawer) {
    Drawer() = std::move(drawer);
}

void ReplotPlot(int slot, ReplotCause cause) {
    if (IsOpenSlot(slot) && Drawer()) {
        Drawer()(slot, cause);
    }
}

void ReplotActivePlot(bool recalculate) {
    ReplotPlot(gActivePlot, recalculate ? ReplotCause::Rows : ReplotCause::Settings);
}

void RedrawPlot(int slot) {
    ReplotPlot(slot, ReplotCause::Picture);
}

void RepaintPlot(int slot) {
    ReplotPlot(slot, ReplotCause::Repaint);
}

} // namespace quandrel
