// SPDX-License-Identifier: MIT

#include "quandrel/drawing.h"

#include "border/border.h"
#include "border/inner_surface.h"
#include "border/plot_columns.h"
#include "core/plot_formulas.h"
#include "drawing/draw_plot.h"
#include "drawing/work_out.h"
#include "persistence/plot_of_file.h"
#include "rose/rose_plot.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace quandrel::api {

namespace {

/// The whole of a surface, its size checked.
SurfaceArea AreaOf(const Surface& surface) {
    constexpr double kLeast = std::numeric_limits<double>::min();
    constexpr double kMost = 1e9;
    const Extent size = surface.Size();
    return {0, 0, Within(size.width, kLeast, kMost, "width of a surface"),
            Within(size.height, kLeast, kMost, "height of a surface")};
}

SurfaceArea SquareIn(const SurfaceArea& area) {
    const double side = std::min(area.width, area.height);
    return {(area.width - side) / 2, (area.height - side) / 2, side, side};
}

/// A checked plot with all that its picture shows.
quandrel::Plot WorkedOut(const Plot& plot, const Drawing& drawing, const Styles& styles) {
    const double gridSize =
        Within(drawing.gridSize, kCoarsestGrid, kFinestGrid, "size of the density grid");
    quandrel::Plot inner;
    if (!TakeBinaryPlot(PlotIn(plot), inner)) {
        throw std::bad_alloc();
    }
    inner.record.PlotTitle = drawing.title;
    const Formulas formulas = FormulasOf(inner.record, Formulas::Own);
    if (inner.record.PlotKind == kRose) {
        WorkOutRoseUnasked(inner, formulas);
    } else {
        WorkOutPlot(inner, {ReplotCause::Rows, styles, formulas, static_cast<int>(gridSize)});
    }
    return inner;
}

} // namespace

void DrawPlot(const Plot& plot, const Drawing& drawing) {
    InnerSurface net(drawing.plot, SquareIn(AreaOf(drawing.plot)));
    InnerSurface legend(drawing.legend, AreaOf(drawing.legend));
    const Styles styles = StartStyles();
    const quandrel::Plot inner = WorkedOut(plot, drawing, styles);
    quandrel::DrawPlot(inner, {net, legend, styles,
                               drawing.purpose == DrawnFor::kScreen ? quandrel::DrawnFor::Window
                                                                    : quandrel::DrawnFor::Paper,
                               FormulasOf(inner.record, Formulas::Own)});
}

} // namespace quandrel::api
