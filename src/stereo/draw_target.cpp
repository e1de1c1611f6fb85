// SPDX-License-Identifier: MIT

#include "stereo/draw_target.h"

#include "core/plot_store.h"
#include "core/settings.h"

namespace quandrel {

namespace {

Surface* plotTarget = nullptr;
Surface* legendTarget = nullptr;
DrawnFor targetMedium = DrawnFor::Screen;
bool repainting = false;

/// How bright a colour looks, 0 to 1: the luma of ITU-R Recommendation BT.601 (1982).
double Brightness(Colour colour) {
    return (0.299 * colour.red + 0.587 * colour.green + 0.114 * colour.blue) / 255;
}

constexpr double kTooBrightForPaper = 0.85;

} // namespace

Colour PlotBackground() {
    return targetMedium == DrawnFor::Paper ? kWhite : ColourFromValue(gPlotBackColour);
}

Colour AxesColour() {
    const Colour colour = ColourFromValue(gPlotAxesColour);
    return targetMedium == DrawnFor::Paper && Brightness(colour) > kTooBrightForPaper ? kBlack
                                                                                      : colour;
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

DrawElsewhere::DrawElsewhere(Surface& plot, Surface& legend, DrawnFor medium)
    : formerPlot_(plotTarget)
    , formerLegend_(legendTarget)
    , formerMedium_(targetMedium) {
    targetMedium = medium;
    plotTarget = &plot;
    legendTarget = &legend;
}

DrawElsewhere::~DrawElsewhere() {
    plotTarget = formerPlot_;
    legendTarget = formerLegend_;
    targetMedium = formerMedium_;
}

} // namespace quandrel
