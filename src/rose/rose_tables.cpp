// SPDX-License-Identifier: MIT

#include "rose/rose_tables.h"

#include "core/plot_store.h"

namespace quandrel {

PlotRose& RoseOf(Plot& plot) {
    return plot.attachments.Of<PlotRose>();
}

const PlotRose& RoseOf(const Plot& plot) {
    static const PlotRose kNone;
    const PlotRose* const rose = plot.attachments.Find<PlotRose>();
    return rose != nullptr ? *rose : kNone;
}

PlotRose& ActiveRose() {
    return RoseOf(ActivePlot());
}

} // namespace quandrel
