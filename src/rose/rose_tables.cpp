// SPDX-License-Identifier: MIT

#include "rose/rose_tables.h"

#include "core/plot_store.h"

namespace quandrel {

PlotRose& RoseOf(Plot& plot) {
    return plot.attachments.Of<PlotRose>();
}

PlotRose& ActiveRose() {
    return RoseOf(ActivePlot());
}

} // namespace quandrel
