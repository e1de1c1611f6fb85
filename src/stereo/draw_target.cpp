// SPDX-License-Identifier: MIT

#include "stereo/draw_target.h"

#include "core/formulas.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "platform/platform.h"

namespace quandrel {

namespace {

Surface* plotTarget = nullptr;
Surface* legendTarget = nullptr;
DrawnFor targetPurpose = DrawnFor::Window;
bool repainting = false;

} // namespace

Drawing DrawingInForce() {
    return {PlotSurface(),
            LegendSurface(),
            gSettings.styles,
            targetPurpose,
            gSettings.notation.formulas,
            gPlatform.status};
}

Surface& PlotSurface() {
    return plotTarget != nullptr ? *plotTarget : FormOf(gActivePlot).PlotSurface();
}

Surface& LegendSurface() {
    return legendTarget != nullptr ? *legendTarget : FormOf(gActivePlot).LegendSurface();
}

bool IsDrawingElsewhere() {
    return plotTarget != nullptr;
}

bool IsRepainting() {
    return repainting;
}

bool MayAskWhileDrawing() {
    return !IsDrawingElsewhere() && !IsRepainting();
}

Repainting::Repainting()
    : former_(repainting) {
    repainting = true;
}

Repainting::~Repainting() {
    repainting = former_;
}

DrawElsewhere::DrawElsewhere(Surface& plot, Surface& legend, DrawnFor purpose)
    : formerPlot_(plotTarget)
    , formerLegend_(legendTarget)
    , formerPurpose_(targetPurpose) {
    targetPurpose = purpose;
    plotTarget = &plot;
    legendTarget = &legend;
}

DrawElsewhere::~DrawElsewhere() {
    plotTarget = formerPlot_;
    legendTarget = formerLegend_;
    targetPurpose = formerPurpose_;
}

} // namespace quandrel
