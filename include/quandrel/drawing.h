// SPDX-License-Identifier: MIT
//
// Drawing plots, with their legends, as the program draws them.
//
// Example: contours of poles to beds, recorded.
//
//     namespace qd = quandrel::api;
//     qd::Plot plot;
//     plot.rowsAs = qd::RowsAs::kContours;
//     plot.rows.planes = {{40, 120}, {38, 118}, {41, 125}, {70, 300}};
//     qd::Recording net({550, 550});
//     qd::Recording legend({160, 400});
//     qd::DrawPlot(plot, {.plot = net, .legend = legend, .title = "quarry"});
//     const qd::Operation& primitive = net.Operations()[0];
//     std::cout << primitive.points[0].x << ' ' << primitive.radius << '\n'; // -> 275 250
//     std::cout << legend.Operations()[0].text << '\n'; // -> Data: quarry

#pragma once

#include "quandrel/plot_file.h"
#include "quandrel/surface.h"

#include <string>

namespace quandrel::api {

/// What a picture is drawn for.
enum class DrawnFor {
    kPaper,  ///< nothing is cleared: white is taken to be there
    kScreen, ///< both surfaces are cleared first
};

/// What a plot is drawn on, and how.
struct Drawing {
    Surface& plot;   ///< the net, or the rose, in the largest square at its centre: the radius of
                     ///< the primitive is 10/22 of that square's side
    Surface& legend; ///< lines from the top down; those without room are left out, with a mark
    std::string title = {}; ///< what the legend calls the data
    DrawnFor purpose = DrawnFor::kPaper;
    int gridSize = 50; ///< steps of the density grid across the net, 10 to 150
};

/// Draws a plot in the styles of a first run of the program. A rose is one of frequencies, in
/// sectors of 10 degrees.
///
/// Rows are taken as PlotBytes takes them. They are drawn and counted in whole degrees, or as they
/// are where Plot::usesDecimals is set. Arguments that PlotBytes does not accept, a grid size out
/// of range and surfaces without a size throw std::invalid_argument before anything is drawn. What
/// a surface throws passes through; the picture then ends there. Threads may draw at once, each on
/// surfaces of its own.
void DrawPlot(const Plot& plot, const Drawing& drawing);

} // namespace quandrel::api
