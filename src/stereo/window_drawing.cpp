// SPDX-License-Identifier: MIT

#include "stereo/window_drawing.h"

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "platform/platform.h"

namespace quandrel {

Drawing WindowDrawing(int slot) {
    PlotForm& form = FormOf(slot);
    return {form.PlotSurface(), form.LegendSurface(),        gSettings.styles,
            DrawnFor::Window,   gSettings.notation.formulas, WatcherInForce()};
}

Drawing PaperDrawing(Surface& plot, Surface& legend) {
    return {plot,
            legend,
            gSettings.styles,
            DrawnFor::Paper,
            gSettings.notation.formulas,
            WatcherInForce()};
}

StatusLine* WatcherInForce() {
    return gPlatform.status;
}

} // namespace quandrel
