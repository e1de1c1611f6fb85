// SPDX-License-Identifier: MIT

#include "stereo/window_drawing.h"

#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/settings_value.h"
#include "platform/platform.h"

namespace quandrel {

Drawing WindowDrawing(int slot) {
    PlotForm& form = FormOf(slot);
    return {form.PlotSurface(),
            form.LegendSurface(),
            gSettings.styles,
            DrawnFor::Window,
            FormulasInForce(RecordOf(slot)),
            WatcherInForce(),
            0,
            StyleOfPlot(RecordOf(slot))};
}

Drawing PaperDrawing(const PlotRecord& record, Surface& plot, Surface& legend) {
    return {plot,
            legend,
            gSettings.styles,
            DrawnFor::Paper,
            FormulasInForce(record),
            WatcherInForce(),
            0,
            StyleOfPlot(record)};
}

StatusLine* WatcherInForce() {
    return gPlatform.status;
}

} // namespace quandrel
