// SPDX-License-Identifier: MIT

#include "drawing/rose_bridge.h"

#include "rose/rose_plot.h"
#include "stereo/draw_target.h"

#include <optional>
#include <utility>

namespace quandrel {

namespace {

ReplotCause lastCause = ReplotCause::Picture;

} // namespace

void WorkOutRose(Plot& /*plot*/, ReplotCause cause) {
    lastCause = cause;
}

void DrawRose(const Plot& /*plot*/, const Drawing& drawing) {
    if (drawing.purpose != DrawnFor::Window) {
        const DrawElsewhere elsewhere(drawing.plot, drawing.legend, drawing.purpose);
        RosePlot(false);
        return;
    }
    const ReplotCause cause = std::exchange(lastCause, ReplotCause::Picture);
    std::optional<Repainting> repainting;
    if (cause == ReplotCause::Repaint) {
        repainting.emplace();
    }
    RosePlot(cause == ReplotCause::Rows);
}

} // namespace quandrel
