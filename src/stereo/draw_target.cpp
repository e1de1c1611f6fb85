// SPDX-License-Identifier: MIT

#include "stereo/draw_target.h"

#include "core/plot_store.h"

namespace quandrel {

namespace {

Surface* plotTarget = nullptr;
Surface* legendTarget = nullptr;

} // namespace

Surface& PlotSurface() {
    return plotTarget != nullptr ? *plotTarget : FormOf(gActivePlot).PlotSurface();
}

Surface& LegendSurface() {
    return legendTarget != nullptr ? *legendTarget : FormOf(gActivePlot).LegendSurface();
}

bool IsDrawingElsewhere() {
    return plotTarget != nullptr;
}

DrawElsewhere::DrawElsewhere(Surface& plot, Surface& legend)
    : formerPlot_(plotTarget)
    , formerLegend_(legendTarget) {
    plotTarget = &plot;
    legendTarget = &legend;
}

DrawElsewhere::~DrawElsewhere() {
    plotTarget = formerPlot_;
    legendTarget = formerLegend_;
}

} // namespace quandrel
